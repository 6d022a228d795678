#include "qelcore/std/cstdexceptions.h"

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/ctextparseexception.h"
#include "qelcore/std/ctypeerrorexception.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

namespace {

const char* orUnknown(const char* s) { return s ? s : "unknown"; }

// The text of a bad number, with '?' for everything that is not ASCII.
cAsciiString shownText(const char* text, unsigned int length) {
  cAsciiString shown;
  for (unsigned int i = 0; i < length; ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    shown += static_cast<char>(c < 128 ? c : '?');
  }
  return shown;
}

}  // namespace

void cSTDExceptions::throwAssertionFailed(const char* expr, const char* file, unsigned int line) {
  const char* shownFile = file ? file : "unknown file";
  throw cBugException(qucs::cLIMessage("$QTR$Assertion failed in file %file%:%line%. (%operation%)!")
                          << shownFile << line << orUnknown(expr),
                      shownFile, line);
}

void cSTDExceptions::throwCoreBug(const char* bug, const char* file, unsigned int line) {
  throw cBugException(qucs::cLIMessage("$QTR$Bug (\"%bug%\") detected!") << orUnknown(bug), file, line);
}

void cSTDExceptions::throwUnsupportedOperation(const cAsciiString& op) {
  throw cBugException(qucs::cLIMessage("$QTR$The operation \"%s%\" is not supported!") << op, "unknown", 0);
}

void cSTDExceptions::throwUnsupportedOperation(const char* op) {
  throw cBugException(qucs::cLIMessage("$QTR$The operation \"%s%\" is not supported!") << orUnknown(op), "unknown", 0);
}

void cSTDExceptions::throwUnexpectedEndOfInput() {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Unexpected end of input!"), "unknown", 0);
}

void cSTDExceptions::throwOutOfBounds(const char* container, const char* operation) {
  throw cOutOfBoundsException(container, operation);
}

void cSTDExceptions::throwElementNotFound(const char* container, const char* operation) {
  throw cBugException(qucs::cLIMessage("$QTR$Element could not be found in \"%container%\" while operation "
                                       "\"%operation%\"!")
                          << orUnknown(container) << orUnknown(operation),
                      "unknown", 0);
}

void cSTDExceptions::throwOutOfRange(const char* container, const char* operation, OutOfRangeType type, long long value,
                                     long long min, long long max) {
  throw cOutOfRangeException(container, operation, type, value, min, max);
}

void cSTDExceptions::throwInvalidDecimalBase(int base, int min, int max) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Invalid base for a decimal. The base must be between %min% and "
                                           "%max% but is %base%!")
                              << min << max << base,
                          "unknown", 0);
}

void cSTDExceptions::throwInvalidDecimal(const char* text, unsigned int length, unsigned int index) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Invalid decimal number (\"%string%\"). Character at index %index% "
                                           "not points to digit!")
                              << shownText(text ? text : "", text ? length : 0) << index,
                          "unknown", 0);
}

void cSTDExceptions::throwInvalidDecimal(const cAsciiString& text, unsigned int index) {
  throwInvalidDecimal(text.c_str(), text.size(), index);
}

void cSTDExceptions::throwInvalidDecimal(const qucs::cString& text, unsigned int index) {
  cAsciiString ascii;
  text.toAscii(ascii, '?');
  throwInvalidDecimal(ascii.c_str(), ascii.size(), index);
}

void cSTDExceptions::throwInvalidFractionalNumber(bool inIntegerPart) {
  throw cRuntimeException(qucs::cLIMessage(inIntegerPart ? "$QTR$Invalid fractional number (non-factional part)!"
                                                         : "$QTR$Invalid fractional number!"),
                          "unknown", 0);
}

void cSTDExceptions::throwNumberConversion(const qucs::cString& text, unsigned int index) {
  throw cNumberConversionException(text, index);
}

void cSTDExceptions::throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format,
                                         const qucs::cString& file, unsigned int row, unsigned int column) {
  throw cTextParseException(msg, format, file, row, column);
}

void cSTDExceptions::throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format, unsigned int row,
                                         unsigned int column) {
  throw cTextParseException(msg, format, row, column);
}

void cSTDExceptions::throwWrongAnyDereference(const cAsciiString& type, const cAsciiString& contains) {
  throw cTypeMissmatchException(qucs::cLIMessage("$QTR$User requested object of wrong type (\"%type%\") from type "
                                                 "cAny which contains \"%contains%\"!")
                                    << type << contains,
                                type, contains);
}

void cSTDExceptions::throwTypeError(const cAsciiString& type) { throw cTypeErrorException(type); }

void cSTDExceptions::throwTypeMissmatch(const cAsciiString& expected, const cAsciiString& assigned) {
  throw cTypeMissmatchException(expected, assigned);
}

void cSTDExceptions::throwOSError(const cAsciiString& operation, int osErrorCode) {
  throw cOSErrorException(operation, osErrorCode);
}

void cSTDExceptions::throwOSError(const cAsciiString& operation, int osErrorCode, const qucs::cString& file) {
  throw cOSErrorException(operation, osErrorCode, file);
}

void cSTDExceptions::throwOutOfMemory() {
  // No message parts: rendering goes through toMessage()'s fixed text.
  cRuntimeException e;
  static_cast<cAbstractException&>(e).setOutOfMemoryCondition(true);
  throw e;
}

void cSTDExceptions::throwUnknownExceptionType(const cAsciiString& typeName) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Unknown exception type %s%!") << typeName, "unknown", 0);
}

void cSTDExceptions::throwBug(const qucs::cLIMessage& msg, const char* file, unsigned int line) {
  throw cBugException(msg, file, line);
}

void cSTDExceptions::throwRuntime(const qucs::cLIMessage& msg, const char* file, unsigned int line) {
  throw cRuntimeException(msg, file, line);
}

}  // namespace qstd
