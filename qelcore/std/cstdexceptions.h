/// \class qstd::cSTDExceptions
/// The throw functions of the foundation: one call per common failure, so
/// that every part of the system reports the same failure with the same text.
/// Only forward declarations are needed here, so that the array templates can
/// include this header before the string classes exist.
#ifndef QELCORE_STD_CSTDEXCEPTIONS_H
#define QELCORE_STD_CSTDEXCEPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qucs {
class cString;
class cLIMessage;
}  // namespace qucs

namespace qstd {

class cAsciiString;

/// What an out-of-range value stands for (kept by cOutOfRangeException).
enum OutOfRangeType {
  OutOfRangeIndex = 0,
  OutOfRangeValue = 1,
  OutOfRangeSize = 2,
  OutOfRangeIndexOrSize = 3,
  OutOfRangeEndValue = 4
};

/// Every function reports the file and line it was called from (the default
/// argument fills them in); those taking `file` and `line` report what they
/// are given.
class QEL_EXPORT cSTDExceptions {
public:
  /// cBugException "Assertion failed in file %file%:%line%. (%operation%)!".
  [[noreturn]] static void throwAssertionFailed(const char* expr, const char* file, unsigned int line);
  /// cBugException "Bug ("%bug%") detected!" raised at file/line.
  [[noreturn]] static void throwCoreBug(const char* bug, const char* file, unsigned int line);
  ///@{
  /// cBugException "The operation "%s%" is not supported!".
  [[noreturn]] static void throwUnsupportedOperation(const cAsciiString& op, cCallSite at = cCallSite::here());
  [[noreturn]] static void throwUnsupportedOperation(const char* op, cCallSite at = cCallSite::here());
  ///@}
  /// cRuntimeException "Unexpected end of input!".
  [[noreturn]] static void throwUnexpectedEndOfInput(cCallSite at = cCallSite::here());
  /// cOutOfBoundsException for `operation` of `container`.
  [[noreturn]] static void throwOutOfBounds(const char* container, const char* operation,
                                            cCallSite at = cCallSite::here());
  /// cBugException "Element could not be found in "%container%" while operation ...".
  [[noreturn]] static void throwElementNotFound(const char* container, const char* operation,
                                                cCallSite at = cCallSite::here());
  /// cOutOfRangeException: `value` of kind `type` is not within `min`..`max`.
  [[noreturn]] static void throwOutOfRange(const char* container, const char* operation, OutOfRangeType type,
                                           long long value, long long min, long long max,
                                           cCallSite at = cCallSite::here());
  /// cRuntimeException "Invalid base for a decimal. ..." (`base` not within `min`..`max`).
  [[noreturn]] static void throwInvalidDecimalBase(int base, int min, int max, cCallSite at = cCallSite::here());
  ///@{
  /// cRuntimeException "Invalid decimal number ("%string%"). Character at index
  /// %index% ..."; the bad text is shown with '?' for every character above 127.
  [[noreturn]] static void throwInvalidDecimal(const qucs::cString& text, unsigned int index,
                                               cCallSite at = cCallSite::here());
  [[noreturn]] static void throwInvalidDecimal(const cAsciiString& text, unsigned int index,
                                               cCallSite at = cCallSite::here());
  [[noreturn]] static void throwInvalidDecimal(const char* text, unsigned int length, unsigned int index,
                                               cCallSite at = cCallSite::here());
  ///@}
  /// A double that cannot be written as digits (the remainder became NaN).
  [[noreturn]] static void throwInvalidFractionalNumber(bool inIntegerPart, cCallSite at = cCallSite::here());
  /// cNumberConversionException for `text`, the fault at `index`.
  [[noreturn]] static void throwNumberConversion(const qucs::cString& text, unsigned int index,
                                                 cCallSite at = cCallSite::here());
  ///@{
  /// cTextParseException with `msg`, in a file or in memory.
  [[noreturn]] static void throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format,
                                               const qucs::cString& file, unsigned int row, unsigned int column,
                                               cCallSite at = cCallSite::here());
  [[noreturn]] static void throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format,
                                               unsigned int row, unsigned int column, cCallSite at = cCallSite::here());
  ///@}
  /// cTypeMissmatchException: an object of `type` was asked of a holder that contains `contains`.
  [[noreturn]] static void throwWrongAnyDereference(const cAsciiString& type, const cAsciiString& contains,
                                                    cCallSite at = cCallSite::here());
  /// cTypeErrorException about `type`.
  [[noreturn]] static void throwTypeError(const cAsciiString& type, cCallSite at = cCallSite::here());
  /// cTypeMissmatchException: `expected` wanted, `assigned` found.
  [[noreturn]] static void throwTypeMissmatch(const cAsciiString& expected, const cAsciiString& assigned,
                                              cCallSite at = cCallSite::here());
  ///@{
  /// cOSErrorException: `operation` failed with `osErrorCode` (on `file`).
  [[noreturn]] static void throwOSError(const cAsciiString& operation, int osErrorCode,
                                        cCallSite at = cCallSite::here());
  [[noreturn]] static void throwOSError(const cAsciiString& operation, int osErrorCode, const qucs::cString& file,
                                        cCallSite at = cCallSite::here());
  ///@}
  /// A cRuntimeException that carries the out-of-memory flag; renders without
  /// allocating message parts.
  [[noreturn]] static void throwOutOfMemory(cCallSite at = cCallSite::here());
  /// cRuntimeException "Unknown exception type %s%!" (rebuilding a chain).
  [[noreturn]] static void throwUnknownExceptionType(const cAsciiString& typeName, cCallSite at = cCallSite::here());
  ///@{
  /// Any message as cBugException / cRuntimeException.
  [[noreturn]] static void throwBug(const qucs::cLIMessage& msg, const char* file, unsigned int line);
  [[noreturn]] static void throwRuntime(const qucs::cLIMessage& msg, const char* file, unsigned int line);
  ///@}
};

}  // namespace qstd

// Always checked, never aborts: a failed condition throws cBugException.
#define QEL_ASSERT(cond, source)                                                        \
  do {                                                                                  \
    if (!(cond)) ::qstd::cSTDExceptions::throwAssertionFailed(#cond, source, __LINE__); \
  } while (0)

#endif
