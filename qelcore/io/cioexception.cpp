#include "qelcore/io/cioexception.h"

#include "qelcore/ucs/climessage.h"

namespace qio {

cIOException::cIOException(Kind kind, const qstd::cAsciiString& operation, const qucs::cString& path, int osErrorCode,
                           const qucs::cString& errorText, const char* file, unsigned int line)
    : tException(operation, osErrorCode, path, file, line), meKind(kind), mErrorText(errorText) {
  setMsg(qucs::cLIMessage("$QTR$I/O error (%operation%) on \"%file%\": %error%") << operation << path << errorText);
}

cIOException::cIOException(Kind kind, const qstd::cAsciiString& operation, const qucs::cString& path,
                           const qucs::cString& otherPath, int osErrorCode, const qucs::cString& errorText,
                           const char* file, unsigned int line)
    : tException(operation, osErrorCode, path, file, line), meKind(kind), mOtherPath(otherPath), mErrorText(errorText) {
  setMsg(qucs::cLIMessage("$QTR$I/O error (%operation%) on \"%file%\" and \"%other%\": %error%")
         << operation << path << otherPath << errorText);
}

}  // namespace qio
