#include "qelcore/std/coutofrangeexception.h"

namespace qstd {

cOutOfRangeException::cOutOfRangeException(const char* container, const char* operation, OutOfRangeType type,
                                           long long value, long long min, long long max, const char* file,
                                           unsigned int line)
    : tException(qucs::cLIMessage(), file, line),
      mContainer(container ? container : "unknown"),
      mOperation(operation ? operation : "unknown"),
      meType(type),
      miValue(value),
      miMin(min),
      miMax(max) {
  setMsg(qucs::cLIMessage("$QTR$Index out of range in %container% / %operation%. The index should be between %min% - "
                          "%max% but is %index%!")
         << mContainer << mOperation << min << max << value);
}

}  // namespace qstd
