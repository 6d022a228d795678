#include "qelcore/pi/cdebugstderr.h"

#include <cstdlib>
#include <cstring>
#include <string>

#include "qelcore/pi/platform/cnativedebugimpl.h"

namespace qpi {

namespace {

const char* levelTag(cAbstractOut::Level level) {
  switch (level) {
    case cAbstractOut::LevelTrace:
      return "trace";
    case cAbstractOut::LevelDebug:
      return "debug";
    case cAbstractOut::LevelInfo:
      return "info";
    case cAbstractOut::LevelWarning:
      return "warning";
    case cAbstractOut::LevelError:
      return "error";
    default:
      return "?";
  }
}

// The path below the source tree's top directory reads better than the
// build machine's absolute path.
const char* shortFile(const char* file) {
  const char* best = file;
  for (const char* p = file; (p = std::strstr(p, "qelcore/")) != nullptr; ++p) best = p + 8;
  return best;
}

}  // namespace

cDebugStdErr::cDebugStdErr() {
  setFilter(defaultFilter());
  const char* env = std::getenv("PIDBG_FILTER");
  if (env && !setFilter(env)) {
    static const char warning[] = "qel warning: PIDBG_FILTER is malformed and was ignored\n";
    cNativeDebugImpl::writeStdErr(warning, sizeof warning - 1);
  }
}

cDebugStdErr::~cDebugStdErr() = default;

const char* cDebugStdErr::defaultFilter() { return "warning"; }

void cDebugStdErr::writeEntry(Level level, const char* text, const char* file, unsigned int line) {
  std::string entry("qel ");
  entry += levelTag(level);
  entry += ' ';
  entry += shortFile(file);
  entry += ':';
  entry += std::to_string(line);
  entry += ": ";
  entry += text;
  entry += '\n';
  cNativeDebugImpl::writeStdErr(entry.data(), entry.size());
}

}  // namespace qpi
