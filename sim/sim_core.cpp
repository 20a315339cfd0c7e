// The simulated gateway's state, call log and programmed results.
#include <dirent.h>
#include <dlfcn.h>
#include <link.h>
#include <limits.h>
#include <sys/stat.h>
#include <errno.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <atomic>
#include <deque>
#include <iterator>
#include <list>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "sim/sim.h"

#ifndef SIM_DEFAULT_STATE
#define SIM_DEFAULT_STATE "sim/gateway"
#endif
// Where this library is built (the build tree's lib/ directory), and where the default state
// is installed relative to the directory the library is installed in. A library loaded from
// anywhere but its build directory, with that state beside it, is an installed one: it reads
// the installed state. Built or installed, it saves the configuration tree only where
// BRELO_SIM_SAVE says, so no run leaves state behind in the build or the installation.
#ifndef SIM_BUILD_LIBDIR
#define SIM_BUILD_LIBDIR ""
#endif
#ifndef SIM_INSTALLED_STATE
#define SIM_INSTALLED_STATE ""
#endif

namespace {

// Lists keep every value at its place while others are added, so a pointer from get() stays
// valid until that very value changes.
struct Section {
  std::string name;
  std::list<std::pair<std::string, std::string>> entries;
};

struct Hook {
  sim_hook_fn fn;
  void *ctx;
};

// One call in the log: its number (counted over the whole run, never reset), where its text
// starts (counted from the log's first byte since it was last emptied, so dropping old lines
// moves nothing) and what the function returned, once it has.
struct LoggedCall {
  unsigned long long serial;
  size_t start;
  int rc;
  bool returned;
};

// The call log: the lines, and how many lines begin with each function name (so counting a
// function's calls does not rescan the text). When the text grows past `limit` bytes the
// oldest lines are dropped, so about the last half of the limit stays. Beside the text, the
// calls with their return codes (sim_log_results); the text itself stays "fn(arguments)".
struct CallLog {
  std::string text;
  std::unordered_map<std::string, int> counts;
  size_t limit = 0;  // 0: the default
  std::deque<LoggedCall> calls;
  size_t dropped = 0;  // bytes dropped from the front of the text
};

struct World {
  bool initialized = false;
  std::list<Section> sections;  // in creation order
  // Every section by name (the list keeps each section at its place, so the pointers hold);
  // a gateway with thousands of sections answers as fast as one with a few.
  // Keyed by views of the sections' own names, so a lookup builds no string.
  std::unordered_map<std::string_view, std::list<Section>::iterator> by_name;
  std::map<std::string, int> results;
  std::map<std::string, Hook> hooks;
  CallLog log;
  std::string log_copy;  // what sim_log() hands out
  std::string save_path;
  // Configuration-tree nodes removed since the load (and not made again): a saved tree lists
  // them, so a node a session removed stays removed when the tree is read back.
  std::set<std::string> removed_nodes;
  // The section names under each prefix asked for so far, in creation order, kept up to date
  // as sections come and go (values changing leave them alone).
  std::unordered_map<std::string, std::vector<std::string>> names_by_prefix;
};

std::recursive_mutex g_mutex;
World g_world;

// What sim_snapshot remembered, and what changed since the snapshot or the last restore: the
// generation the state had then (while it is still that one, nothing changed), the sections
// whose entries changed, and whether any section was removed. Sections are only ever created
// at the end of the list, so until one is removed the state is the snapshot's sections, in
// order, followed by the ones created since, and a restore puts back only what changed.
struct Snapshot {
  unsigned long id = 0;  // 0: none taken
  std::list<Section> sections;
  std::unordered_map<std::string_view, const Section *> by_name;
  std::string save_path;
  std::set<std::string> removed_nodes;
  std::map<std::string, int> results;
  unsigned long clean_generation = 0;
  std::unordered_set<std::string> touched;
  bool removed = false;
};
Snapshot g_snapshot;
unsigned long g_last_snapshot_id = 0;

// The number of the next logged call, over the whole run.
unsigned long long g_next_call = 1;

// The last calls this thread logged, so that their return codes find them (a simulated
// function may call another, so a few are kept).
struct PendingCall {
  unsigned long long serial;
  const char *fn;
};
constexpr unsigned kPendingCalls = 4;
thread_local PendingCall t_pending[kPendingCalls];
thread_local unsigned t_next_pending = 0;

// Bumped by every change of the state (values, sections, loads, resets), never reset: caches
// derived from the state compare it with the generation they were built from.
std::atomic<unsigned long> g_generation{1};
// The arguments of the call whose hook runs on this thread (NULL outside a hook).
thread_local const char *t_hook_arguments = nullptr;
// Mirrors of the world for the lock-free fast paths of sim::call and sim::result.
std::atomic<bool> g_initialized{false};
std::atomic<int> g_result_count{0};
std::atomic<int> g_hook_count{0};

// The call log is on unless BRELO_SIM_LOG=off was set when the simulator was loaded.
bool log_wanted_at_load() {
  const char *v = getenv("BRELO_SIM_LOG");
  return !(v != nullptr && strcmp(v, "off") == 0);
}
std::atomic<bool> g_log_on{log_wanted_at_load()};

constexpr size_t kDefaultLogLimit = 64u << 20;  // 64 MiB of lines

// The state section whose lines are programmed results, and the file that marks a folder as a
// captured gateway.
const char kResultsSection[] = "results";
const char kCaptureFile[] = "capture.ini";

void bump() { g_generation.fetch_add(1, std::memory_order_relaxed); }

// Counts the lines of `piece` (appended at a line start) by the function name they begin
// with: the text before the line's first '('. A text argument holding a newline starts a line
// of its own, as a reader of the log would see it.
void count_lines(const char *piece, size_t n, int delta) {
  std::unordered_map<std::string, int> &counts = g_world.log.counts;
  // The name looked up, in a buffer kept from call to call (no allocation per line).
  static std::string name;
  const char *p = piece, *end = piece + n;
  while (p < end) {
    const char *nl = static_cast<const char *>(memchr(p, '\n', end - p));
    const char *line_end = nl != nullptr ? nl : end;
    const char *paren = static_cast<const char *>(memchr(p, '(', line_end - p));
    if (paren != nullptr) {
      name.assign(p, paren);
      auto it = counts.find(name);
      if (it == counts.end()) {
        if (delta > 0) counts.emplace(name, delta);
      } else if ((it->second += delta) <= 0) {
        counts.erase(it);
      }
    }
    p = line_end + 1;
  }
}

unsigned long long append_log(const char *fn, const char *args) {
  CallLog &log = g_world.log;
  size_t start = log.text.size();
  unsigned long long serial = g_next_call++;
  log.calls.push_back(LoggedCall{serial, log.dropped + start, 0, false});
  log.text += fn;
  log.text += '(';
  log.text += args;
  log.text += ")\n";
  count_lines(log.text.data() + start, log.text.size() - start, 1);
  size_t limit = log.limit != 0 ? log.limit : kDefaultLogLimit;
  if (log.text.size() > limit) {
    // Drop whole lines from the front until half the limit is left.
    size_t cut = log.text.size() - limit / 2;
    size_t nl = log.text.find('\n', cut - 1);
    cut = nl == std::string::npos ? log.text.size() : nl + 1;
    count_lines(log.text.data(), cut, -1);
    log.text.erase(0, cut);
    log.dropped += cut;
    while (!log.calls.empty() && log.calls.front().start < log.dropped) log.calls.pop_front();
  }
  return serial;
}

// The log's text with " -> <return code>" at the end of each call whose function has returned.
std::string log_with_results(const CallLog &log) {
  std::string out;
  size_t at = 0;  // in log.text
  for (size_t i = 0; i < log.calls.size(); ++i) {
    size_t start = log.calls[i].start - log.dropped;
    size_t end = i + 1 < log.calls.size() ? log.calls[i + 1].start - log.dropped : log.text.size();
    out.append(log.text, at, start - at);  // the rest of a call whose start was dropped
    size_t body = end > start && log.text[end - 1] == '\n' ? end - 1 : end;
    out.append(log.text, start, body - start);
    if (log.calls[i].returned) out += " -> " + std::to_string(log.calls[i].rc);
    out.append(log.text, body, end - body);
    at = end;
  }
  out.append(log.text, at, std::string::npos);
  return out;
}

Section *find_section(std::string_view name) {
  auto it = g_world.by_name.find(name);
  return it != g_world.by_name.end() ? &*it->second : nullptr;
}

bool starts_with(const std::string &text, const std::string &prefix) {
  return text.size() >= prefix.size() && text.compare(0, prefix.size(), prefix) == 0;
}

// Keeps the cached name lists in step with a section created or removed.
void section_created(const std::string &name) {
  for (auto &p : g_world.names_by_prefix)
    if (starts_with(name, p.first)) p.second.push_back(name);
}

void section_removed(const std::string &name) {
  for (auto &p : g_world.names_by_prefix) {
    if (!starts_with(name, p.first)) continue;
    auto it = std::find(p.second.begin(), p.second.end(), name);
    if (it != p.second.end()) p.second.erase(it);
  }
}

const char kTreePrefix[] = "tcapi ";
// The section of a saved tree that names the nodes removed before it was saved.
const char kRemovedNodes[] = "removed tree nodes";

bool is_tree_node(const std::string &name) { return name.rfind(kTreePrefix, 0) == 0; }

Section &make_section(const std::string &name) {
  if (Section *s = find_section(name)) return *s;
  if (!g_world.removed_nodes.empty() && is_tree_node(name))
    g_world.removed_nodes.erase(name.substr(sizeof kTreePrefix - 1));
  section_created(name);
  g_world.sections.push_back(Section{name, {}});
  g_world.by_name[g_world.sections.back().name] = std::prev(g_world.sections.end());
  bump();
  return g_world.sections.back();
}

// Notes a section whose entries changed, for the next restore of a snapshot.
void touched(const std::string &section) {
  if (g_snapshot.id != 0) g_snapshot.touched.insert(section);
}

void set_value(const std::string &section, const std::string &key, const std::string &value) {
  Section &s = make_section(section);
  for (auto &e : s.entries) {
    if (e.first == key) {
      // An unchanged value is not rewritten: setters that write what is already there (as
      // Java threads often do) leave every pointer handed out by get() untouched.
      if (e.second != value) {
        e.second = value;
        touched(section);
        bump();
      }
      return;
    }
  }
  s.entries.emplace_back(key, value);
  touched(section);
  bump();
}

std::string trim(const std::string &t) {
  size_t b = t.find_first_not_of(" \t\r");
  if (b == std::string::npos) return "";
  size_t e = t.find_last_not_of(" \t\r");
  return t.substr(b, e - b + 1);
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Values may be written in double quotes (to keep outer spaces) and use the escapes
// \\ \" \n \t and \xHH (any byte, e.g. texts that are not UTF-8).
bool decode_value(const std::string &raw, std::string *out) {
  std::string v = raw;
  if (v.size() >= 2 && v.front() == '"' && v.back() == '"') v = v.substr(1, v.size() - 2);
  out->clear();
  for (size_t i = 0; i < v.size(); ++i) {
    char c = v[i];
    if (c != '\\') {
      out->push_back(c);
      continue;
    }
    if (++i >= v.size()) return false;
    switch (v[i]) {
      case '\\': out->push_back('\\'); break;
      case '"': out->push_back('"'); break;
      case 'n': out->push_back('\n'); break;
      case 't': out->push_back('\t'); break;
      case 'x': {
        int h = i + 1 < v.size() ? hex_digit(v[i + 1]) : -1;
        int l = i + 2 < v.size() ? hex_digit(v[i + 2]) : -1;
        if (h < 0 || l < 0) return false;
        out->push_back(static_cast<char>(h * 16 + l));
        i += 2;
        break;
      }
      default: return false;
    }
  }
  return true;
}

std::string encode_value(const std::string &v) {
  std::string out = "\"";
  for (unsigned char c : v) {
    if (c == '\\' || c == '"') {
      out.push_back('\\');
      out.push_back(static_cast<char>(c));
    } else if (c < 0x20 || c >= 0x7F) {
      char hex[8];
      snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out.push_back(static_cast<char>(c));
    }
  }
  return out + "\"";
}

// A state file's [results] section programs results, as sim_program_result does: "fn = rc"
// (a captured gateway records so the functions that failed on it). False for a value that is
// not a number.
bool program_result_line(const std::string &fn, const std::string &value) {
  char *end = nullptr;
  errno = 0;
  long rc = strtol(value.c_str(), &end, 0);
  if (fn.empty() || value.empty() || *end != '\0' || errno != 0 || rc < INT_MIN || rc > INT_MAX)
    return false;
  g_world.results[fn] = static_cast<int>(rc);
  g_result_count.store(static_cast<int>(g_world.results.size()));
  return true;
}

// Loads a state file on top of the state, line by line whatever their length (a
// configuration-tree value of 4095 bytes takes up to four times as many once escaped). With
// `replace`, a section the file holds replaces the section of that name (its values are those
// of the file alone); else values are added. A line holding a NUL byte is malformed: names are
// C texts, and a value takes any byte through \xHH.
int load_file(const std::string &path, bool replace = false) {
  FILE *f = fopen(path.c_str(), "r");
  if (f == nullptr) return -1;
  std::string section;
  std::set<std::string> replaced;
  // Lines of any length: a tree value alone may hold 4095 bytes, each written as \xHH.
  char *line = nullptr;
  size_t line_cap = 0;
  ssize_t got;
  int rc = 0, lineno = 0;
  while ((got = getline(&line, &line_cap, f)) != -1) {
    ++lineno;
    std::string raw(line, static_cast<size_t>(got));
    if (raw.find('\0') != std::string::npos) {
      fprintf(stderr, "gateway sim: %s:%d: a NUL byte in the line\n", path.c_str(), lineno);
      rc = -1;
      continue;
    }
    std::string t = trim(raw);
    if (!t.empty() && t.back() == '\n') t.pop_back();
    t = trim(t);
    if (t.empty() || t[0] == '#' || t[0] == ';') continue;
    if (t[0] == '[') {
      if (t.back() != ']') {
        fprintf(stderr, "gateway sim: %s:%d: bad section line\n", path.c_str(), lineno);
        rc = -1;
        continue;
      }
      section = trim(t.substr(1, t.size() - 2));
      Section &s = make_section(section);
      if (replace && replaced.insert(section).second && !s.entries.empty()) {
        s.entries.clear();
        touched(section);
        bump();
      }
      continue;
    }
    size_t eq = t.find('=');
    std::string value;
    if (eq == std::string::npos || section.empty() || !decode_value(trim(t.substr(eq + 1)), &value)) {
      fprintf(stderr, "gateway sim: %s:%d: expected key = value in a section\n", path.c_str(),
              lineno);
      rc = -1;
      continue;
    }
    if (section == kResultsSection) {
      if (!program_result_line(trim(t.substr(0, eq)), value)) {
        fprintf(stderr, "gateway sim: %s:%d: expected function = result code\n", path.c_str(),
                lineno);
        rc = -1;
      }
      continue;
    }
    set_value(section, trim(t.substr(0, eq)), value);
  }
  free(line);
  fclose(f);
  return rc;
}

void reset_locked();

// Whether `dir` is a captured gateway (bundle_sc-capture writes capture.ini), and whether the
// capture finished: its [capture] section says "complete = 1" only once every file is written.
bool is_capture(const std::string &dir) {
  struct stat st;
  return stat((dir + "/" + kCaptureFile).c_str(), &st) == 0;
}

bool capture_complete(const std::string &dir) {
  FILE *f = fopen((dir + "/" + kCaptureFile).c_str(), "r");
  if (f == nullptr) return false;
  char *line = nullptr;
  size_t line_cap = 0;
  std::string section;
  bool complete = false;
  while (getline(&line, &line_cap, f) != -1) {
    std::string t = trim(line);
    if (!t.empty() && t.back() == '\n') t.pop_back();
    t = trim(t);
    if (!t.empty() && t[0] == '[' && t.back() == ']') {
      section = trim(t.substr(1, t.size() - 2));
      continue;
    }
    size_t eq = t.find('=');
    std::string value;
    if (section == "capture" && eq != std::string::npos && trim(t.substr(0, eq)) == "complete" &&
        decode_value(trim(t.substr(eq + 1)), &value))
      complete = value == "1";
  }
  free(line);
  fclose(f);
  return complete;
}

int load_path(const std::string &path) {
  struct stat st;
  if (stat(path.c_str(), &st) != 0) return -1;
  if (!S_ISDIR(st.st_mode)) return load_file(path);
  if (is_capture(path)) {
    // A capture is a whole gateway: it replaces the state rather than adding to it (where the
    // tree is saved stays as it was). One that did not finish is refused, state untouched.
    if (!capture_complete(path)) {
      fprintf(stderr,
              "gateway sim: %s: an incomplete capture (bundle_sc-capture stopped before it "
              "finished): not loaded; capture the gateway again\n",
              path.c_str());
      return -1;
    }
    std::string save_path = g_world.save_path;
    reset_locked();
    g_world.save_path = save_path;
  }
  DIR *d = opendir(path.c_str());
  if (d == nullptr) return -1;
  std::vector<std::string> names;
  errno = 0;
  while (dirent *e = readdir(d)) {
    std::string n = e->d_name;
    if (n.size() > 4 && n.compare(n.size() - 4, 4, ".ini") == 0) names.push_back(n);
  }
  bool failed = errno != 0;
  closedir(d);
  if (failed) return -1;
  std::sort(names.begin(), names.end());
  int rc = 0;
  for (auto &n : names)
    if (load_file(path + "/" + n) != 0) rc = -1;
  return rc;
}

// The directory this library was loaded from, resolved ("" when unknown).
std::string loaded_from() {
  Dl_info info;
  if (dladdr(reinterpret_cast<void *>(&loaded_from), &info) == 0 || info.dli_fname == nullptr)
    return "";
  char resolved[PATH_MAX];
  if (realpath(info.dli_fname, resolved) == nullptr) return "";
  std::string path = resolved;
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

// The installed state directory when this library is an installed one, "" otherwise.
std::string installed_state() {
  if (*SIM_INSTALLED_STATE == '\0') return "";
  std::string dir = loaded_from();
  if (dir.empty()) return "";
  char build[PATH_MAX];
  if (*SIM_BUILD_LIBDIR != '\0' && realpath(SIM_BUILD_LIBDIR, build) != nullptr && dir == build)
    return "";
  std::string state = dir + "/" + SIM_INSTALLED_STATE;
  struct stat st;
  if (stat(state.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) return "";
  return state;
}

// Empties the call log (its bound stays).
void clear_log_locked() {
  g_world.log.text.clear();
  g_world.log.counts.clear();
  g_world.log.calls.clear();
  g_world.log.dropped = 0;
}

void reset_locked() {
  // The log's bound is a setting of the tool, not state: it survives the reset.
  size_t limit = g_world.log.limit;
  g_world = World();
  g_world.log.limit = limit;
  g_snapshot = Snapshot();
  g_world.initialized = true;
  g_initialized.store(true);
  g_result_count.store(0);
  g_hook_count.store(0);
  bump();
}

// Puts the snapshot's state back. After a section was removed, every section is copied back
// and the index rebuilt; otherwise the sections created since are dropped and the entries of
// the sections that changed are copied back, nothing else.
void restore_sections_locked() {
  Snapshot &snap = g_snapshot;
  if (snap.removed || g_world.sections.size() < snap.sections.size()) {
    g_world.sections = snap.sections;
    g_world.by_name.clear();
    for (auto it = g_world.sections.begin(); it != g_world.sections.end(); ++it)
      g_world.by_name[it->name] = it;
    g_world.names_by_prefix.clear();
  } else {
    auto it = std::next(g_world.sections.begin(), static_cast<long>(snap.sections.size()));
    while (it != g_world.sections.end()) {
      section_removed(it->name);
      g_world.by_name.erase(it->name);
      it = g_world.sections.erase(it);
    }
    for (const std::string &name : snap.touched) {
      auto kept = snap.by_name.find(name);
      Section *now = find_section(name);
      if (kept != snap.by_name.end() && now != nullptr) now->entries = kept->second->entries;
    }
  }
  if (g_world.removed_nodes != snap.removed_nodes) g_world.removed_nodes = snap.removed_nodes;
  snap.touched.clear();
  snap.removed = false;
  bump();
}

// A tree saved by tcapi_save, over the state just loaded: the nodes it holds replace those of
// the same name, the nodes it names as removed go, every other node stays as loaded (so
// nodes a newer default state brings are not hidden by an older saved tree).
void load_saved_tree(const std::string &path) {
  load_file(path, true);
  Section *removed = find_section(kRemovedNodes);
  if (removed == nullptr) return;
  std::vector<std::string> nodes;
  for (auto &e : removed->entries) nodes.push_back(e.first);
  sim::remove_section(kRemovedNodes);
  for (auto &n : nodes) sim::remove_section((kTreePrefix + n).c_str());
}

int load_default_locked(bool saved_tree = true) {
  reset_locked();
  const char *state = getenv("BRELO_SIM_STATE");
  std::string installed = installed_state();
  int rc = load_path(state != nullptr && *state ? state
                     : !installed.empty()         ? installed
                                                  : std::string(SIM_DEFAULT_STATE));
  const char *save = getenv("BRELO_SIM_SAVE");
  g_world.save_path = save != nullptr ? save : "";
  if (saved_tree && !g_world.save_path.empty()) {
    FILE *f = fopen(g_world.save_path.c_str(), "r");
    if (f != nullptr) {
      fclose(f);
      load_saved_tree(g_world.save_path);
    }
  }
  return rc;
}

void ensure_init() {
  if (!g_world.initialized) load_default_locked();
}

}  // namespace

namespace sim {

void lock() { g_mutex.lock(); }
void unlock() { g_mutex.unlock(); }

unsigned long generation() { return g_generation.load(std::memory_order_relaxed); }

bool logging() { return g_log_on.load(std::memory_order_relaxed); }

void call(const char *fn, const char *argfmt, ...) {
  bool log_on = logging();
  if (!log_on && g_hook_count.load() == 0) {
    // Nobody reads the log and nothing is programmed: no formatting, no lookup.
    if (!g_initialized.load()) {
      std::lock_guard<std::recursive_mutex> g(g_mutex);
      ensure_init();
    }
    return;
  }
  char args[2048];
  if (log_on) {
    va_list ap;
    va_start(ap, argfmt);
    vsnprintf(args, sizeof args, argfmt, ap);
    va_end(ap);
  }
  Hook hook{nullptr, nullptr};
  {
    std::lock_guard<std::recursive_mutex> g(g_mutex);
    ensure_init();
    if (log_on) {
      t_pending[t_next_pending++ % kPendingCalls] = PendingCall{append_log(fn, args), fn};
    }
    if (!g_world.hooks.empty()) {
      auto it = g_world.hooks.find(fn);
      if (it != g_world.hooks.end()) hook = it->second;
    }
  }
  if (hook.fn == nullptr) return;
  // The hook may ask what the call was given (sim_hook_arguments).
  if (!log_on) {
    va_list ap;
    va_start(ap, argfmt);
    vsnprintf(args, sizeof args, argfmt, ap);
    va_end(ap);
  }
  const char *outer = t_hook_arguments;
  t_hook_arguments = args;
  hook.fn(fn, hook.ctx);
  t_hook_arguments = outer;
}

int returns(const char *fn, int rc) {
  if (!logging()) return rc;
  // This thread's latest logged call of fn.
  for (unsigned i = 1; i <= kPendingCalls; ++i) {
    const PendingCall &p = t_pending[(t_next_pending - i) % kPendingCalls];
    if (p.fn == nullptr || strcmp(p.fn, fn) != 0) continue;
    std::lock_guard<std::recursive_mutex> g(g_mutex);
    std::deque<LoggedCall> &calls = g_world.log.calls;
    if (!calls.empty() && p.serial >= calls.front().serial && p.serial - calls.front().serial < calls.size()) {
      LoggedCall &call = calls[p.serial - calls.front().serial];
      call.rc = rc;
      call.returned = true;
    }
    break;
  }
  return rc;
}

int result(const char *fn, int usual) {
  if (g_result_count.load() == 0) return returns(fn, usual);
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  auto it = g_world.results.find(fn);
  return returns(fn, it != g_world.results.end() ? it->second : usual);
}

bool has_result(const char *fn) {
  if (g_result_count.load() == 0) return false;
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  return g_world.results.count(fn) != 0;
}

const char *get(const char *section, const char *key) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  Section *s = find_section(section);
  if (s == nullptr) return nullptr;
  size_t n = strlen(key);
  for (auto &e : s->entries)
    if (e.first.size() == n && memcmp(e.first.data(), key, n) == 0) return e.second.c_str();
  return nullptr;
}

std::string get_str(const char *section, const char *key, const char *dflt) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  const char *v = get(section, key);
  return v != nullptr ? v : dflt;
}

long long get_int(const char *section, const char *key, long long dflt) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  const char *v = get(section, key);
  if (v == nullptr || *v == '\0') return dflt;
  return strtoll(v, nullptr, 0);
}

void set(const char *section, const char *key, const std::string &value) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  set_value(section, key, value);
}

