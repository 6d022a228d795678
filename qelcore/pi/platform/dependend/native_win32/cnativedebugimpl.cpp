#include "qelcore/pi/platform/cnativedebugimpl.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <map>
#include <mutex>
#include <vector>
#include <windows.h>

namespace qpi {

namespace {

// The functions of one loaded module, from the COFF symbol table that the
// GNU linker leaves in executables and DLLs unless they are stripped.
// Addresses are relative to the module's base (RVAs).
class cFunctionTable {
public:
  explicit cFunctionTable(const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    if (!file) return;
    read(file);
    std::fclose(file);
    std::sort(mvFunctions.begin(), mvFunctions.end(),
              [](const cFunction& a, const cFunction& b) { return a.miStart < b.miStart; });
  }

  // The name of the function that holds `rva` and where it starts; null
  // when none does. A function ends where the next one begins.
  const char* find(std::uintptr_t rva, std::uintptr_t& start) const {
    auto after = std::upper_bound(mvFunctions.begin(), mvFunctions.end(), rva,
                                  [](std::uintptr_t a, const cFunction& f) { return a < f.miStart; });
    if (after == mvFunctions.begin()) return nullptr;
    const cFunction& f = *(after - 1);
    if (rva >= f.miSectionEnd) return nullptr;
    start = f.miStart;
    return mNames.data() + f.miName;
  }

private:
  struct cFunction {
    std::uintptr_t miStart;
    std::uintptr_t miSectionEnd;
    std::size_t miName;
  };

  static bool readAt(std::FILE* file, void* to, std::size_t size, long at) {
    return std::fseek(file, at, SEEK_SET) == 0 && std::fread(to, 1, size, file) == size;
  }

  void read(std::FILE* file) {
    IMAGE_DOS_HEADER dos;
    if (!readAt(file, &dos, sizeof dos, 0) || dos.e_magic != IMAGE_DOS_SIGNATURE) return;
    DWORD signature = 0;
    IMAGE_FILE_HEADER header;
    if (!readAt(file, &signature, sizeof signature, dos.e_lfanew) || signature != IMAGE_NT_SIGNATURE ||
        !readAt(file, &header, sizeof header, dos.e_lfanew + 4) || header.PointerToSymbolTable == 0 ||
        header.NumberOfSymbols == 0)
      return;
    std::vector<IMAGE_SECTION_HEADER> sections(header.NumberOfSections);
    const long sectionsAt = dos.e_lfanew + 4 + sizeof header + header.SizeOfOptionalHeader;
    if (!readAt(file, sections.data(), sections.size() * sizeof(IMAGE_SECTION_HEADER), sectionsAt)) return;
    // The symbols, 18 bytes each, then the string table with its size first.
    std::vector<IMAGE_SYMBOL> symbols(header.NumberOfSymbols);
    const long symbolsAt = static_cast<long>(header.PointerToSymbolTable);
    const long stringsAt = symbolsAt + static_cast<long>(header.NumberOfSymbols * IMAGE_SIZEOF_SYMBOL);
    DWORD stringsSize = 0;
    if (!readAt(file, symbols.data(), symbols.size() * IMAGE_SIZEOF_SYMBOL, symbolsAt) ||
        !readAt(file, &stringsSize, sizeof stringsSize, stringsAt) || stringsSize < 4)
      return;
    std::string strings(stringsSize, '\0');
    if (!readAt(file, &strings[0], stringsSize, stringsAt)) return;
    for (DWORD i = 0; i < header.NumberOfSymbols; i += 1 + symbols[i].NumberOfAuxSymbols) {
      const IMAGE_SYMBOL& sym = symbols[i];
      if (!ISFCN(sym.Type) || sym.SectionNumber <= 0 || sym.SectionNumber > header.NumberOfSections) continue;
      const IMAGE_SECTION_HEADER& section = sections[sym.SectionNumber - 1];
      const std::size_t name = mNames.size();
      if (sym.N.Name.Short != 0) {
        mNames.append(reinterpret_cast<const char*>(sym.N.ShortName),
                      strnlen(reinterpret_cast<const char*>(sym.N.ShortName), 8));
      } else if (sym.N.Name.Long < stringsSize) {
        mNames.append(strings.c_str() + sym.N.Name.Long);
      } else {
        continue;
      }
      mNames += '\0';
      mvFunctions.push_back(
          cFunction{section.VirtualAddress + sym.Value,
                    section.VirtualAddress + std::max(section.Misc.VirtualSize, section.SizeOfRawData), name});
    }
  }

  std::vector<cFunction> mvFunctions;
  std::string mNames;
};

const cFunctionTable& functionsOf(const char* path) {
  static std::mutex mutex;
  static std::map<std::string, cFunctionTable>* tables = new std::map<std::string, cFunctionTable>;
  std::lock_guard<std::mutex> lock(mutex);
  auto found = tables->find(path);
  if (found == tables->end()) found = tables->emplace(path, cFunctionTable(path)).first;
  return found->second;
}

void appendDemangled(const char* name, std::string& out) {
  // 32-bit symbols carry a leading underscore before the C++ name.
  if (name[0] == '_' && name[1] == '_' && name[2] == 'Z') ++name;
  int status = 0;
  char* demangled = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  out += (status == 0 && demangled) ? demangled : name;
  std::free(demangled);
}

}  // namespace

unsigned int cNativeDebugImpl::captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip) {
  void* raw[62];  // the capture call takes at most 62 frames on older systems
  if (max > 62) max = 62;
  USHORT got = ::RtlCaptureStackBackTrace(static_cast<DWORD>(skip + 1), static_cast<DWORD>(max), raw, nullptr);
  // Some implementations report the outermost frames as null addresses.
  unsigned int n = 0;
  while (n < got && raw[n] != nullptr) {
    frames[n] = reinterpret_cast<std::uintptr_t>(raw[n]);
    ++n;
  }
  return n;
}

void cNativeDebugImpl::describeAddress(std::uintptr_t address, std::string& out) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "0x%llx", static_cast<unsigned long long>(address));
  out += buf;
  HMODULE module = nullptr;
  if (!::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCSTR>(address), &module))
    return;
  char path[MAX_PATH];
  DWORD len = ::GetModuleFileNameA(module, path, MAX_PATH);
  if (len == 0 || len >= MAX_PATH) return;
  const std::uintptr_t base = reinterpret_cast<std::uintptr_t>(module);
  // The return address points behind the call; look up the call itself.
  std::uintptr_t start = 0;
  if (const char* name = functionsOf(path).find(address - 1 - base, start)) {
    out += ' ';
    appendDemangled(name, out);
    std::snprintf(buf, sizeof buf, "+0x%llx", static_cast<unsigned long long>(address - base - start));
    out += buf;
  }
  const char* file = path;
  for (DWORD i = 0; i < len; ++i)
    if (path[i] == '\\' || path[i] == '/') file = path + i + 1;
  std::snprintf(buf, sizeof buf, "+0x%llx", static_cast<unsigned long long>(address - base));
  out += " (";
  out += file;
  out += buf;
  out += ')';
}

void cNativeDebugImpl::writeStdErr(const char* text, std::size_t length) {
  std::fwrite(text, 1, length, stderr);
  std::fflush(stderr);
}

}  // namespace qpi
