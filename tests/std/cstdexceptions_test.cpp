#include "qelcore/std/cstdexceptions.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>

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
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"

using namespace qstd;
using qeltest::textOf;
using qeltest::thrownText;
using qucs::cLIMessage;
using qucs::cString;

TEST(cSTDExceptions, ThrowFunctionTexts) {
  EXPECT_EQ(thrownText<cBugException>([] { cSTDExceptions::throwAssertionFailed("a != 0", "std/tarray", 12); }),
            "Assertion failed in file std/tarray:12. (a != 0)!");
  EXPECT_EQ(thrownText<cBugException>([] { cSTDExceptions::throwAssertionFailed(nullptr, nullptr, 3); }),
            "Assertion failed in file unknown file:3. (unknown)!");
  EXPECT_EQ(thrownText<cBugException>([] { cSTDExceptions::throwCoreBug("state", "x.cpp", 1); }),
            "Bug (\"state\") detected!");
  EXPECT_EQ(thrownText<cBugException>([] { cSTDExceptions::throwUnsupportedOperation(cAsciiString("fly")); }),
            "The operation \"fly\" is not supported!");
  EXPECT_EQ(thrownText<cRuntimeException>([] { cSTDExceptions::throwUnexpectedEndOfInput(); }),
            "Unexpected end of input!");
  EXPECT_EQ(thrownText<cBugException>([] { cSTDExceptions::throwElementNotFound(nullptr, "get"); }),
            "Element could not be found in \"unknown\" while operation \"get\"!");
  EXPECT_EQ(thrownText<cRuntimeException>([] { cSTDExceptions::throwInvalidDecimalBase(40, 2, 36); }),
            "Invalid base for a decimal. The base must be between 2 and 36 but is 40!");
  EXPECT_EQ(thrownText<cRuntimeException>([] { cSTDExceptions::throwInvalidDecimal(cString(L"1\u00e92"), 1); }),
            "Invalid decimal number (\"1?2\"). Character at index 1 not points to digit!");
  EXPECT_EQ(thrownText<cTypeMissmatchException>(
                [] { cSTDExceptions::throwWrongAnyDereference(cAsciiString("int"), cAsciiString("double")); }),
            "User requested object of wrong type (\"int\") from type cAny which contains \"double\"!");
  EXPECT_EQ(thrownText<cTypeErrorException>([] { cSTDExceptions::throwTypeError(cAsciiString("cFoo")); }),
            "Type error while deserializing of cFoo!");
  EXPECT_EQ(thrownText<cTypeMissmatchException>(
                [] { cSTDExceptions::throwTypeMissmatch(cAsciiString("A"), cAsciiString("B")); }),
            "Type mismatch: Expecting type \"A\" but got object of type \"B\"!");
  EXPECT_EQ(thrownText<cOSErrorException>([] { cSTDExceptions::throwOSError(cAsciiString("open"), 2); }),
            "OS-Error while trying operation \"open\"!");
  EXPECT_EQ(
      thrownText<cOSErrorException>([] { cSTDExceptions::throwOSError(cAsciiString("open"), 2, cString("a.txt")); }),
      "OS-Error while trying operation \"open\" on file \"a.txt\"!");
  EXPECT_EQ(thrownText<cNumberConversionException>([] { cSTDExceptions::throwNumberConversion(cString("12x"), 2); }),
            "Number conversion error. \"12x\" contains invalid characters at index 2!");
  EXPECT_EQ(thrownText<cRuntimeException>([] { cSTDExceptions::throwUnknownExceptionType(cAsciiString("cX")); }),
            "Unknown exception type cX!");

  EXPECT_EQ(thrownText<cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds("tArray", "erase"); }),
            "Out of bounds condition detected in \"tArray\" while executing \"erase\"!");
  EXPECT_EQ(thrownText<cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds("tArray", nullptr); }),
            "Out of bounds condition detected in \"tArray\"!");
  EXPECT_EQ(thrownText<cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds(nullptr, nullptr); }),
            "Out of bounds condition detected!");
}

