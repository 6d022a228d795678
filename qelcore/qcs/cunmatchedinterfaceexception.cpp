#include "qelcore/qcs/cunmatchedinterfaceexception.h"

namespace qcs {

cUnmatchedInterfaceException::cUnmatchedInterfaceException(const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$Unmatched interface!"), file, line) {}

}  // namespace qcs
