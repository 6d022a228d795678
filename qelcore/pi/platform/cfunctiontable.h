// The functions of one loaded file (program or shared library) by address,
// as the platform reads them from the file's symbol table, so that stack
// traces can name functions that the file does not export.
#ifndef QELCORE_PI_PLATFORM_CFUNCTIONTABLE_H
#define QELCORE_PI_PLATFORM_CFUNCTIONTABLE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qpi {

class cFunctionTable {
public:
  // Fills a table from the file at `path`; leaves it empty when it cannot.
  typedef void (*tReader)(const char* path, cFunctionTable& table);

  // The table of the file at `path`, read the first time it is asked for and
  // kept for the life of the process. Safe from any thread.
  static const cFunctionTable& of(const char* path, tReader read);
  // Appends `name` demangled where it is a C++ name, as it is otherwise.
  static void appendDemangled(const char* name, std::string& out);

  // A function over [start, end) in the file's own address numbering.
  void add(std::uintptr_t start, std::uintptr_t end, const char* name, std::size_t length);
  // The name of the function that holds `address` and where it starts, or
  // null. Where functions overlap, the one that starts last wins.
  const char* find(std::uintptr_t address, std::uintptr_t& start) const;

private:
  struct cFunction {
    std::uintptr_t miStart;
    std::uintptr_t miEnd;
    std::size_t miName;
  };
  void sort();

  std::vector<cFunction> mvFunctions;
  std::string mNames;
};

}  // namespace qpi

#endif
