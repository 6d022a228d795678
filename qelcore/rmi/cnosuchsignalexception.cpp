#include "qelcore/rmi/cnosuchsignalexception.h"

namespace qrmi {

cNoSuchSignalException::cNoSuchSignalException(const qucs::cLIMessage& msg, const qstd::cAsciiString& signalName,
                                               const char* file, unsigned int line)
    : tException(msg, file, line), msSignal(signalName) {}

}  // namespace qrmi
