#include <cstdlib>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/ctextparseexception.h"
#include "qelcore/std/ctypeerrorexception.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "support/capturingout.h"

using namespace qstd;
using qucs::cLIMessage;
using qucs::cString;

namespace {

std::string text(const cAbstractException& e) {
  cAsciiString out;
  EXPECT_NE(e.liMessage(), nullptr);
  if (e.liMessage()) e.liMessage()->untranslated(out);
  return out.c_str();
}

std::string text(const cString& s) { return s.ascii('?').c_str(); }

// Runs `f`, which must throw E, and returns the untranslated message.
template <typename E, typename F>
std::string thrown(F f) {
  try {
    f();
  } catch (const E& e) {
    return text(e);
  }
  ADD_FAILURE() << "nothing thrown";
  return std::string();
}

// An exception without a message, to reach the base directly.
class cPlainException : public cAbstractException {
public:
  cPlainException(const char* what = "plain", const char* file = "f.cpp", unsigned int line = 1)
      : cAbstractException(what, TypeRuntime, file, line) {}
  cAbstractException* createObject() const override { return new cPlainException; }
  cAsciiString typeName() const override { return cAsciiString("cPlainException"); }
};

void setMe(const char* value) {
#if defined(_WIN32)
  _putenv_s("ME", value ? value : "");
#else
  if (value)
    setenv("ME", value, 1);
  else
    unsetenv("ME");
#endif
}

}  // namespace

TEST(Exceptions, ThrowFunctionTexts) {
  EXPECT_EQ(thrown<cBugException>([] { cSTDExceptions::throwAssertionFailed("a != 0", "std/tarray", 12); }),
            "Assertion failed in file std/tarray:12. (a != 0)!");
  EXPECT_EQ(thrown<cBugException>([] { cSTDExceptions::throwAssertionFailed(nullptr, nullptr, 3); }),
            "Assertion failed in file unknown file:3. (unknown)!");
  EXPECT_EQ(thrown<cBugException>([] { cSTDExceptions::throwCoreBug("state", "x.cpp", 1); }),
            "Bug (\"state\") detected!");
  EXPECT_EQ(thrown<cBugException>([] { cSTDExceptions::throwUnsupportedOperation(cAsciiString("fly")); }),
            "The operation \"fly\" is not supported!");
  EXPECT_EQ(thrown<cRuntimeException>([] { cSTDExceptions::throwUnexpectedEndOfInput(); }), "Unexpected end of input!");
  EXPECT_EQ(thrown<cBugException>([] { cSTDExceptions::throwElementNotFound(nullptr, "get"); }),
            "Element could not be found in \"unknown\" while operation \"get\"!");
  EXPECT_EQ(thrown<cRuntimeException>([] { cSTDExceptions::throwInvalidDecimalBase(40, 2, 36); }),
            "Invalid base for a decimal. The base must be between 2 and 36 but is 40!");
  EXPECT_EQ(thrown<cRuntimeException>([] { cSTDExceptions::throwInvalidDecimal(cString(L"1\u00e92"), 1); }),
            "Invalid decimal number (\"1?2\"). Character at index 1 not points to digit!");
  EXPECT_EQ(thrown<cTypeMissmatchException>(
                [] { cSTDExceptions::throwWrongAnyDereference(cAsciiString("int"), cAsciiString("double")); }),
            "User requested object of wrong type (\"int\") from type cAny which contains \"double\"!");
  EXPECT_EQ(thrown<cTypeErrorException>([] { cSTDExceptions::throwTypeError(cAsciiString("cFoo")); }),
            "Type error while deserializing of cFoo!");
  EXPECT_EQ(
      thrown<cTypeMissmatchException>([] { cSTDExceptions::throwTypeMissmatch(cAsciiString("A"), cAsciiString("B")); }),
      "Type mismatch: Expecting type \"A\" but got object of type \"B\"!");
  EXPECT_EQ(thrown<cOSErrorException>([] { cSTDExceptions::throwOSError(cAsciiString("open"), 2); }),
            "OS-Error while trying operation \"open\"!");
  EXPECT_EQ(thrown<cOSErrorException>([] { cSTDExceptions::throwOSError(cAsciiString("open"), 2, cString("a.txt")); }),
            "OS-Error while trying operation \"open\" on file \"a.txt\"!");
  EXPECT_EQ(thrown<cNumberConversionException>([] { cSTDExceptions::throwNumberConversion(cString("12x"), 2); }),
            "Number conversion error. \"12x\" contains invalid characters at index 2!");
  EXPECT_EQ(thrown<cRuntimeException>([] { cSTDExceptions::throwUnknownExceptionType(cAsciiString("cX")); }),
            "Unknown exception type cX!");

  EXPECT_EQ(thrown<cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds("tArray", "erase"); }),
            "Out of bounds condition detected in \"tArray\" while executing \"erase\"!");
  EXPECT_EQ(thrown<cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds("tArray", nullptr); }),
            "Out of bounds condition detected in \"tArray\"!");
  EXPECT_EQ(thrown<cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds(nullptr, nullptr); }),
            "Out of bounds condition detected!");
}

