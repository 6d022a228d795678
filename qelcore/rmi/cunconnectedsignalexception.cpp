#include "qelcore/rmi/cunconnectedsignalexception.h"

namespace qrmi {

cUnconnectedSignalException::cUnconnectedSignalException(const qucs::cLIMessage& msg, const char* file,
                                                         unsigned int line)
    : tException(msg, file, line) {}

}  // namespace qrmi
