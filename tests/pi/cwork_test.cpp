#include "qelcore/pi/cwork.h"

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractaiodata.h"
#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"
#include "support/worktestutil.h"

using qpi::cWork;

TEST(Work, StartingAsASingleTaskDropsTheIntervalButNotTheDelay) {
  cWork w;
  EXPECT_FALSE(w.isStarted());
  EXPECT_EQ(w.plannedTime().get(), 0u);
  w.start(500, cWork::SingleTask);
  EXPECT_TRUE(w.isStarted());
  EXPECT_EQ(w.interval(), 0u);
  EXPECT_EQ(w.type(), cWork::SingleTask);
  EXPECT_EQ((w.plannedTime() - w.scheduledTime()).toMSec(), 500u);
  EXPECT_FALSE(w.isKeep());

  w.start(40, cWork::AsyncIO);  // any nonzero type means periodic
  EXPECT_EQ(w.type(), cWork::Periodic);
  EXPECT_EQ(w.interval(), 40u);
  EXPECT_TRUE(w.isKeep());
  w.stop();
  EXPECT_FALSE(w.isStarted());
  w.start();
  EXPECT_EQ(w.type(), cWork::Periodic);
  EXPECT_EQ((w.plannedTime() - w.scheduledTime()).toMSec(), 40u);
  EXPECT_EQ(w.statistic().numStarted(), 3u);
}

TEST(Work, IODataStartsAndStopsTheWork) {
  cWork w;
  EXPECT_FALSE(w.hasAIOData());
  try {
    w.aioData();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(qeltest::textOf(e), "Work does not own asynchronous I/O data!");
  }
  qpi::cFDAIOData* data = new qpi::cFDAIOData;
  data->addFd(7, qpi::tFdInfo::Read);
  w.setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(data));
  EXPECT_TRUE(w.isStarted());
  EXPECT_EQ(w.type(), cWork::AsyncIO);
  EXPECT_EQ(&w.aioData().fdAIOData(), data);
  EXPECT_EQ(data->fds()[0], (qpi::tFdInfo{7, qpi::tFdInfo::Read}));

  w.setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>());
  EXPECT_FALSE(w.isStarted());
  EXPECT_EQ(w.type(), cWork::AsyncIO);

  qpi::cAbstractAIOData plain;
  try {
    plain.fdAIOData();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(qeltest::textOf(e), "Asynchronous I/O data does not have file descriptor information!");
  }
}

TEST(Work, ActionWithoutReceiversDoesNothingAndCountsTheTrigger) {
  cWork w;
  w.setDebug(true);
  w.start(0, cWork::SingleTask);
  w.action();
  EXPECT_EQ(w.statistic().numTriggered(), 1u);
  ASSERT_TRUE(w.statistic().hasDebugInfo());
  EXPECT_NE(w.statistic().debugInfo()->lastTrigger.get(), 0u);
  EXPECT_NE(w.statistic().debugInfo()->startTraceLength, 0u);
}

TEST(Work, NamesReadBackAsGivenWhateverTheirLength) {
  cWork w;
  EXPECT_EQ(w.name(), "");
  // 23 characters are kept inside the work, 24 are not: both read back.
  w.setName("twenty-three characters");
  EXPECT_EQ(w.name(), "twenty-three characters");
  cWork v;
  v.setName("twenty-four characters!!");
  EXPECT_EQ(v.name(), "twenty-four characters!!");
  v.setName("short");
  EXPECT_EQ(v.name(), "short");
  v.setName(qstd::cAsciiString("from a string"));
  EXPECT_EQ(v.name(), "from a string");
  v.setName(static_cast<const char*>(nullptr));
  EXPECT_EQ(v.name(), "");

  // The text is copied: the caller's buffer may change afterwards.
  char buffer[] = "first";
  cWork u;
  u.setName(buffer);
  buffer[0] = 'X';
  EXPECT_EQ(u.name(), "first");
  u.setName("second");
  EXPECT_EQ(u.name(), "second");
}
