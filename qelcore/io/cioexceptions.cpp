#include "qelcore/io/cioexceptions.h"

#include "qelcore/io/cpath.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/platform/cnativefsinfo.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

const char* orUnknown(const char* s) { return s ? s : "unknown"; }

qucs::cString systemText(int code) { return qucs::cString(qpi::cPlatform::osFileIOErrorString(code), '?'); }

}  // namespace

const char* cIOExceptions::kindText(cIOException::Kind kind) {
  switch (kind) {
    case cIOException::NotFound:
      return "No such file or directory";
    case cIOException::PermissionDenied:
      return "Permission denied";
    case cIOException::AlreadyExists:
      return "File exists";
    case cIOException::NotADirectory:
      return "Not a directory";
    case cIOException::IsADirectory:
      return "Is a directory";
    case cIOException::DirectoryNotEmpty:
      return "Directory not empty";
    case cIOException::NoSpace:
      return "No space left on device";
    case cIOException::InvalidName:
      return "Invalid file name";
    case cIOException::CrossDevice:
      return "Not on the same file system";
    case cIOException::NotOpen:
      return "File not open";
    case cIOException::Unsupported:
      return "Operation not supported";
    case cIOException::UnexpectedEnd:
      return "Unexpected end of file";
    case cIOException::Other:
      break;
  }
  return "I/O error";
}

void cIOExceptions::throwSystemError(const char* operation, const cPath& path, int osErrorCode, qstd::cCallSite at) {
  throw cIOException(static_cast<cIOException::Kind>(qpi::cNativeFsInfo::errorKind(osErrorCode)),
                     qstd::cAsciiString(orUnknown(operation)), path.toString(), osErrorCode, systemText(osErrorCode),
                     at.file, at.line);
}

void cIOExceptions::throwSystemError(const char* operation, const cPath& path, const cPath& otherPath, int osErrorCode,
                                     qstd::cCallSite at) {
  throw cIOException(static_cast<cIOException::Kind>(qpi::cNativeFsInfo::errorKind(osErrorCode)),
                     qstd::cAsciiString(orUnknown(operation)), path.toString(), otherPath.toString(), osErrorCode,
                     systemText(osErrorCode), at.file, at.line);
}

void cIOExceptions::throwError(cIOException::Kind kind, const char* operation, const cPath& path, qstd::cCallSite at) {
  throw cIOException(kind, qstd::cAsciiString(orUnknown(operation)), path.toString(), 0, qucs::cString(kindText(kind)),
                     at.file, at.line);
}

void cIOExceptions::throwError(cIOException::Kind kind, const char* operation, const cPath& path,
                               const cPath& otherPath, qstd::cCallSite at) {
  throw cIOException(kind, qstd::cAsciiString(orUnknown(operation)), path.toString(), otherPath.toString(), 0,
                     qucs::cString(kindText(kind)), at.file, at.line);
}

void cIOExceptions::throwError(cIOException::Kind kind, const char* operation, const cPath& path, const char* text,
                               qstd::cCallSite at) {
  throw cIOException(kind, qstd::cAsciiString(orUnknown(operation)), path.toString(), 0,
                     qucs::cString(text ? text : kindText(kind)), at.file, at.line);
}

void cIOExceptions::throwWriteNotOpen(const cPath& path, qstd::cCallSite at) {
  throw cIOException(cIOException::NotOpen, qstd::cAsciiString("write"), path.toString(), 0,
                     qucs::cString("Inavalid handle when writing to file!"), at.file, at.line);
}

void cIOExceptions::throwNotOpen(const char* operation, const cPath& path, qstd::cCallSite at) {
  throwError(cIOException::NotOpen, operation, path, at);
}

void cIOExceptions::throwUnexpectedEnd(const cPath& path, qstd::cCallSite at) {
  throwError(cIOException::UnexpectedEnd, "read", path, at);
}

void cIOExceptions::throwInvalidOpenMode(unsigned int mode, qstd::cCallSite at) {
  throw qstd::cBugException(qucs::cLIMessage("$QTR$Invalid open mode 0x%mode% for a file!")
                                << qstd::cAsciiString().setUNum32(mode, qstd::cNumberConversionFormat(16)),
                            at.file, at.line);
}

void cIOExceptions::throwMountCycle(const cPath& mountPoint, qstd::cCallSite at) {
  throw qstd::cBugException(qucs::cLIMessage("$QTR$A file system cannot be mounted into itself (at \"%path%\")!")
                                << mountPoint.toString(),
                            at.file, at.line);
}

}  // namespace qio
