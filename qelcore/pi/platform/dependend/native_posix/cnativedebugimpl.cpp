#include "qelcore/pi/platform/cnativedebugimpl.h"

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <unistd.h>
#include <unwind.h>
#include <vector>

#include "qelcore/pi/platform/cfunctiontable.h"

namespace qpi {

namespace {

struct cUnwindState {
  std::uintptr_t* frames;
  unsigned int max;
  unsigned int skip;
  unsigned int count;
};

_Unwind_Reason_Code collectFrame(struct _Unwind_Context* context, void* arg) {
  cUnwindState* state = static_cast<cUnwindState*>(arg);
  std::uintptr_t ip = _Unwind_GetIP(context);
  if (ip == 0) return _URC_END_OF_STACK;
  if (state->skip > 0) {
    --state->skip;
    return _URC_NO_REASON;
  }
  if (state->count >= state->max) return _URC_END_OF_STACK;
  state->frames[state->count++] = ip;
  return _URC_NO_REASON;
}

bool readAt(int fd, void* to, std::size_t size, std::uint64_t at) {
  char* p = static_cast<char*>(to);
  while (size > 0) {
    const ssize_t n = ::pread(fd, p, size, static_cast<off_t>(at));
    if (n <= 0) return false;
    p += n;
    at += static_cast<std::uint64_t>(n);
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

// The functions of an ELF file from its symbol table, which unlike the
// dynamic symbols that dladdr() sees also names the functions of a program
// and the hidden and file-local ones of shared objects (unless stripped).
void readFunctions(int fd, cFunctionTable& table) {
  ElfW(Ehdr) header;
  if (!readAt(fd, &header, sizeof header, 0) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 ||
      header.e_shentsize != sizeof(ElfW(Shdr)) || header.e_shnum == 0)
    return;
  std::vector<ElfW(Shdr)> sections(header.e_shnum);
  if (!readAt(fd, sections.data(), sections.size() * sizeof(ElfW(Shdr)), header.e_shoff)) return;
  // The full symbol table where there is one, else the dynamic one.
  const ElfW(Shdr)* symbols = nullptr;
  for (const ElfW(Shdr) & s : sections)
    if (s.sh_type == SHT_SYMTAB || (s.sh_type == SHT_DYNSYM && symbols == nullptr)) symbols = &s;
  if (symbols == nullptr || symbols->sh_link >= sections.size() || symbols->sh_entsize != sizeof(ElfW(Sym))) return;
  const ElfW(Shdr)& strings = sections[symbols->sh_link];
  std::vector<ElfW(Sym)> entries(symbols->sh_size / sizeof(ElfW(Sym)));
  std::string names(strings.sh_size + 1, '\0');
  if (!readAt(fd, entries.data(), entries.size() * sizeof(ElfW(Sym)), symbols->sh_offset) ||
      !readAt(fd, &names[0], strings.sh_size, strings.sh_offset))
    return;
  for (const ElfW(Sym) & sym : entries) {
    if (ELF64_ST_TYPE(sym.st_info) != STT_FUNC || sym.st_shndx == SHN_UNDEF || sym.st_value == 0 ||
        sym.st_name >= strings.sh_size)
      continue;
    const char* name = names.c_str() + sym.st_name;
    table.add(sym.st_value, sym.st_value + sym.st_size, name, std::strlen(name));
  }
}

void readFile(const char* path, cFunctionTable& table) {
  const int fd = ::open(path, O_RDONLY | O_CLOEXEC);
  if (fd < 0) return;
  readFunctions(fd, table);
  ::close(fd);
}

}  // namespace

// The unwinder of the compiler's runtime rather than execinfo's backtrace():
// sanitizers intercept the latter and add frames of their own.
unsigned int cNativeDebugImpl::captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip) {
  // The first frame the unwinder reports is this function itself.
  cUnwindState state{frames, max, skip + 1, 0};
  _Unwind_Backtrace(collectFrame, &state);
  return state.count;
}

void cNativeDebugImpl::describeAddress(std::uintptr_t address, std::string& out) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "0x%llx", static_cast<unsigned long long>(address));
  out += buf;
  Dl_info info;
  link_map* module = nullptr;
  // The return address points behind the call; look up the call itself.
  const std::uintptr_t call = address - 1;
  if (address == 0 ||
      ::dladdr1(reinterpret_cast<void*>(call), &info, reinterpret_cast<void**>(&module), RTLD_DL_LINKMAP) == 0)
    return;
  // The main program's file is the one the process runs, whatever its name.
  const char* file = (module && module->l_name && module->l_name[0]) ? module->l_name : nullptr;
  std::uintptr_t start = 0;
  const char* name =
      module ? cFunctionTable::of(file ? file : "/proc/self/exe", readFile).find(call - module->l_addr, start)
             : nullptr;
  if (name) {
    start += module->l_addr;
  } else if (info.dli_sname) {
    name = info.dli_sname;
    start = reinterpret_cast<std::uintptr_t>(info.dli_saddr);
  }
  if (name) {
    out += ' ';
    cFunctionTable::appendDemangled(name, out);
    std::snprintf(buf, sizeof buf, "+0x%llx", static_cast<unsigned long long>(address - start));
    out += buf;
  }
  if (info.dli_fname && info.dli_fname[0]) {
    out += " (";
    out += info.dli_fname;
    out += ')';
  }
}

void cNativeDebugImpl::writeStdErr(const char* text, std::size_t length) {
  while (length > 0) {
    ssize_t n = ::write(2, text, length);
    if (n <= 0) return;
    text += n;
    length -= static_cast<std::size_t>(n);
  }
}

}  // namespace qpi
