#include "qelcore/qcs/cnopublicinterfaceexception.h"

namespace qcs {

cNoPublicInterfaceException::cNoPublicInterfaceException(const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$No public interface!"), file, line) {}

}  // namespace qcs
