/// \class qstd::cOSErrorException
/// An operating-system call failed.
#ifndef QELCORE_STD_COSERROREXCEPTION_H
#define QELCORE_STD_COSERROREXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cOSErrorException : public tException<cOSErrorException, cRuntimeException> {
public:
  /// "cOSErrorException", the name in the exception registry.
  static const char* staticTypeName() { return "cOSErrorException"; }

  cOSErrorException() : miOsErrorCode(0) {}
  /// `operation` failed with the system's `osErrorCode`.
  cOSErrorException(const cAsciiString& operation, int osErrorCode);
  /// The same on the file `fileName`.
  cOSErrorException(const cAsciiString& operation, int osErrorCode, const qucs::cString& fileName);
  /// The same, raised at `file` and `line` (no defaults: a file name given as
  /// a C string must not be taken for the source file).
  cOSErrorException(const cAsciiString& operation, int osErrorCode, const char* file, unsigned int line);
  /// The same on `fileName`, raised at `file`:`line`.
  cOSErrorException(const cAsciiString& operation, int osErrorCode, const qucs::cString& fileName, const char* file,
                    unsigned int line);

  /// The operation that failed.
  const cAsciiString& operation() const { return mOperation; }
  /// The system's error code (errno, GetLastError()).
  int osErrorCode() const { return miOsErrorCode; }
  /// The file it was on; empty when none.
  const qucs::cString& fileName() const { return mFileName; }

private:
  cAsciiString mOperation;
  int miOsErrorCode;
  qucs::cString mFileName;
};

}  // namespace qstd

#endif
