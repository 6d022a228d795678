/// \class qsa::cAbstractContextData
/// The state of one open context inside a concrete archive.
#ifndef QELCORE_SA_CABSTRACTCONTEXTDATA_H
#define QELCORE_SA_CABSTRACTCONTEXTDATA_H

#include "qelcore/qelexport.h"

namespace qsa {

class QEL_EXPORT cAbstractContextData {
public:
  cAbstractContextData() {}
  /// Leaves the context: the enclosing one becomes current again, and the
  /// position follows from whether the context was finished.
  virtual ~cAbstractContextData();
  /// Closes the context for good (a writer completes its header, a reader
  /// notes that the context was read).
  virtual void finish() = 0;
  /// Back to the first element of the context.
  virtual void rewind() = 0;

private:
  cAbstractContextData(const cAbstractContextData&) = delete;
  cAbstractContextData& operator=(const cAbstractContextData&) = delete;
};

}  // namespace qsa

#endif
