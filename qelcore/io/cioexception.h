/// \class qio::cIOException
/// A file operation failed: the file or directory is missing, access was
/// refused, the disk is full, a name is invalid, the file is not open...
///
/// It is an OS error (cOSErrorException: the operation, the system's error
/// code, 0 when the failure did not come from the operating system, and the
/// path as its file name) with what a program needs to react: the kind of
/// failure, so that callers can tell a missing file from a refused one
/// without parsing texts, and the system's text for the error.
///
/// \code
///   try {
///     qio::cFile f("settings.ini", qio::cFile::Read);
///     ...
///   } catch (const qio::cIOException& e) {
///     if (e.kind() != qio::cIOException::NotFound) throw;
///     // no settings yet: use the defaults
///   }
/// \endcode
#ifndef QELCORE_IO_CIOEXCEPTION_H
#define QELCORE_IO_CIOEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/texception.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

class QEL_EXPORT cIOException : public qstd::tException<cIOException, qstd::cOSErrorException> {
public:
  /// "cIOException", the name in the exception registry.
  static const char* staticTypeName() { return "cIOException"; }

  /// What kind of failure, the same on every platform.
  enum Kind {
    Other = 0,  ///< anything else
    NotFound = 1,           ///< no such file or directory
    PermissionDenied = 2,   ///< access refused
    AlreadyExists = 3,      ///< the target exists (exclusive create, rename without replace)
    NotADirectory = 4,      ///< a directory was expected
    IsADirectory = 5,       ///< a file was expected
    DirectoryNotEmpty = 6,  ///< a directory to remove still has entries
    NoSpace = 7,            ///< the disk (or the in-memory file system) is full
    InvalidName = 8,        ///< the name cannot be used on this file system
    CrossDevice = 9,        ///< a rename between two file systems
    NotOpen = 10,           ///< an operation through a closed file
    Unsupported = 11,       ///< the file system cannot do this
    UnexpectedEnd = 12      ///< a read needed more bytes than the file has
  };

  cIOException() : meKind(Other) {}
  /// The message reads `I/O error (<operation>) on "<path>": <error text>`.
  cIOException(Kind kind, const qstd::cAsciiString& operation, const qucs::cString& path, int osErrorCode,
               const qucs::cString& errorText, const char* file, unsigned int line);
  /// For failures that involve two paths (rename, copy).
  cIOException(Kind kind, const qstd::cAsciiString& operation, const qucs::cString& path,
               const qucs::cString& otherPath, int osErrorCode, const qucs::cString& errorText, const char* file,
               unsigned int line);

  /// What kind of failure.
  Kind kind() const { return meKind; }
  /// The path the operation was on.
  const qucs::cString& path() const { return fileName(); }
  /// The second path of a rename or copy; empty otherwise.
  const qucs::cString& otherPath() const { return mOtherPath; }
  /// The system's (or the kind's) text.
  const qucs::cString& errorText() const { return mErrorText; }

private:
  Kind meKind;
  qucs::cString mOtherPath;
  qucs::cString mErrorText;
};

}  // namespace qio

#endif
