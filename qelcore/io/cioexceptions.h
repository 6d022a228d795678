/// \class qio::cIOExceptions
/// The throw functions of the file system layer. Every failure of a file
/// operation is raised here as cIOException with the operation, the path and
/// the error text; each function reports the file and line it was called
/// from (the default argument fills them in).
#ifndef QELCORE_IO_CIOEXCEPTIONS_H
#define QELCORE_IO_CIOEXCEPTIONS_H

#include "qelcore/io/cioexception.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qio {

class cPath;

class QEL_EXPORT cIOExceptions {
public:
  /// A system call failed with `osErrorCode` (errno, GetLastError()): the
  /// kind and the text come from the platform.
  [[noreturn]] static void throwSystemError(const char* operation, const cPath& path, int osErrorCode,
                                            qstd::cCallSite at = qstd::cCallSite::here());
  /// The same for an operation on two paths.
  [[noreturn]] static void throwSystemError(const char* operation, const cPath& path, const cPath& otherPath,
                                            int osErrorCode, qstd::cCallSite at = qstd::cCallSite::here());
  /// A failure found without the system (in-memory file systems, checks
  /// before a call): the kind's own text.
  [[noreturn]] static void throwError(cIOException::Kind kind, const char* operation, const cPath& path,
                                      qstd::cCallSite at = qstd::cCallSite::here());
  /// The same for an operation on two paths.
  [[noreturn]] static void throwError(cIOException::Kind kind, const char* operation, const cPath& path,
                                      const cPath& otherPath, qstd::cCallSite at = qstd::cCallSite::here());
  /// The same with a text of the caller's.
  [[noreturn]] static void throwError(cIOException::Kind kind, const char* operation, const cPath& path,
                                      const char* text, qstd::cCallSite at = qstd::cCallSite::here());
  /// Writing through a file that is not open: "Inavalid handle when writing
  /// to file!".
  [[noreturn]] static void throwWriteNotOpen(const cPath& path, qstd::cCallSite at = qstd::cCallSite::here());
  /// Any other operation through a file that is not open.
  [[noreturn]] static void throwNotOpen(const char* operation, const cPath& path,
                                        qstd::cCallSite at = qstd::cCallSite::here());
  /// A read that needed more bytes than were there.
  [[noreturn]] static void throwUnexpectedEnd(const cPath& path, qstd::cCallSite at = qstd::cCallSite::here());
  /// cBugException: open flags that contradict each other.
  [[noreturn]] static void throwInvalidOpenMode(unsigned int mode, qstd::cCallSite at = qstd::cCallSite::here());
  /// cBugException: a file system mounted into itself.
  [[noreturn]] static void throwMountCycle(const cPath& mountPoint, qstd::cCallSite at = qstd::cCallSite::here());

  /// The text a kind stands for when no system text is at hand.
  static const char* kindText(cIOException::Kind kind);
};

}  // namespace qio

#endif