TEST(Exceptions, ThrowFunctionsCarryKindAndAccessors) {
  try {
    QEL_ASSERT(1 + 1 == 3, "std/test");
    FAIL();
  } catch (const cBugException& e) {
    EXPECT_EQ(e.type(), cAbstractException::TypeBug);
    EXPECT_STREQ(e.what(), "bug");
    EXPECT_STREQ(e.sourceFileName(), "std/test");
    EXPECT_NE(text(e).find("(1 + 1 == 3)"), std::string::npos);
  }
  try {
    cSTDExceptions::throwTextParseError(cLIMessage("$QTR$Bad %what%") << "row", cAsciiString("ini"), cString("a.ini"),
                                        3, 7);
  } catch (const cTextParseException& e) {
    EXPECT_EQ(e.type(), cAbstractException::TypeRuntime);
    EXPECT_STREQ(e.what(), "runtime");
    EXPECT_EQ(text(e), "Bad row");
    EXPECT_STREQ(e.format().c_str(), "ini");
    EXPECT_TRUE(e.fileName() == "a.ini");
    EXPECT_EQ(e.row(), 3u);
    EXPECT_EQ(e.column(), 7u);
  }
  cOSErrorException os(cAsciiString("read"), 13);
  EXPECT_EQ(os.osErrorCode(), 13);
  EXPECT_STREQ(os.operation().c_str(), "read");
}

TEST(Exceptions, OutOfRangeAlwaysUsesTheIndexText) {
  for (int type = OutOfRangeIndex; type <= OutOfRangeEndValue; ++type) {
    try {
      cSTDExceptions::throwOutOfRange("tArray", "erase", static_cast<OutOfRangeType>(type), 7, 0, 5);
      FAIL();
    } catch (const cOutOfRangeException& e) {
      EXPECT_EQ(text(e), "Index out of range in tArray / erase. The index should be between 0 - 5 but is 7!");
      EXPECT_EQ(e.outOfRangeType(), type);
      EXPECT_EQ(e.errornousValue(), 7);
      EXPECT_EQ(e.minValue(), 0);
      EXPECT_EQ(e.maxValue(), 5);
    }
  }
  cOutOfRangeException e(nullptr, nullptr, OutOfRangeSize, -1, -9223372036854775807LL - 1, 3);
  EXPECT_EQ(text(e),
            "Index out of range in unknown / unknown. The index should be between -9223372036854775808 - 3 "
            "but is -1!");
}

TEST(Exceptions, FixedBuffersCutLongTexts) {
  std::string longFile(70, 'f');
  std::string longText(300, 't');
  cPlainException e(longText.c_str(), longFile.c_str(), 9);
  EXPECT_EQ(std::string(e.sourceFileName()), std::string(60, 'f'));
  EXPECT_EQ(std::string(e.what()), std::string(255, 't'));
  EXPECT_EQ(e.sourceFileLine(), 9u);
  cPlainException none(nullptr, nullptr, 0);
  EXPECT_STREQ(none.what(), "");
  EXPECT_STREQ(none.sourceFileName(), "");
  EXPECT_GT(e.backtraceSize(), 0u);
  EXPECT_LE(e.backtraceSize(), 64u);
  EXPECT_NE(e.backtrace()[0], 0u);
  cBugException defaulted;
  EXPECT_STREQ(defaulted.sourceFileName(), "unknown");
  EXPECT_EQ(defaulted.sourceFileLine(), 0u);
}

TEST(Exceptions, ChainLinksAtTheEndAndCopiesDeeply) {
  cBugException outer(cLIMessage("$QTR$outer"), "a.cpp", 1);
  outer.link(cRuntimeException(cLIMessage("$QTR$first"), "b.cpp", 2));
  outer.link(cOutOfRangeException("c", "o", OutOfRangeValue, 4, 0, 3));
  ASSERT_NE(outer.history(), nullptr);
  EXPECT_EQ(text(*outer.history()), "first");
  ASSERT_NE(outer.history()->history(), nullptr);
  const cAbstractException* third = outer.history()->history();
  EXPECT_STREQ(third->typeName().c_str(), "cOutOfRangeException");
  // The copy in the chain keeps the derived fields.
  EXPECT_EQ(dynamic_cast<const cOutOfRangeException&>(*third).errornousValue(), 4);
  EXPECT_EQ(third->history(), nullptr);

  EXPECT_EQ(outer.has(cAsciiString("cBugException")), &outer);
  EXPECT_EQ(outer.has(cAsciiString("cOutOfRangeException")), third);
  EXPECT_EQ(outer.has(cAsciiString("cTypeErrorException")), nullptr);

  cBugException copy(outer);
  EXPECT_NE(copy.history(), outer.history());
  EXPECT_EQ(text(*copy.history()->history()), text(*third));
  cBugException assigned;
  assigned = outer;
  EXPECT_STREQ(assigned.history()->history()->typeName().c_str(), "cOutOfRangeException");

  cBugException other(cLIMessage("$QTR$other"), "x.cpp", 5);
  other.swap(copy);
  EXPECT_EQ(text(other), "outer");
  EXPECT_NE(other.history(), nullptr);
  EXPECT_EQ(copy.history(), nullptr);
  EXPECT_STREQ(copy.sourceFileName(), "x.cpp");
}

