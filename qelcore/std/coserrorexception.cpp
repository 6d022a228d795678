#include "qelcore/std/coserrorexception.h"

namespace qstd {

cOSErrorException::cOSErrorException(const cAsciiString& operation, int osErrorCode)
    : cOSErrorException(operation, osErrorCode, "unknown", 0) {}

cOSErrorException::cOSErrorException(const cAsciiString& operation, int osErrorCode, const qucs::cString& fileName)
    : cOSErrorException(operation, osErrorCode, fileName, "unknown", 0) {}

cOSErrorException::cOSErrorException(const cAsciiString& operation, int osErrorCode, const char* file,
                                     unsigned int line)
    : tException(qucs::cLIMessage("$QTR$OS-Error while trying operation \"%operation%\"!") << operation, file, line),
      mOperation(operation),
      miOsErrorCode(osErrorCode) {}

cOSErrorException::cOSErrorException(const cAsciiString& operation, int osErrorCode, const qucs::cString& fileName,
                                     const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$OS-Error while trying operation \"%operation%\" on file \"%file%\"!")
                     << operation << fileName,
                 file, line),
      mOperation(operation),
      miOsErrorCode(osErrorCode),
      mFileName(fileName) {}

}  // namespace qstd
