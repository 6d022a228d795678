#include "qelcore/io/cioexception.h"

#include <utility>

#include "qelcore/ucs/climessage.h"

namespace qio {

cIOException::cIOException() : meKind(Other), miOsErrorCode(0) {}

cIOException::cIOException(Kind kind, const qstd::cAsciiString& operation, const qucs::cString& path, int osErrorCode,
                           const qucs::cString& errorText, const char* file, unsigned int line)
    : qstd::cRuntimeException(qucs::cLIMessage("$QTR$I/O error (%operation%) on \"%file%\": %error%")
                                  << operation << path << errorText,
                              file, line),
      meKind(kind),
      mOperation(operation),
      mPath(path),
      miOsErrorCode(osErrorCode),
      mErrorText(errorText) {}

cIOException::cIOException(Kind kind, const qstd::cAsciiString& operation, const qucs::cString& path,
                           const qucs::cString& otherPath, int osErrorCode, const qucs::cString& errorText,
                           const char* file, unsigned int line)
    : qstd::cRuntimeException(qucs::cLIMessage("$QTR$I/O error (%operation%) on \"%file%\" and \"%other%\": %error%")
                                  << operation << path << otherPath << errorText,
                              file, line),
      meKind(kind),
      mOperation(operation),
      mPath(path),
      mOtherPath(otherPath),
      miOsErrorCode(osErrorCode),
      mErrorText(errorText) {}

cIOException::cIOException(const cIOException& other)
    : qstd::cRuntimeException(other),
      meKind(other.meKind),
      mOperation(other.mOperation),
      mPath(other.mPath),
      mOtherPath(other.mOtherPath),
      miOsErrorCode(other.miOsErrorCode),
      mErrorText(other.mErrorText) {}

cIOException& cIOException::operator=(const cIOException& other) {
  if (this != &other) {
    cIOException copy(other);
    swap(copy);
  }
  return *this;
}

cIOException::~cIOException() {}

void cIOException::swap(cIOException& other) {
  qstd::cRuntimeException::swap(other);
  std::swap(meKind, other.meKind);
  mOperation.swap(other.mOperation);
  mPath.swap(other.mPath);
  mOtherPath.swap(other.mOtherPath);
  std::swap(miOsErrorCode, other.miOsErrorCode);
  mErrorText.swap(other.mErrorText);
}

qstd::cAbstractException* cIOException::createObject() const { return new cIOException; }
qstd::cAbstractException* cIOException::clone() const { return new cIOException(*this); }
qstd::cAsciiString cIOException::typeName() const { return qstd::cAsciiString("cIOException"); }

}  // namespace qio
