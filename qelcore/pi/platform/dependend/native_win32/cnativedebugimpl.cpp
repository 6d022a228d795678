#include "qelcore/pi/platform/cnativedebugimpl.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>
#include <windows.h>

#include "qelcore/pi/platform/cfunctiontable.h"

namespace qpi {

namespace {

bool readAt(std::FILE* file, void* to, std::size_t size, long at) {
  return std::fseek(file, at, SEEK_SET) == 0 && std::fread(to, 1, size, file) == size;
}

// The functions of a module from the COFF symbol table that the GNU linker
// leaves in programs and DLLs unless they are stripped; addresses relative
// to the module's base. A function ends where the next one begins, or with
// its section.
void readFunctions(std::FILE* file, cFunctionTable& table) {
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
  std::vector<std::uintptr_t> starts;
  for (DWORD i = 0; i < header.NumberOfSymbols; i += 1 + symbols[i].NumberOfAuxSymbols)
    if (ISFCN(symbols[i].Type) && symbols[i].SectionNumber > 0 && symbols[i].SectionNumber <= header.NumberOfSections)
      starts.push_back(sections[symbols[i].SectionNumber - 1].VirtualAddress + symbols[i].Value);
  std::sort(starts.begin(), starts.end());
  for (DWORD i = 0; i < header.NumberOfSymbols; i += 1 + symbols[i].NumberOfAuxSymbols) {
    const IMAGE_SYMBOL& sym = symbols[i];
    if (!ISFCN(sym.Type) || sym.SectionNumber <= 0 || sym.SectionNumber > header.NumberOfSections) continue;
    const IMAGE_SECTION_HEADER& section = sections[sym.SectionNumber - 1];
    const std::uintptr_t start = section.VirtualAddress + sym.Value;
    std::uintptr_t end = section.VirtualAddress + std::max(section.Misc.VirtualSize, section.SizeOfRawData);
    auto next = std::upper_bound(starts.begin(), starts.end(), start);
    if (next != starts.end() && *next < end) end = *next;
    if (sym.N.Name.Short != 0) {
      const char* name = reinterpret_cast<const char*>(sym.N.ShortName);
      table.add(start, end, name, strnlen(name, 8));
    } else if (sym.N.Name.Long < stringsSize) {
      const char* name = strings.c_str() + sym.N.Name.Long;
      table.add(start, end, name, std::strlen(name));
    }
  }
}

void readFile(const char* path, cFunctionTable& table) {
  std::FILE* file = std::fopen(path, "rb");
  if (!file) return;
  readFunctions(file, table);
  std::fclose(file);
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
  if (const char* name = cFunctionTable::of(path, readFile).find(address - 1 - base, start)) {
    out += ' ';
    // 32-bit C++ names carry a leading underscore.
    cFunctionTable::appendDemangled(name[0] == '_' && name[1] == '_' && name[2] == 'Z' ? name + 1 : name, out);
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
