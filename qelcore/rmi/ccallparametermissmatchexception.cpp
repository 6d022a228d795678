#include "qelcore/rmi/ccallparametermissmatchexception.h"

namespace qrmi {

cCallParameterMissmatchException::cCallParameterMissmatchException(const qucs::cLIMessage& msg,
                                                                   const qstd::cAsciiString& slotName, const char* file,
                                                                   unsigned int line)
    : tException(msg, file, line), msSlot(slotName) {}

}  // namespace qrmi
