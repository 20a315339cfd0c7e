// A growing array of plain records on the heap, for the capture tool (no C++ runtime). An
// allocation that fails marks the array as failed; adding then does nothing.
#ifndef BUNDLE_CAPTURE_ARRAY_H
#define BUNDLE_CAPTURE_ARRAY_H

#include <stdlib.h>
#include <string.h>

namespace capture {

template <typename T>
class Array {
 public:
  Array() = default;
  ~Array() { free(items_); }
  Array(const Array &) = delete;
  Array &operator=(const Array &) = delete;

  // A new zeroed element at the end (NULL when memory ran out).
  T *add() {
    if (failed_) return nullptr;
    if (size_ == cap_) {
      size_t cap = cap_ != 0 ? cap_ * 2 : 16;
      T *grown = static_cast<T *>(realloc(items_, cap * sizeof(T)));
      if (grown == nullptr) {
        failed_ = true;
        return nullptr;
      }
      items_ = grown;
      cap_ = cap;
    }
    T *item = &items_[size_++];
    memset(static_cast<void *>(item), 0, sizeof(T));
    return item;
  }
  void push(const T &v) {
    if (T *item = add()) *item = v;
  }

  T &operator[](size_t i) { return items_[i]; }
  const T &operator[](size_t i) const { return items_[i]; }
  size_t size() const { return size_; }
  bool failed() const { return failed_; }

 private:
  T *items_ = nullptr;
  size_t size_ = 0;
  size_t cap_ = 0;
  bool failed_ = false;
};

}  // namespace capture

#endif
