// Working buffers too large for a native's stack frame.
//
// The VM keeps only a small reserve of stack for native code, and a large frame near the end
// of a Java thread's stack kills the VM without a trace; no native or helper frame of the
// bridge exceeds 16 KiB. A native whose buffers are larger (a 64 KiB host list, the 32 KiB MAC
// list buffer) gathers them in one struct and takes it from the heap once per call:
//
//     struct Work { bundle::MacList macs; bundle::Reply<0x10000> reply; };
//     bundle::HeapObject<Work> work;
//     if (!work.ok()) return <the native's failure reply>;
//
// and the struct is given back on every path when the HeapObject goes out of scope. The
// memory is not zeroed: each member's constructor prepares what is read of it (the MAC list
// is zeroed, as the platform is handed it; a reply only needs its terminator).
#ifndef BUNDLE_COMMON_HEAP_OBJECT_H
#define BUNDLE_COMMON_HEAP_OBJECT_H

#include <stdlib.h>

#include <new>

namespace bundle {

template <typename T>
class HeapObject {
 public:
  // A T on the heap, its constructor run (a T without one is left as malloc gives it); ok()
  // is false when it could not be allocated.
  HeapObject() : object_(static_cast<T *>(malloc(sizeof(T)))) {
    if (object_ != nullptr) new (object_) T;
  }
  HeapObject(const HeapObject &) = delete;
  HeapObject &operator=(const HeapObject &) = delete;
  ~HeapObject() {
    if (object_ == nullptr) return;
    object_->~T();
    free(object_);
  }

  bool ok() const { return object_ != nullptr; }
  T *get() const { return object_; }
  T *operator->() const { return object_; }
  T &operator*() const { return *object_; }

 private:
  T *object_;
};

}  // namespace bundle

#endif
