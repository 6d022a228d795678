#include "qelcore/pi/platform/cfunctiontable.h"

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <map>
#include <mutex>
#include <utility>

namespace qpi {

const cFunctionTable& cFunctionTable::of(const char* path, tReader read) {
  static std::mutex mutex;
  // Never destroyed: stack traces may be written while the process ends.
  static std::map<std::string, cFunctionTable>* tables = new std::map<std::string, cFunctionTable>;
  std::lock_guard<std::mutex> lock(mutex);
  auto found = tables->find(path);
  if (found == tables->end()) {
    cFunctionTable table;
    read(path, table);
    table.sort();
    found = tables->emplace(path, std::move(table)).first;
  }
  return found->second;
}

void cFunctionTable::appendDemangled(const char* name, std::string& out) {
  int status = 0;
  char* demangled = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  out += (status == 0 && demangled) ? demangled : name;
  std::free(demangled);
}

void cFunctionTable::add(std::uintptr_t start, std::uintptr_t end, const char* name, std::size_t length) {
  mvFunctions.push_back(cFunction{start, end > start ? end : start + 1, mNames.size()});
  mNames.append(name, length);
  mNames += '\0';
}

void cFunctionTable::sort() {
  std::stable_sort(mvFunctions.begin(), mvFunctions.end(),
                   [](const cFunction& a, const cFunction& b) { return a.miStart < b.miStart; });
}

const char* cFunctionTable::find(std::uintptr_t address, std::uintptr_t& start) const {
  auto after = std::upper_bound(mvFunctions.begin(), mvFunctions.end(), address,
                                [](std::uintptr_t a, const cFunction& f) { return a < f.miStart; });
  if (after == mvFunctions.begin()) return nullptr;
  const cFunction& f = *(after - 1);
  if (address >= f.miEnd) return nullptr;
  start = f.miStart;
  return mNames.c_str() + f.miName;
}

}  // namespace qpi
