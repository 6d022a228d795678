#include "qelcore/rmi/cnosuchslotexception.h"

namespace qrmi {

cNoSuchSlotException::cNoSuchSlotException(const qucs::cLIMessage& msg, const qstd::cAsciiString& slotName,
                                           const qstd::cAsciiString& slotArgs, const char* file, unsigned int line)
    : tException(msg, file, line), msSlot(slotName), msArgs(slotArgs) {}

}  // namespace qrmi