const std::vector<std::string> &section_names(const char *prefix) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  // The names under a prefix are collected at its first use, then kept up to date.
  auto found = g_world.names_by_prefix.find(prefix);
  if (found != g_world.names_by_prefix.end()) return found->second;
  std::vector<std::string> &names = g_world.names_by_prefix[prefix];
  std::string p = prefix;
  for (auto &s : g_world.sections)
    if (starts_with(s.name, p)) names.push_back(s.name);
  return names;
}

std::vector<std::string> sections(const char *prefix) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  return section_names(prefix);
}

size_t entry_count(const char *section) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  Section *s = find_section(section);
  return s != nullptr ? s->entries.size() : 0;
}

std::vector<std::pair<std::string, std::string>> entries(const char *section) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  Section *s = find_section(section);
  std::vector<std::pair<std::string, std::string>> out;
  if (s != nullptr) out.assign(s->entries.begin(), s->entries.end());
  return out;
}

void remove_section(const char *section) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  // Found through the index: removing one section does not walk the others.
  auto it = g_world.by_name.find(section);
  if (it == g_world.by_name.end()) return;
  std::list<Section>::iterator doomed = it->second;
  g_snapshot.removed = true;
  if (is_tree_node(doomed->name)) g_world.removed_nodes.insert(doomed->name.substr(sizeof kTreePrefix - 1));
  section_removed(doomed->name);
  g_world.by_name.erase(it);
  g_world.sections.erase(doomed);
  bump();
}

