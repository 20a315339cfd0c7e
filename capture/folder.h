// The folder a capture is written to: made under a temporary name beside the destination
// ("<destination>.partial-XXXXXX"), filled file by file, and renamed into place once complete.
#ifndef BUNDLE_CAPTURE_FOLDER_H
#define BUNDLE_CAPTURE_FOLDER_H

#include <limits.h>
#include <stdio.h>

#include "capture/state_file.h"

namespace capture {

class Folder {
 public:
  explicit Folder(FILE *messages) : messages_(messages) {}

  // Checks the destination (absent, or an empty folder) and makes the temporary folder.
  bool create(const char *destination);
  const char *partial() const { return partial_; }
  const char *destination() const { return destination_; }
  // Writes one file of the folder (through a temporary file and a rename).
  bool write(const StateFile &file);
  // Renames the temporary folder to the destination.
  bool finish();

 private:
  bool fail(const char *what, const char *path, int error);
  FILE *messages_;
  char destination_[PATH_MAX] = {};
  char partial_[PATH_MAX] = {};
};

}  // namespace capture

#endif
