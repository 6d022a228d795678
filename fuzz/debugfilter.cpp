// Fuzzes the parser of the debug output filter ("PIDBG_FILTER").
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qelcore/pi/cabstractout.h"

namespace {
class cNullOut : public qpi::cAbstractOut {
protected:
  void writeEntry(Level, const char*, const char*, unsigned int) override {}
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  cNullOut out;
  bool ok = out.setFilter(text.c_str());
  bool on = out.enabled(qpi::cAbstractOut::LevelWarning, text.c_str());
  if (!ok && !on) std::abort();  // a rejected filter keeps the default "everything"
  out.write(qpi::cAbstractOut::LevelError, text.c_str(), text.c_str(), 1);
  return 0;
}
