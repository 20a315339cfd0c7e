// The simulator's snapshot of its state and the restore back to it (what the fuzz harnesses
// start every input from).
#include <stdio.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "common/platform_tcapi.h"
#include "sim/sim.h"
#include "sim/sim_control.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace sim_snapshot_test {

class SimSnapshot : public testsupport::BridgeTest {
 protected:
  // Every test starts and ends without a snapshot.
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    sim_reset();
    sim_set("device", "vendor", "Lumarest");
    sim_set("device", "model", "HGU");
    tcapi_set("Node_Entry0", "Attr", "kept");
    sim_clear_log();
  }
  void TearDown() override {
    sim_reset();
    testsupport::BridgeTest::TearDown();
  }
};

void note_call(const char *, void *ctx) { ++*static_cast<int *>(ctx); }

TEST_F(SimSnapshot, RestoreOfAnotherSnapshotFails) {
  EXPECT_EQ(sim_restore(0), -1);
  unsigned long first = sim_snapshot();
  EXPECT_NE(first, 0u);
  sim_set("device", "vendor", "Other");
  unsigned long second = sim_snapshot();
  EXPECT_NE(second, first);
  EXPECT_EQ(sim_restore(first), -1);  // replaced
  EXPECT_STREQ(sim_get("device", "vendor"), "Other");
  sim_reset();  // forgets the snapshot too
  EXPECT_EQ(sim_restore(second), -1);
  EXPECT_EQ(sim_get("device", "vendor"), nullptr);
}

// Values changed, entries added and removed, sections created: only those are put back.
TEST_F(SimSnapshot, RestoreUndoesChangedValuesAndNewSections) {
  unsigned long id = sim_snapshot();
  EXPECT_EQ(sim::sections("tcapi ").size(), 1u);  // the names under a prefix, cached now
  sim_set("device", "vendor", "Other");
  sim_set("device", "serial", "123");
  sim_unset("device", "model");
  sim_set("added", "key", "value");
  tcapi_set("Node_Entry1", "Attr", "new");
  tcapi_set("Node_Entry0", "Other", "x");
  EXPECT_EQ(sim::sections("tcapi ").size(), 2u);
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_STREQ(sim_get("device", "vendor"), "Lumarest");
  EXPECT_STREQ(sim_get("device", "model"), "HGU");
  EXPECT_EQ(sim_get("device", "serial"), nullptr);
  EXPECT_EQ(sim::entries("device"),
            (std::vector<std::pair<std::string, std::string>>{{"vendor", "Lumarest"}, {"model", "HGU"}}));
  EXPECT_EQ(sim_get("added", "key"), nullptr);
  EXPECT_EQ(sim::entry_count("added"), 0u);
  EXPECT_EQ(sim::sections("tcapi "), std::vector<std::string>{"tcapi Node_Entry0"});
  char buf[32] = {};
  EXPECT_EQ(tcapi_get("Node_Entry0", "Attr", buf), 0);
  EXPECT_STREQ(buf, "kept");
  EXPECT_NE(tcapi_get("Node_Entry0", "Other", buf), 0);
  EXPECT_NE(tcapi_get("Node_Entry1", "Attr", buf), 0);
  // The same snapshot serves again.
  sim_set("device", "vendor", "Third");
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_STREQ(sim_get("device", "vendor"), "Lumarest");
}

// A section removed comes back at its place, with every other section as it was.
TEST_F(SimSnapshot, RestoreBringsBackRemovedSectionsInOrder) {
  sim_set("tcapi Node_Entry1", "Attr", "second");
  unsigned long id = sim_snapshot();
  std::vector<std::string> before = sim::sections("");
  EXPECT_EQ(sim::sections("tcapi ").size(), 2u);
  tcapi_unset("Node_Entry0");
  sim_set("device", "vendor", "Other");
  sim_unset("device", nullptr);
  sim_set("added", "key", "value");
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_EQ(sim::sections(""), before);
  EXPECT_EQ(sim::sections("tcapi "),
            (std::vector<std::string>{"tcapi Node_Entry0", "tcapi Node_Entry1"}));
  EXPECT_STREQ(sim_get("device", "vendor"), "Lumarest");
  EXPECT_STREQ(sim_get("tcapi Node_Entry0", "Attr"), "kept");
  EXPECT_EQ(sim_get("added", "key"), nullptr);
  // After that full copy, a change of values only is undone as well.
  sim_set("tcapi Node_Entry1", "Attr", "changed");
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_STREQ(sim_get("tcapi Node_Entry1", "Attr"), "second");
}

