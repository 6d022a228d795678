// The throw functions of the foundation: one call per common failure, so
// that every part of the system reports the same failure with the same text.
// Only forward declarations are needed here, so that the array templates can
// include this header before the string classes exist.
#ifndef QELCORE_STD_CSTDEXCEPTIONS_H
#define QELCORE_STD_CSTDEXCEPTIONS_H

#include "qelcore/qelexport.h"

namespace qucs {
class cString;
class cLIMessage;
}  // namespace qucs

namespace qstd {

class cAsciiString;

// What an out-of-range value stands for (kept by cOutOfRangeException).
enum OutOfRangeType {
  OutOfRangeIndex = 0,
  OutOfRangeValue = 1,
  OutOfRangeSize = 2,
  OutOfRangeIndexOrSize = 3,
  OutOfRangeEndValue = 4
};

class QEL_EXPORT cSTDExceptions {
public:
  // cBugException "Assertion failed in file %file%:%line%. (%operation%)!".
  [[noreturn]] static void throwAssertionFailed(const char* expr, const char* file, unsigned int line);
  // cBugException "Bug ("%bug%") detected!" raised at file/line.
  [[noreturn]] static void throwCoreBug(const char* bug, const char* file, unsigned int line);
  [[noreturn]] static void throwUnsupportedOperation(const cAsciiString& op);
  [[noreturn]] static void throwUnsupportedOperation(const char* op);
  [[noreturn]] static void throwUnexpectedEndOfInput();
  [[noreturn]] static void throwOutOfBounds(const char* container, const char* operation);
  [[noreturn]] static void throwElementNotFound(const char* container, const char* operation);
  [[noreturn]] static void throwOutOfRange(const char* container, const char* operation, OutOfRangeType type,
                                           long long value, long long min, long long max);
  [[noreturn]] static void throwInvalidDecimalBase(int base, int min, int max);
  // The bad text is shown with '?' for every character above 127.
  [[noreturn]] static void throwInvalidDecimal(const qucs::cString& text, unsigned int index);
  [[noreturn]] static void throwInvalidDecimal(const cAsciiString& text, unsigned int index);
  [[noreturn]] static void throwInvalidDecimal(const char* text, unsigned int length, unsigned int index);
  // A double that cannot be written as digits (the remainder became NaN).
  [[noreturn]] static void throwInvalidFractionalNumber(bool inIntegerPart);
  [[noreturn]] static void throwNumberConversion(const qucs::cString& text, unsigned int index);
  [[noreturn]] static void throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format,
                                               const qucs::cString& file, unsigned int row, unsigned int column);
  [[noreturn]] static void throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format,
                                               unsigned int row, unsigned int column);
  [[noreturn]] static void throwWrongAnyDereference(const cAsciiString& type, const cAsciiString& contains);
  [[noreturn]] static void throwTypeError(const cAsciiString& type);
  [[noreturn]] static void throwTypeMissmatch(const cAsciiString& expected, const cAsciiString& assigned);
  [[noreturn]] static void throwOSError(const cAsciiString& operation, int osErrorCode);
  [[noreturn]] static void throwOSError(const cAsciiString& operation, int osErrorCode, const qucs::cString& file);
  // A cRuntimeException that carries the out-of-memory flag; renders without
  // allocating message parts.
  [[noreturn]] static void throwOutOfMemory();
  // cRuntimeException "Unknown exception type %s%!" (rebuilding a chain).
  [[noreturn]] static void throwUnknownExceptionType(const cAsciiString& typeName);
  // Any message as cBugException / cRuntimeException.
  [[noreturn]] static void throwBug(const qucs::cLIMessage& msg, const char* file, unsigned int line);
  [[noreturn]] static void throwRuntime(const qucs::cLIMessage& msg, const char* file, unsigned int line);
};

}  // namespace qstd

// Always checked, never aborts: a failed condition throws cBugException.
#define QEL_ASSERT(cond, source)                                                        \
  do {                                                                                  \
    if (!(cond)) ::qstd::cSTDExceptions::throwAssertionFailed(#cond, source, __LINE__); \
  } while (0)

#endif
