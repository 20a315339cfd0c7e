#include "tests/test_support.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include "sim/host/flag_files.h"

namespace testsupport {

std::string gateway_file(const char *path) {
  char buf[4096];
  return sim_gateway_file(path, buf, sizeof buf);
}

static bool exists(const std::string &path) { return access(path.c_str(), F_OK) == 0; }

FlagFile::FlagFile(const char *path, bool present)
    : path_(gateway_file(path)), existed_(exists(path_)) {
  set(present);
}

FlagFile::~FlagFile() { set(existed_); }

void FlagFile::set(bool present) {
  if (present) {
    FILE *f = fopen(path_.c_str(), "a");
    if (f != nullptr) fclose(f);
  } else {
    unlink(path_.c_str());
  }
}

CaptureStdout::CaptureStdout() {
  fflush(stdout);
  file_ = tmpfile();
  saved_fd_ = dup(1);
  dup2(fileno(file_), 1);
}

CaptureStdout::~CaptureStdout() { finish(); }

std::string CaptureStdout::finish() {
  if (done_) return text_;
  done_ = true;
  fflush(stdout);
  dup2(saved_fd_, 1);
  close(saved_fd_);
  rewind(file_);
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, file_)) > 0) text_.append(buf, n);
  fclose(file_);
  return text_;
}

std::string mask_line_numbers(const std::string &trace) {
  std::string out;
  size_t pos = 0;
  while (pos < trace.size()) {
    size_t end = trace.find('\n', pos);
    std::string line = trace.substr(pos, end == std::string::npos ? std::string::npos : end - pos + 1);
    size_t c1 = line.find(':');
    size_t c2 = c1 == std::string::npos ? std::string::npos : line.find(':', c1 + 1);
    if (c2 != std::string::npos && c2 > c1 + 1 &&
        line.find_first_not_of("0123456789", c1 + 1) == c2) {
      line = line.substr(0, c1 + 1) + "N" + line.substr(c2);
    }
    out += line;
    if (end == std::string::npos) break;
    pos = end + 1;
  }
  return out;
}

void BridgeTest::SetUp() {
  sim_reset();
  trace_flag_.reset(new FlagFile(TRACE_FLAG_PATH, false));
  jvm_.reset(new fakejni::FakeJvm());
}

void BridgeTest::TearDown() {
  EXPECT_EQ(jvm_->outstanding(), expected_outstanding_) << "Java texts left borrowed";
  EXPECT_EQ(jvm_->pinned(), 0) << "Java byte arrays left pinned";
  for (auto &e : jvm_->errors()) ADD_FAILURE() << "JNI misuse: " << e;
  jvm_.reset();
  trace_flag_.reset();
}

}  // namespace testsupport
