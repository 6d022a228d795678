#include "qelcore/pi/cabstractout.h"

#include <gtest/gtest.h>

#include "qelcore/pi/cdebugstderr.h"

#include "support/capturingout.h"

using qeltest::cCapturingOut;
using qpi::cAbstractOut;

TEST(DebugOutput, EntriesCarryTextFileAndLine) {
  cCapturingOut out;
  const unsigned int line = __LINE__ + 1;
  QEL_WARNING("disk almost full");
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].text, "disk almost full");
  EXPECT_EQ(entries[0].file, __FILE__);
  EXPECT_EQ(entries[0].line, line);
  EXPECT_EQ(entries[0].level, cAbstractOut::LevelWarning);
}

TEST(DebugOutput, InstallReplacesAndRestoresTheProcessOutput) {
  cAbstractOut* before = &cAbstractOut::current();
  {
    cCapturingOut out;
    EXPECT_EQ(&cAbstractOut::current(), &out);
  }
  EXPECT_EQ(&cAbstractOut::current(), before);
}

TEST(DebugOutput, TextIsNotEvaluatedForFilteredEntries) {
  cCapturingOut out;
  ASSERT_TRUE(out.setFilter("warning"));
  int evaluated = 0;
  auto text = [&] {
    ++evaluated;
    return "x";
  };
  QEL_TRACE(text());
  EXPECT_EQ(evaluated, 0);
  QEL_ERROR(text());
  EXPECT_EQ(evaluated, 1);
  EXPECT_EQ(out.entries().size(), 1u);
}

TEST(DebugOutputFilter, LevelsAndLongestPatternDecide) {
  cCapturingOut out;
  ASSERT_TRUE(out.setFilter("warning, rmi/=trace, rmi/cpublic=error"));
  EXPECT_FALSE(out.enabled(cAbstractOut::LevelInfo, "src/qelcore/pi/cwork.cpp"));
  EXPECT_TRUE(out.enabled(cAbstractOut::LevelWarning, "src/qelcore/pi/cwork.cpp"));
  EXPECT_TRUE(out.enabled(cAbstractOut::LevelTrace, "src/qelcore/rmi/csignal.cpp"));
  EXPECT_FALSE(out.enabled(cAbstractOut::LevelWarning, "src/qelcore/rmi/cpublicslot.cpp"));
  EXPECT_TRUE(out.setFilter("none"));
  EXPECT_FALSE(out.enabled(cAbstractOut::LevelError, "a.cpp"));
  EXPECT_TRUE(out.setFilter("all"));
  EXPECT_TRUE(out.enabled(cAbstractOut::LevelTrace, "a.cpp"));
}

TEST(DebugOutputFilter, MalformedFilterIsRejectedAndKeepsTheOldOne) {
  cCapturingOut out;
  ASSERT_TRUE(out.setFilter("error"));
  EXPECT_FALSE(out.setFilter("loud"));
  EXPECT_FALSE(out.setFilter("=trace"));
  EXPECT_FALSE(out.setFilter("rmi/=sometimes"));
  EXPECT_FALSE(out.setFilter(nullptr));
  EXPECT_FALSE(out.enabled(cAbstractOut::LevelWarning, "a.cpp"));
  EXPECT_TRUE(out.enabled(cAbstractOut::LevelError, "a.cpp"));
}

TEST(DebugOutput, StandardErrorDefaultKeepsTraceLinesQuiet) {
  EXPECT_STREQ(qpi::cDebugStdErr::defaultFilter(), "warning");
}

namespace {
// Not inlined, so that it shows up as a frame of its own.
#if defined(__GNUC__)
__attribute__((noinline))
#endif
unsigned int
captureHere(std::uintptr_t* frames) {
  // Stored before it is returned, so that the call is no tail call either.
  volatile unsigned int n = cAbstractOut::captureBacktrace(frames, cAbstractOut::MaxBacktrace);
  return n;
}
}  // namespace

TEST(DebugOutput, BacktraceCapturesTheCallersStack) {
  std::uintptr_t frames[cAbstractOut::MaxBacktrace] = {};
  unsigned int n = captureHere(frames);
  ASSERT_GE(n, 2u);
  ASSERT_LE(n, cAbstractOut::MaxBacktrace);
  for (unsigned int i = 0; i < n; ++i) EXPECT_NE(frames[i], 0u);

  cCapturingOut out;
  out.writeStackTrace(cAbstractOut::LevelWarning, "where am I", __FILE__, __LINE__);
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].text.rfind("where am I\n  #0 0x", 0), 0u);
}

TEST(DebugOutput, StackTracesNameTheProgramsOwnFunctions) {
  // The test program exports nothing: the name comes from its symbol table.
  std::uintptr_t frames[cAbstractOut::MaxBacktrace] = {};
  ASSERT_GE(captureHere(frames), 1u);
  cCapturingOut out;
  out.writeBacktrace(cAbstractOut::LevelWarning, "here", frames, 1, __FILE__, __LINE__);
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_NE(entries[0].text.find("captureHere("), std::string::npos) << entries[0].text;
}
