#include "qelcore/std/cnumberconversionexception.h"

namespace qstd {

cNumberConversionException::cNumberConversionException(const qucs::cString& number, unsigned int index,
                                                       const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$Number conversion error. \"%string%\" contains invalid characters at index "
                                  "%index%!")
                     << number << index,
                 file, line),
      mNumber(number),
      miIndex(index) {}

}  // namespace qstd
