// Shows what the library offers so far: the debug output with its filter and
// a stack trace of this program.
#include <cstdio>

#include "qelcore/qelcore.h"

int main() {
  qpi::cAbstractOut& out = qpi::cAbstractOut::current();
  std::printf("QELCore example: the debug output\n");
  std::printf("  PIDBG_FILTER selects what goes to stderr (default \"%s\").\n", qpi::cDebugStdErr::defaultFilter());
  std::fflush(stdout);
  QEL_TRACE("a trace line: shown with PIDBG_FILTER=trace");
  QEL_INFO("an info line: shown with PIDBG_FILTER=info");
  QEL_WARNING("a warning: shown by default");
  out.writeStackTrace(qpi::cAbstractOut::LevelWarning, "the stack of main():", __FILE__, __LINE__);
  return 0;
}