TEST(Exceptions, CreateMessageRendersTheChainByFlags) {
  cBugException e(cLIMessage("$QTR$one"), "a.cpp", 1);
  e.link(cRuntimeException(cLIMessage("$QTR$two"), "b.cpp", 2));
  e.link(cPlainException("three"));
  cString out("old");
  e.createMessage(out, cString(": "), 0, nullptr);
  EXPECT_EQ(text(out), "one");
  e.createMessage(out, cString(": "), 0x1, nullptr);
  EXPECT_EQ(text(out), "one: two: three");
  e.createMessage(out, cString(": "), 0x5, nullptr);
  EXPECT_EQ(text(out), "one:  two:   three");
  e.createMessage(out, cString(": "), 0x4 | 0x2, nullptr);
  EXPECT_EQ(text(out), "one");

  qucs::cLITrTable table;
  table.add(cAsciiString("two"), cString("zwei"));
  qucs::cLILocale german(cAsciiString("de"), table);
  e.createMessage(out, cString("/"), 0x1, &german);
  EXPECT_EQ(text(out), "one/zwei/three");
}

TEST(Exceptions, ToMessageAndOutOfMemory) {
  cPlainException plain("no message");
  cLIMessage m = plain.toMessage();
  cAsciiString s;
  m.untranslated(s);
  EXPECT_STREQ(s.c_str(), "no message");

  cBugException bug(cLIMessage("$QTR$File %f% gone") << "x", "a.cpp", 1);
  bug.toMessage().untranslated(s);
  EXPECT_STREQ(s.c_str(), "File x gone");
  EXPECT_FALSE(bug.hasOutOfMemoryCondition());

  try {
    cSTDExceptions::throwOutOfMemory();
  } catch (const cRuntimeException& oom) {
    EXPECT_TRUE(oom.outOfMemoryCondition());
    bug.link(oom);
  }
  EXPECT_FALSE(bug.outOfMemoryCondition());
  EXPECT_TRUE(bug.hasOutOfMemoryCondition());
  bug.toMessage().untranslated(s);
  EXPECT_STREQ(s.c_str(), "Out of memory!");
  EXPECT_TRUE(bug.toMessage().isTranslatable());
}

TEST(Exceptions, DumpWritesOneEntryPerException) {
  qeltest::cCapturingOut out;
  cBugException e(cLIMessage("$QTR$broken %x%") << 5, "a.cpp", 4);
  e.link(cPlainException("plain", "b.cpp", 8));
  out.clear();
  e.dump();
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_NE(entries[0].text.find("cBugException (bug)"), std::string::npos);
  EXPECT_NE(entries[0].text.find("broken 5"), std::string::npos);
  EXPECT_EQ(entries[0].file, "a.cpp");
  EXPECT_EQ(entries[0].line, 4u);
  EXPECT_NE(entries[1].text.find("cPlainException (runtime) --- no message ---"), std::string::npos);
}

TEST(Exceptions, MeDumpWritesAStackTraceOnConstruction) {
  qeltest::cCapturingOut out;
  setMe(nullptr);
  { cBugException quiet(cLIMessage("$QTR$q"), "q.cpp", 1); }
  EXPECT_TRUE(out.entries().empty());
  setMe("dump");
  { cRuntimeException loud(cLIMessage("$QTR$l"), "loud.cpp", 2); }
  setMe(nullptr);
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].level, qpi::cAbstractOut::LevelWarning);
  EXPECT_EQ(entries[0].file, "loud.cpp");
  EXPECT_NE(entries[0].text.find("runtime"), std::string::npos);
  EXPECT_NE(entries[0].text.find("#0"), std::string::npos);
}

TEST(Exceptions, FactoryKnowsTheFoundationClasses) {
  const char* names[] = {"cBugException",        "cRuntimeException",       "cOutOfBoundsException",
                         "cOutOfRangeException", "cOSErrorException",       "cTextParseException",
                         "cTypeErrorException",  "cTypeMissmatchException", "cNumberConversionException"};
  cSTDExceptionFactory factory;
  for (const char* name : names) {
    cAbstractException* e = factory.createException(cAsciiString(name));
    ASSERT_NE(e, nullptr) << name;
    EXPECT_STREQ(e->typeName().c_str(), name);
    cAbstractException* again = e->createObject();
    EXPECT_STREQ(again->typeName().c_str(), name);
    delete again;
    delete e;
  }
  EXPECT_EQ(factory.createException(cAsciiString("cNoSuchException")), nullptr);
  EXPECT_EQ(factory.createException(cAsciiString("cBugExceptionX")), nullptr);
}