void out_text(char *buf, size_t cap, const char *section, const char *key) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  const char *v = get(section, key);
  if (v == nullptr || cap == 0) return;
  size_t n = strlen(v);
  if (n > cap - 1) n = cap - 1;
  memcpy(buf, v, n);
  buf[n] = '\0';
}

// The configuration tree lives in the state as sections "tcapi <node>"; tcapi_save writes
// them out in the state-file format.
SIM_EXPORT int save_tree() {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  if (g_world.save_path.empty()) return 0;
  FILE *f = fopen(g_world.save_path.c_str(), "w");
  if (f == nullptr) return -1;
  fprintf(f,
          "# Configuration tree saved by the gateway simulator's tcapi_save. Read back over the\n"
          "# default state, its nodes replace the nodes of the same name and the nodes of\n"
          "# [%s] are removed; the other nodes stay as the default state has them.\n",
          kRemovedNodes);
  for (auto &s : g_world.sections) {
    if (!is_tree_node(s.name)) continue;
    fprintf(f, "\n[%s]\n", s.name.c_str());
    for (auto &e : s.entries) fprintf(f, "%s = %s\n", e.first.c_str(), encode_value(e.second).c_str());
  }
  if (!g_world.removed_nodes.empty()) {
    fprintf(f, "\n[%s]\n", kRemovedNodes);
    for (auto &n : g_world.removed_nodes) fprintf(f, "%s = removed\n", n.c_str());
  }
  fclose(f);
  return 0;
}

}  // namespace sim

