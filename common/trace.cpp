#include "common/trace.h"

#include <link.h>
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <unistd.h>

namespace bundle {

bool flag_file_exists(const char *path) { return access(path, F_OK) == 0; }

namespace {

// The exported function of one loaded object that holds an address.
struct SymbolSearch {
  uintptr_t address;
  const char *name;
};

// The dynamic table's addresses are relocated in place on some targets and left as linked on
// others (MIPS keeps its dynamic section read-only).
uintptr_t dynamic_address(const dl_phdr_info *info, uintptr_t value) {
  return value < info->dlpi_addr ? info->dlpi_addr + value : value;
}

int search_object(dl_phdr_info *info, size_t, void *data) {
  SymbolSearch *search = static_cast<SymbolSearch *>(data);
  const ElfW(Dyn) *dynamic = nullptr;
  bool inside = false;
  for (ElfW(Half) i = 0; i < info->dlpi_phnum; ++i) {
    const ElfW(Phdr) &ph = info->dlpi_phdr[i];
    uintptr_t start = info->dlpi_addr + ph.p_vaddr;
    if (ph.p_type == PT_LOAD && search->address >= start && search->address - start < ph.p_memsz) {
      inside = true;
    } else if (ph.p_type == PT_DYNAMIC) {
      dynamic = reinterpret_cast<const ElfW(Dyn) *>(start);
    }
  }
  if (!inside) return 0;  // another object: go on
  if (dynamic == nullptr) return 1;
  const ElfW(Sym) *symbols = nullptr;
  const char *names = nullptr;
  const ElfW(Word) *hash = nullptr;  // the library is always linked with a SysV hash table
  for (const ElfW(Dyn) *d = dynamic; d->d_tag != DT_NULL; ++d) {
    if (d->d_tag == DT_SYMTAB) {
      symbols = reinterpret_cast<const ElfW(Sym) *>(dynamic_address(info, d->d_un.d_ptr));
    } else if (d->d_tag == DT_STRTAB) {
      names = reinterpret_cast<const char *>(dynamic_address(info, d->d_un.d_ptr));
    } else if (d->d_tag == DT_HASH) {
      hash = reinterpret_cast<const ElfW(Word) *>(dynamic_address(info, d->d_un.d_ptr));
    }
  }
  if (symbols == nullptr || names == nullptr || hash == nullptr) return 1;
  ElfW(Word) count = hash[1];  // nchain: one entry per dynamic symbol
  for (ElfW(Word) i = 0; i < count; ++i) {
    const ElfW(Sym) &sym = symbols[i];
    if ((sym.st_info & 0xf) != STT_FUNC || sym.st_shndx == SHN_UNDEF) continue;
    uintptr_t start = info->dlpi_addr + sym.st_value;
    if (search->address >= start && search->address - start < sym.st_size) {
      search->name = names + sym.st_name;
      break;
    }
  }
  return 1;
}

}  // namespace

const char *native_name_at(const void *address) {
  SymbolSearch search{reinterpret_cast<uintptr_t>(address), nullptr};
  dl_iterate_phdr(search_object, &search);
  return search.name;
}

const void *caller_address() { return __builtin_return_address(0); }

namespace {

// One trace line under `fn` (a name as such, or the exported native holding an address):
// "<name>:<line>:", the name again when `named`, and the formatted message, flushed at once.
// Nothing when the flag file is absent.
void trace_vline(TraceName fn, int line, const char *fmt, va_list ap, bool named = false) {
  if (!flag_file_exists(BUNDLE_TRACE_FLAG)) return;
  const char *name = fn.where != nullptr ? native_name_at(fn.where) : fn.name;
  if (name == nullptr) name = "?";
  printf("%s:%d:", name, line);
  if (named) fputs(name, stdout);
  vprintf(fmt, ap);
  fflush(stdout);
}

}  // namespace

void trace_printf(const char *fn, int line, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  trace_vline(TraceName(fn), line, fmt, ap);
  va_end(ap);
}

void trace_printf(TraceName fn, int line, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  trace_vline(fn, line, fmt, ap);
  va_end(ap);
}

void trace_named(TraceName fn, int line, const char *rest, ...) {
  va_list ap;
  va_start(ap, rest);
  trace_vline(fn, line, rest, ap, true);
  va_end(ap);
}

// The text and a line feed, as puts() writes them.
void trace_puts(const char *fn, int line, const char *text) {
  trace_printf(TraceName(fn), line, "%s\n", text);
}

void trace_puts(TraceName fn, int line, const char *text) { trace_printf(fn, line, "%s\n", text); }

void trace_native_printf(int line, const char *fmt, ...) {
  va_list ap;
  va_start(ap, fmt);
  trace_vline(TraceName::at(__builtin_return_address(0)), line, fmt, ap);
  va_end(ap);
}

void trace_closing(TraceName native, int line, int kind, const char *text, int code) {
  if (!flag_file_exists(BUNDLE_TRACE_FLAG)) return;
  const char *name = native.where != nullptr ? native_name_at(native.where) : native.name;
  if (name == nullptr) name = "?";
  printf("%s:%d:%s", name, line, method_of(name));
  if (kind == kCodeLine) {
    printf(kClosingCode, code);
  } else {
    printf(kClosingJson, text);
  }
  fflush(stdout);
}

void trace_native_closing(int line, int kind, ...) {
  const void *caller = __builtin_return_address(0);
  va_list ap;
  va_start(ap, kind);
  if (kind == kCodeLine) {
    trace_closing(TraceName::at(caller), line, kind, nullptr, va_arg(ap, int));
  } else {
    trace_closing(TraceName::at(caller), line, kind, va_arg(ap, const char *), 0);
  }
  va_end(ap);
}

void trace_native_named(int line, const char *rest, ...) {
  va_list ap;
  va_start(ap, rest);
  trace_vline(TraceName::at(__builtin_return_address(0)), line, rest, ap, true);
  va_end(ap);
}

void trace_native_puts(int line, const char *text) {
  trace_printf(TraceName::at(__builtin_return_address(0)), line, "%s\n", text);
}

}  // namespace bundle
