#include "qelcore/std/ctypemissmatchexception.h"

namespace qstd {

cTypeMissmatchException::cTypeMissmatchException(const cAsciiString& expected, const cAsciiString& assigned,
                                                 const char* file, unsigned int line)
    : cTypeMissmatchException(
          qucs::cLIMessage("$QTR$Type mismatch: Expecting type \"%expected%\" but got object of type \"%got%\"!")
              << expected << assigned,
          expected, assigned, file, line) {}

cTypeMissmatchException::cTypeMissmatchException(const qucs::cLIMessage& msg, const cAsciiString& expected,
                                                 const cAsciiString& assigned, const char* file, unsigned int line)
    : tException(msg, file, line), mExpectedType(expected), mAssignedType(assigned) {}

}  // namespace qstd
