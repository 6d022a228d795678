#include "qelcore/pi/platform/cnativedebugimpl.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <map>
#include <mutex>
#include <unistd.h>
#include <unwind.h>
#include <vector>

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

// The functions of one loaded file, from the symbol table of the file itself.
// Unlike the dynamic symbols that dladdr() sees, it names the functions of an
// executable and the hidden and file-local functions of shared objects, as
// long as the file is not stripped.
class cFunctionTable {
public:
  explicit cFunctionTable(const char* path) {
    const int fd = ::open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) return;
    read(fd);
    ::close(fd);
    std::sort(mvFunctions.begin(), mvFunctions.end(),
              [](const cFunction& a, const cFunction& b) { return a.miStart < b.miStart; });
  }

  // The name of the function that holds `address` (an address in the file's
  // own numbering), and where it starts; null when none does.
  const char* find(std::uintptr_t address, std::uintptr_t& start) const {
    auto after = std::upper_bound(mvFunctions.begin(), mvFunctions.end(), address,
                                  [](std::uintptr_t a, const cFunction& f) { return a < f.miStart; });
    if (after == mvFunctions.begin()) return nullptr;
    const cFunction& f = *(after - 1);
    if (address - f.miStart >= f.miSize) return nullptr;
    start = f.miStart;
    return mNames.data() + f.miName;
  }

private:
  struct cFunction {
    std::uintptr_t miStart;
    std::uintptr_t miSize;
    std::size_t miName;
  };

  static bool readAt(int fd, void* to, std::size_t size, std::uint64_t at) {
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

  void read(int fd) {
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
    std::vector<ElfW(Sym)> table(symbols->sh_size / sizeof(ElfW(Sym)));
    mNames.resize(strings.sh_size + 1);
    if (!readAt(fd, table.data(), table.size() * sizeof(ElfW(Sym)), symbols->sh_offset) ||
        !readAt(fd, &mNames[0], strings.sh_size, strings.sh_offset)) {
      mNames.clear();
      return;
    }
    mNames.back() = '\0';
    for (const ElfW(Sym) & sym : table) {
      if (ELF64_ST_TYPE(sym.st_info) != STT_FUNC || sym.st_shndx == SHN_UNDEF || sym.st_value == 0 ||
          sym.st_name >= strings.sh_size)
        continue;
      mvFunctions.push_back(cFunction{static_cast<std::uintptr_t>(sym.st_value),
                                      sym.st_size ? static_cast<std::uintptr_t>(sym.st_size) : 1, sym.st_name});
    }
  }

  std::vector<cFunction> mvFunctions;
  std::string mNames;
};

// The table of a file, read when first asked for and kept.
const cFunctionTable& functionsOf(const char* path) {
  static std::mutex mutex;
  static std::map<std::string, cFunctionTable>* tables = new std::map<std::string, cFunctionTable>;
  std::lock_guard<std::mutex> lock(mutex);
  auto found = tables->find(path);
  if (found == tables->end()) found = tables->emplace(path, cFunctionTable(path)).first;
  return found->second;
}

void appendDemangled(const char* name, std::string& out) {
  int status = 0;
  char* demangled = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  out += (status == 0 && demangled) ? demangled : name;
  std::free(demangled);
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
  const char* name = module ? functionsOf(file ? file : "/proc/self/exe").find(call - module->l_addr, start) : nullptr;
  if (name) {
    start += module->l_addr;
  } else if (info.dli_sname) {
    name = info.dli_sname;
    start = reinterpret_cast<std::uintptr_t>(info.dli_saddr);
  }
  if (name) {
    out += ' ';
    appendDemangled(name, out);
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
