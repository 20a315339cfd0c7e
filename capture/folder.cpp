#include "capture/folder.h"

#include <dirent.h>
#include <errno.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

namespace capture {
namespace {

// Whether `path` is a folder holding nothing.
bool empty_folder(const char *path) {
  DIR *d = opendir(path);
  if (d == nullptr) return false;
  bool empty = true;
  while (dirent *e = readdir(d))
    if (strcmp(e->d_name, ".") != 0 && strcmp(e->d_name, "..") != 0) empty = false;
  closedir(d);
  return empty;
}

}  // namespace

bool Folder::fail(const char *what, const char *path, int error) {
  fprintf(messages_, "bundle_sc-capture: %s %s: %s\n", what, path, strerror(error));
  return false;
}

bool Folder::create(const char *destination) {
  size_t n = strlen(destination);
  while (n > 1 && destination[n - 1] == '/') --n;  // "out/" is the folder "out"
  if (n == 0 || n + sizeof ".partial-XXXXXX" > sizeof destination_) {
    fprintf(messages_, "bundle_sc-capture: not a usable folder name: \"%s\"\n", destination);
    return false;
  }
  memcpy(destination_, destination, n);
  destination_[n] = '\0';
  struct stat st;
  if (stat(destination_, &st) == 0 && !(S_ISDIR(st.st_mode) && empty_folder(destination_))) {
    fprintf(messages_,
            "bundle_sc-capture: %s already exists: give a new folder (or an empty one)\n",
            destination_);
    return false;
  }
  memcpy(partial_, destination_, n);
  memcpy(partial_ + n, ".partial-XXXXXX", sizeof ".partial-XXXXXX");
  if (mkdtemp(partial_) == nullptr) {
    int error = errno;
    char shown[2 * PATH_MAX + 32];
    snprintf(shown, sizeof shown, "%s.partial-XXXXXX (for %s)", destination_, destination_);
    partial_[0] = '\0';
    return fail("cannot create the folder", shown, error);
  }
  return true;
}

bool Folder::write(const StateFile &file) {
  if (file.failed()) {
    fprintf(messages_, "bundle_sc-capture: out of memory composing %s\n", file.name());
    return false;
  }
  char path[PATH_MAX + 256], temporary[PATH_MAX + 256];
  snprintf(path, sizeof path, "%s/%s", partial_, file.name());
  snprintf(temporary, sizeof temporary, "%s/.%s.tmp", partial_, file.name());
  FILE *out = fopen(temporary, "w");
  if (out == nullptr) return fail("cannot write", temporary, errno);
  const Text &text = file.content();
  bool ok = fwrite(text.data(), 1, text.size(), out) == text.size();
  int error = errno;
  if (fclose(out) != 0 && ok) {
    ok = false;
    error = errno;
  }
  if (!ok) {
    unlink(temporary);
    return fail("cannot write", temporary, error);
  }
  if (rename(temporary, path) != 0) return fail("cannot write", path, errno);
  return true;
}

bool Folder::finish() {
  if (rename(partial_, destination_) != 0) {
    int error = errno;
    fprintf(messages_, "bundle_sc-capture: cannot rename %s to %s: %s (the capture is complete "
            "and stays under the first name)\n", partial_, destination_, strerror(error));
    return false;
  }
  return true;
}

}  // namespace capture