TEST_F(SimSnapshot, RestoreForgetsResultsHooksAndTheLog) {
  unsigned long id = sim_snapshot();
  int hooked = 0;
  sim_program_result("tcapi_set", -3);
  sim_program_hook("tcapi_save", note_call, &hooked);
  EXPECT_EQ(tcapi_set("Node_Entry0", "Attr", "kept"), -3);  // the value it holds: no change
  EXPECT_NE(log(), "");
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(sim_log_count("tcapi_set"), 0);
  EXPECT_EQ(tcapi_set("Node_Entry0", "Attr", "kept"), 0);
  tcapi_save();
  EXPECT_EQ(hooked, 0);
}

TEST_F(SimSnapshot, AnUnchangedStateIsKeptAsItIs) {
  unsigned long id = sim_snapshot();
  const char *vendor = sim_get("device", "vendor");
  unsigned long generation = sim::generation();
  char buf[32] = {};
  tcapi_get("Node_Entry0", "Attr", buf);  // a query changes nothing
  EXPECT_EQ(sim_restore(id), 0);
  // Nothing copied: the same value at the same place, the same generation (what the simulated
  // functions derived from the state stays valid).
  EXPECT_EQ(sim_get("device", "vendor"), vendor);
  EXPECT_EQ(sim::generation(), generation);
  // A change and a restore move the generation on; the next restore with nothing changed in
  // between keeps it.
  sim_set("device", "vendor", "Other");
  EXPECT_EQ(sim_restore(id), 0);
  unsigned long restored = sim::generation();
  EXPECT_NE(restored, generation);
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_EQ(sim::generation(), restored);
}

TEST_F(SimSnapshot, RestoreBringsBackTheSavePath) {
  std::string path = "/tmp/bundle_sc_simsnapshot_" + std::to_string(getpid()) + ".ini";
  unlink(path.c_str());
  sim_set_save_path(path.c_str());
  unsigned long id = sim_snapshot();
  sim_set_save_path(nullptr);
  EXPECT_EQ(sim_restore(id), 0);
  tcapi_save();
  FILE *f = fopen(path.c_str(), "r");
  EXPECT_NE(f, nullptr);
  if (f != nullptr) fclose(f);
  unlink(path.c_str());
  sim_set_save_path(nullptr);
}

// The nodes removed from the configuration tree (which a saved tree lists) are those of the
// snapshot again: a node removed since is no longer listed, one made again is listed again.
TEST_F(SimSnapshot, RestoreBringsBackTheRemovedNodes) {
  tcapi_set("Node_Entry2", "Attr", "gone");
  tcapi_unset("Node_Entry2");
  unsigned long id = sim_snapshot();
  tcapi_unset("Node_Entry0");
  tcapi_set("Node_Entry2", "Attr", "back");
  EXPECT_EQ(sim_restore(id), 0);
  std::string path = "/tmp/bundle_sc_simsnapshot_removed_" + std::to_string(getpid()) + ".ini";
  sim_set_save_path(path.c_str());
  EXPECT_EQ(tcapi_save(), 0);
  sim_set_save_path(nullptr);
  std::string saved = corpus::contents(path);
  unlink(path.c_str());
  EXPECT_NE(saved.find("[tcapi Node_Entry0]\nAttr = \"kept\"\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[removed tree nodes]\nNode_Entry2 = removed\n"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("Node_Entry0 = removed"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("[tcapi Node_Entry2]"), std::string::npos) << saved;
}

// A result programmed before the snapshot (as a captured gateway's [results] section does) is
// programmed again after a restore; one programmed since is forgotten. The log's returns go too.
TEST_F(SimSnapshot, RestoreKeepsTheResultsOfTheSnapshot) {
  sim_program_result("tcapi_save", -5);
  unsigned long id = sim_snapshot();
  sim_program_result("tcapi_set", -3);
  sim_program_result("tcapi_save", -7);
  EXPECT_EQ(tcapi_save(), -7);
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_EQ(tcapi_save(), -5);
  EXPECT_EQ(tcapi_set("Node_Entry0", "Attr", "kept"), 0);
  sim_clear_log();
  tcapi_save();
  EXPECT_EQ(sim_restore(id), 0);
  EXPECT_STREQ(sim_log_results(), "");
}

}  // namespace sim_snapshot_test
