#include "qelcore/pi/cplatform.h"

#include <atomic>
#include <cstdlib>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractmuteximpl.h"
#include "qelcore/pi/cabstractplatforminfo.h"
#include "qelcore/pi/cabstractrunnableimpl.h"
#include "qelcore/pi/cpiexceptionfactory.h"
#include "qelcore/pi/cunsupportedplatformexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"

using qpi::cPlatform;

namespace {

bool onWindows() { return cPlatform::createPlatformInfo()->platformName() == "Win32"; }

}  // namespace

TEST(PlatformQueries, EnvironmentUserAndHost) {
  EXPECT_EQ(cPlatform::getEnv("QEL_SURELY_NOT_SET_ANYWHERE"), "");
  const char* user = std::getenv("USER");
  EXPECT_EQ(cPlatform::userName(), user ? user : "unknown");
  EXPECT_NE(cPlatform::hostname().size(), 0u);
  EXPECT_NE(cPlatform::pid(), 0u);
  EXPECT_EQ(cPlatform::osSpecificPathDelimiter(), onWindows() ? '\\' : '/');
  EXPECT_NE(cPlatform::homeDirectory().size(), 0u);
  cPlatform::buildChecks();
}

TEST(PlatformQueries, ErrorTextsAreOneLineAndUnknownCodesSaySo) {
  const qstd::cAsciiString known = cPlatform::osFileIOErrorString(2);  // no such file on both systems
  EXPECT_NE(known.size(), 0u);
  EXPECT_NE(known, "Unable to get error string!");
  for (unsigned int i = 0; i < known.size(); ++i) {
    EXPECT_NE(known.c_str()[i], '\n');
    EXPECT_NE(known.c_str()[i], '\r');
  }
  EXPECT_EQ(cPlatform::osFileIOErrorString(987654321), "Unable to get error string!");
}

TEST(PlatformMutex, IsRecursiveAndTryLockFollowsThePlatform) {
  qstd::tAutoPtr<qpi::cAbstractMutexImpl> m(cPlatform::createMutexImpl());
  m->lock();
  m->lock();
  m->unlock();
  m->unlock();
  if (onWindows()) {
    for (int i = 0; i < 2; ++i) {
      try {
        m->tryLock();
        FAIL();
      } catch (const qstd::cRuntimeException& e) {
        EXPECT_EQ(qeltest::textOf(e), "Trylock is not supported on win32 yet!");
      }
    }
  } else {
    ASSERT_TRUE(m->tryLock());
    std::atomic<int> other{-1};
    std::pair<qpi::cAbstractMutexImpl*, std::atomic<int>*> args(m.get(), &other);
    qstd::tAutoPtr<qpi::cAbstractRunnableImpl> t(cPlatform::createThread(
        [](void* p) {
          auto* a = static_cast<std::pair<qpi::cAbstractMutexImpl*, std::atomic<int>*>*>(p);
          *a->second = a->first->tryLock() ? 1 : 0;
        },
        &args));
    t->start();
    t->stop();
    EXPECT_EQ(other.load(), 0) << "another thread cannot take a held mutex";
    m->unlock();
  }
}

// On Windows stop() suspends the thread before waiting for it, so it may
// only be called once the thread function has returned: wait for its mark,
// then give the thread a moment to leave.
static void waitForRuns(const std::atomic<int>& runs, int count) {
  while (runs.load() < count) cPlatform::yield();
  for (int i = 0; i < 20; ++i) cPlatform::yield();
}

TEST(PlatformThread, RunsItsFunctionAndCanBeRestarted) {
  std::atomic<int> runs{0};
  qstd::tAutoPtr<qpi::cAbstractRunnableImpl> t(
      cPlatform::createThread([](void* p) { ++*static_cast<std::atomic<int>*>(p); }, &runs));
  t->stop();  // not started: nothing to do
  t->start();
  waitForRuns(runs, 1);
  t->stop();
  EXPECT_EQ(runs.load(), 1);
  t->start();
  waitForRuns(runs, 2);
  t->start();  // stops the first thread before the second
  waitForRuns(runs, 3);
  t->stop();
  EXPECT_EQ(runs.load(), 3);
}