extern "C" {

SIM_EXPORT void sim_reset(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  reset_locked();
}

SIM_EXPORT int sim_load(const char *path) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  return load_path(path);
}

SIM_EXPORT int sim_load_default(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  return load_default_locked();
}

SIM_EXPORT unsigned long sim_snapshot(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  g_snapshot = Snapshot();
  g_snapshot.id = ++g_last_snapshot_id;
  g_snapshot.sections = g_world.sections;
  for (const Section &section : g_snapshot.sections) g_snapshot.by_name[section.name] = &section;
  g_snapshot.save_path = g_world.save_path;
  g_snapshot.removed_nodes = g_world.removed_nodes;
  g_snapshot.results = g_world.results;
  g_snapshot.clean_generation = g_generation.load();
  return g_snapshot.id;
}

SIM_EXPORT int sim_restore(unsigned long id) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  if (id == 0 || id != g_snapshot.id) return -1;
  if (g_generation.load() != g_snapshot.clean_generation) {
    restore_sections_locked();
    g_snapshot.clean_generation = g_generation.load();
  }
  g_world.save_path = g_snapshot.save_path;
  // The results the state programmed ([results] of a captured gateway), no others.
  if (g_world.results != g_snapshot.results) g_world.results = g_snapshot.results;
  g_world.hooks.clear();
  g_result_count.store(static_cast<int>(g_world.results.size()));
  g_hook_count.store(0);
  clear_log_locked();
  g_world.log_copy.clear();
  return 0;
}

