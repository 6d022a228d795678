#include "qelcore/std/cabstractexception.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "support/capturingout.h"
#include "support/exceptiontext.h"

using namespace qstd;
using qeltest::textOf;
using qucs::cLIMessage;
using qucs::cString;

namespace {

std::string text(const cString& s) { return s.ascii('?').c_str(); }

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

TEST(cAbstractException, FixedBuffersCutLongTexts) {
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

TEST(cAbstractException, ChainLinksAtTheEndAndCopiesDeeply) {
  cBugException outer(cLIMessage("$QTR$outer"), "a.cpp", 1);
  outer.link(cRuntimeException(cLIMessage("$QTR$first"), "b.cpp", 2));
  outer.link(cOutOfRangeException("c", "o", OutOfRangeValue, 4, 0, 3));
  ASSERT_NE(outer.history(), nullptr);
  EXPECT_EQ(textOf(*outer.history()), "first");
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
  EXPECT_EQ(textOf(*copy.history()->history()), textOf(*third));
  cBugException assigned;
  assigned = outer;
  EXPECT_STREQ(assigned.history()->history()->typeName().c_str(), "cOutOfRangeException");

  cBugException other(cLIMessage("$QTR$other"), "x.cpp", 5);
  other.swap(copy);
  EXPECT_EQ(textOf(other), "outer");
  EXPECT_NE(other.history(), nullptr);
  EXPECT_EQ(copy.history(), nullptr);
  EXPECT_STREQ(copy.sourceFileName(), "x.cpp");
}

TEST(cAbstractException, CreateMessageRendersTheChainByFlags) {
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

TEST(cAbstractException, ToMessageAndOutOfMemory) {
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

TEST(cAbstractException, DumpWritesOneEntryPerException) {
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

TEST(cAbstractException, MeDumpWritesAStackTraceOnConstruction) {
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
