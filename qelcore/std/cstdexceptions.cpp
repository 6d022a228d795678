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

void cSTDExceptions::throwUnsupportedOperation(const cAsciiString& op, cCallSite at) {
  throwUnsupportedOperation(op.c_str(), at);
}

void cSTDExceptions::throwUnsupportedOperation(const char* op, cCallSite at) {
  throw cBugException(qucs::cLIMessage("$QTR$The operation \"%s%\" is not supported!") << orUnknown(op), at.file,
                      at.line);
}

void cSTDExceptions::throwUnexpectedEndOfInput(cCallSite at) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Unexpected end of input!"), at.file, at.line);
}

void cSTDExceptions::throwOutOfBounds(const char* container, const char* operation, cCallSite at) {
  throw cOutOfBoundsException(container, operation, at.file, at.line);
}

void cSTDExceptions::throwElementNotFound(const char* container, const char* operation, cCallSite at) {
  throw cBugException(qucs::cLIMessage("$QTR$Element could not be found in \"%container%\" while operation "
                                       "\"%operation%\"!")
                          << orUnknown(container) << orUnknown(operation),
                      at.file, at.line);
}

void cSTDExceptions::throwOutOfRange(const char* container, const char* operation, OutOfRangeType type, long long value,
                                     long long min, long long max, cCallSite at) {
  throw cOutOfRangeException(container, operation, type, value, min, max, at.file, at.line);
}

void cSTDExceptions::throwInvalidDecimalBase(int base, int min, int max, cCallSite at) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Invalid base for a decimal. The base must be between %min% and "
                                           "%max% but is %base%!")
                              << min << max << base,
                          at.file, at.line);
}

void cSTDExceptions::throwInvalidDecimal(const char* text, unsigned int length, unsigned int index, cCallSite at) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Invalid decimal number (\"%string%\"). Character at index %index% "
                                           "not points to digit!")
                              << shownText(text ? text : "", text ? length : 0) << index,
                          at.file, at.line);
}

void cSTDExceptions::throwInvalidDecimal(const cAsciiString& text, unsigned int index, cCallSite at) {
  throwInvalidDecimal(text.c_str(), text.size(), index, at);
}

void cSTDExceptions::throwInvalidDecimal(const qucs::cString& text, unsigned int index, cCallSite at) {
  cAsciiString ascii;
  text.toAscii(ascii, '?');
  throwInvalidDecimal(ascii.c_str(), ascii.size(), index, at);
}

void cSTDExceptions::throwInvalidFractionalNumber(bool inIntegerPart, cCallSite at) {
  throw cRuntimeException(qucs::cLIMessage(inIntegerPart ? "$QTR$Invalid fractional number (non-factional part)!"
                                                         : "$QTR$Invalid fractional number!"),
                          at.file, at.line);
}

void cSTDExceptions::throwNumberConversion(const qucs::cString& text, unsigned int index, cCallSite at) {
  throw cNumberConversionException(text, index, at.file, at.line);
}

void cSTDExceptions::throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format,
                                         const qucs::cString& file, unsigned int row, unsigned int column,
                                         cCallSite at) {
  throw cTextParseException(msg, format, file, row, column, at.file, at.line);
}

void cSTDExceptions::throwTextParseError(const qucs::cLIMessage& msg, const cAsciiString& format, unsigned int row,
                                         unsigned int column, cCallSite at) {
  throw cTextParseException(msg, format, row, column, at.file, at.line);
}

void cSTDExceptions::throwWrongAnyDereference(const cAsciiString& type, const cAsciiString& contains, cCallSite at) {
  throw cTypeMissmatchException(qucs::cLIMessage("$QTR$User requested object of wrong type (\"%type%\") from type "
                                                 "cAny which contains \"%contains%\"!")
                                    << type << contains,
                                type, contains, at.file, at.line);
}

void cSTDExceptions::throwTypeError(const cAsciiString& type, cCallSite at) {
  throw cTypeErrorException(type, at.file, at.line);
}

void cSTDExceptions::throwTypeMissmatch(const cAsciiString& expected, const cAsciiString& assigned, cCallSite at) {
  throw cTypeMissmatchException(expected, assigned, at.file, at.line);
}

void cSTDExceptions::throwOSError(const cAsciiString& operation, int osErrorCode, cCallSite at) {
  throw cOSErrorException(operation, osErrorCode, at.file, at.line);
}

void cSTDExceptions::throwOSError(const cAsciiString& operation, int osErrorCode, const qucs::cString& file,
                                  cCallSite at) {
  throw cOSErrorException(operation, osErrorCode, file, at.file, at.line);
}

void cSTDExceptions::throwOutOfMemory(cCallSite at) {
  // No message parts: rendering goes through toMessage()'s fixed text.
  cRuntimeException e(qucs::cLIMessage(), at.file, at.line);
  static_cast<cAbstractException&>(e).setOutOfMemoryCondition(true);
  throw e;
}

void cSTDExceptions::throwUnknownExceptionType(const cAsciiString& typeName, cCallSite at) {
  throw cRuntimeException(qucs::cLIMessage("$QTR$Unknown exception type %s%!") << typeName, at.file, at.line);
}

void cSTDExceptions::throwBug(const qucs::cLIMessage& msg, const char* file, unsigned int line) {
  throw cBugException(msg, file, line);
}

void cSTDExceptions::throwRuntime(const qucs::cLIMessage& msg, const char* file, unsigned int line) {
  throw cRuntimeException(msg, file, line);
}

}  // namespace qstd