SIM_EXPORT int sim_load_fresh(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  return load_default_locked(false);
}

SIM_EXPORT void sim_set(const char *section, const char *key, const char *value) {
  sim::set(section, key, value);
}

SIM_EXPORT void sim_unset(const char *section, const char *key) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  if (key == nullptr) {
    sim::remove_section(section);
    return;
  }
  Section *s = find_section(section);
  if (s == nullptr) return;
  size_t before = s->entries.size();
  s->entries.remove_if([&](const std::pair<std::string, std::string> &e) { return e.first == key; });
  if (s->entries.size() != before) {
    touched(s->name);
    bump();
  }
}

SIM_EXPORT const char *sim_get(const char *section, const char *key) { return sim::get(section, key); }

SIM_EXPORT void sim_program_result(const char *fn, int rc) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  g_world.results[fn] = rc;
  g_result_count.store(static_cast<int>(g_world.results.size()));
}

SIM_EXPORT void sim_clear_result(const char *fn) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  g_world.results.erase(fn);
  g_result_count.store(static_cast<int>(g_world.results.size()));
}

SIM_EXPORT int sim_platform_function(const char *fn) {
  int opened = 0;
  for (const char *soname : {"libbrelo.so.1", "libtcapi.so.1"}) {
    void *lib = dlopen(soname, RTLD_LAZY | RTLD_NOLOAD);
    if (lib == nullptr) lib = dlopen(soname, RTLD_LAZY);
    if (lib == nullptr) continue;
    ++opened;
    // Defined by the library itself, not by one it depends on (the simulator's own control).
    void *sym = dlsym(lib, fn);
    Dl_info where;
    struct link_map *map = nullptr;
    bool found = sym != nullptr && dladdr(sym, &where) != 0 && dlinfo(lib, RTLD_DI_LINKMAP, &map) == 0 &&
                 map != nullptr && where.dli_fname != nullptr && strcmp(where.dli_fname, map->l_name) == 0;
    dlclose(lib);
    if (found) return 1;
  }
  return opened == 0 ? -1 : 0;
}

