/// \class qpi::cDebugStdErr
/// The debug output that writes to the process's standard error stream.
#ifndef QELCORE_PI_CDEBUGSTDERR_H
#define QELCORE_PI_CDEBUGSTDERR_H

#include "qelcore/pi/cabstractout.h"

namespace qpi {

class QEL_EXPORT cDebugStdErr : public cAbstractOut {
public:
  /// Applies "PIDBG_FILTER" when set and well-formed; otherwise only
  /// warnings and errors are written.
  cDebugStdErr();
  ~cDebugStdErr() override;

  /// The filter used when "PIDBG_FILTER" is not set.
  static const char* defaultFilter();

protected:
  void writeEntry(Level level, const char* text, const char* file, unsigned int line) override;
};

}  // namespace qpi

#endif
