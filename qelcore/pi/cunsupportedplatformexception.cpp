#include "qelcore/pi/cunsupportedplatformexception.h"

namespace qpi {

cUnsupportedPlatformException::cUnsupportedPlatformException(const char* operation, const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$Operation (\"%operation%\") not supported for this platform!")
                     << (operation ? operation : "unknown"),
                 file, line) {}

}  // namespace qpi
