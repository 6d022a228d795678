#include "qelcore/std/ctypeerrorexception.h"

namespace qstd {

cTypeErrorException::cTypeErrorException(const cAsciiString& type, const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$Type error while deserializing of %type%!") << type, file, line), mType(type) {}

}  // namespace qstd