TEST(cSTDExceptions, ThrowFunctionsCarryKindAndAccessors) {
  try {
    QEL_ASSERT(1 + 1 == 3, "std/test");
    FAIL();
  } catch (const cBugException& e) {
    EXPECT_EQ(e.type(), cAbstractException::TypeBug);
    EXPECT_STREQ(e.what(), "bug");
    EXPECT_STREQ(e.sourceFileName(), "std/test");
    EXPECT_NE(textOf(e).find("(1 + 1 == 3)"), std::string::npos);
  }
  try {
    cSTDExceptions::throwTextParseError(cLIMessage("$QTR$Bad %what%") << "row", cAsciiString("ini"), cString("a.ini"),
                                        3, 7);
  } catch (const cTextParseException& e) {
    EXPECT_EQ(e.type(), cAbstractException::TypeRuntime);
    EXPECT_STREQ(e.what(), "runtime");
    EXPECT_EQ(textOf(e), "Bad row");
    EXPECT_STREQ(e.format().c_str(), "ini");
    EXPECT_TRUE(e.fileName() == "a.ini");
    EXPECT_EQ(e.row(), 3u);
    EXPECT_EQ(e.column(), 7u);
  }
  cOSErrorException os(cAsciiString("read"), 13);
  EXPECT_EQ(os.osErrorCode(), 13);
  EXPECT_STREQ(os.operation().c_str(), "read");
}

TEST(cSTDExceptions, OutOfRangeAlwaysUsesTheIndexText) {
  for (int type = OutOfRangeIndex; type <= OutOfRangeEndValue; ++type) {
    try {
      cSTDExceptions::throwOutOfRange("tArray", "erase", static_cast<OutOfRangeType>(type), 7, 0, 5);
      FAIL();
    } catch (const cOutOfRangeException& e) {
      EXPECT_EQ(textOf(e), "Index out of range in tArray / erase. The index should be between 0 - 5 but is 7!");
      EXPECT_EQ(e.outOfRangeType(), type);
      EXPECT_EQ(e.errornousValue(), 7);
      EXPECT_EQ(e.minValue(), 0);
      EXPECT_EQ(e.maxValue(), 5);
    }
  }
  cOutOfRangeException e(nullptr, nullptr, OutOfRangeSize, -1, -9223372036854775807LL - 1, 3);
  EXPECT_EQ(textOf(e),
            "Index out of range in unknown / unknown. The index should be between -9223372036854775808 - 3 "
            "but is -1!");
}

TEST(cSTDExceptions, ExceptionsCarryTheCallersFileAndLine) {
  const unsigned int first = __LINE__ + 2;
  const std::function<void()> calls[] = {
      [] { cSTDExceptions::throwUnsupportedOperation("fly"); },
      [] { cSTDExceptions::throwUnexpectedEndOfInput(); },
      [] { cSTDExceptions::throwOutOfBounds("c", "o"); },
      [] { cSTDExceptions::throwElementNotFound("c", "o"); },
      [] { cSTDExceptions::throwOutOfRange("c", "o", OutOfRangeSize, 7, 0, 5); },
      [] { cSTDExceptions::throwInvalidDecimalBase(40, 2, 36); },
      [] { cSTDExceptions::throwInvalidDecimal(cString("1x"), 1); },
      [] { cSTDExceptions::throwInvalidFractionalNumber(false); },
      [] { cSTDExceptions::throwNumberConversion(cString("1x"), 1); },
      [] { cSTDExceptions::throwTextParseError(cLIMessage("$QTR$bad"), cAsciiString("ini"), cString("a.ini"), 1, 2); },
      [] { cSTDExceptions::throwTextParseError(cLIMessage("$QTR$bad"), cAsciiString("ini"), 1, 2); },
      [] { cSTDExceptions::throwWrongAnyDereference(cAsciiString("int"), cAsciiString("double")); },
      [] { cSTDExceptions::throwTypeError(cAsciiString("cFoo")); },
      [] { cSTDExceptions::throwTypeMissmatch(cAsciiString("A"), cAsciiString("B")); },
      [] { cSTDExceptions::throwOSError(cAsciiString("open"), 2); },
      [] { cSTDExceptions::throwOSError(cAsciiString("open"), 2, cString("a.txt")); },
      [] { cSTDExceptions::throwOutOfMemory(); },
      [] { cSTDExceptions::throwUnknownExceptionType(cAsciiString("cX")); },
  };
  qeltest::expectThrownFromTheirLines(calls, __FILE__, first);

  // Checks inside the library's templates report their own place.
  tArray<char> array;
  try {
    array.at(3);
    FAIL();
  } catch (const cOutOfRangeException& e) {
    EXPECT_NE(std::string(e.sourceFileName()).find("qelcore/std/"), std::string::npos) << e.sourceFileName();
    EXPECT_GT(e.sourceFileLine(), 0u);
  }
}