SIM_EXPORT int sim_section_exists(const char *section) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  return find_section(section) != nullptr ? 1 : 0;
}

SIM_EXPORT void sim_program_hook(const char *fn, sim_hook_fn hook, void *ctx) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  if (hook == nullptr)
    g_world.hooks.erase(fn);
  else
    g_world.hooks[fn] = Hook{hook, ctx};
  g_hook_count.store(static_cast<int>(g_world.hooks.size()));
}

SIM_EXPORT const char *sim_hook_arguments(void) { return t_hook_arguments; }

SIM_EXPORT const char *sim_log(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  g_world.log_copy = g_world.log.text;
  return g_world.log_copy.c_str();
}

SIM_EXPORT const char *sim_log_results(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  g_world.log_copy = log_with_results(g_world.log);
  return g_world.log_copy.c_str();
}

SIM_EXPORT void sim_clear_log(void) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  clear_log_locked();
}

SIM_EXPORT int sim_log_count(const char *fn) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  auto it = g_world.log.counts.find(fn);
  return it != g_world.log.counts.end() ? it->second : 0;
}

SIM_EXPORT void sim_set_log(int on) { g_log_on.store(on != 0); }

SIM_EXPORT void sim_set_log_limit(unsigned long bytes) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  g_world.log.limit = bytes;
}

SIM_EXPORT void sim_set_save_path(const char *path) {
  std::lock_guard<std::recursive_mutex> g(g_mutex);
  ensure_init();
  g_world.save_path = path != nullptr ? path : "";
}

}  // extern "C"
