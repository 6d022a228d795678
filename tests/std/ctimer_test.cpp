#include "qelcore/std/ctimer.h"

#include <gtest/gtest.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/std/ctime.h"

using qstd::cTimer;

namespace {

class cListener : public qrmi::cConnectable {
public:
  explicit cListener(cTimer& t) : mTimer(t) { t.sigElapsed.connect(*this, &cListener::sltElapsed); }
  int fired = 0;
  bool elapsedInSlot = false;
  qsa::piVoid sltElapsed() {
    ++fired;
    elapsedInSlot = mTimer.isElapsed();
    return qsa::piVoid();
  }

private:
  cTimer& mTimer;
};

// Runs the main loop until `done` or a generous time limit.
template <class F>
void runUntil(F done) {
  const qstd::cTime start;
  while (!done() && start.diff().toSec() < 10) qpi::system().exec();
}

}  // namespace

TEST(Timer, SingleShotStaysElapsedUntilReset) {
  cTimer t;
  cListener l(t);
  EXPECT_EQ(t.work().name(), "qstd::cTimer");
  t.reset();  // never started: only clears the flag
  EXPECT_FALSE(t.isElapsed());
  t.setSingleShot(5);
  EXPECT_FALSE(t());
  runUntil([&] { return l.fired > 0; });
  EXPECT_EQ(l.fired, 1);
  EXPECT_TRUE(l.elapsedInSlot);
  qpi::system().exec();
  EXPECT_TRUE(t.isElapsed());
  EXPECT_EQ(l.fired, 1);
  t.reset();
  EXPECT_FALSE(t.isElapsed());
}

TEST(Timer, PeriodicIsElapsedOnlyWhileItSignals) {
  cTimer t;
  cListener l(t);
  t.setInterval(1);
  runUntil([&] {
    EXPECT_FALSE(t.isElapsed());
    return l.fired >= 3;
  });
  EXPECT_GE(l.fired, 3);
  EXPECT_TRUE(l.elapsedInSlot);
  t.reset();
  const int fired = l.fired;
  for (int i = 0; i < 3; ++i) qpi::system().exec();
  EXPECT_EQ(l.fired, fired);
}

TEST(Timer, TheIntervalConstructorStartsAWorkThatReachesNoSlot) {
  cTimer t(1);
  cListener l(t);
  EXPECT_TRUE(t.work().isStarted());
  EXPECT_EQ(t.work().type(), qpi::cWork::Periodic);
  EXPECT_EQ(t.work().name(), "");
  const qstd::cTime start;
  while (start.diff().toMSec() < 20) qpi::system().exec();
  EXPECT_GT(t.work().statistic().numTriggered(), 0u);
  EXPECT_EQ(l.fired, 0);
  EXPECT_FALSE(t.isElapsed());
}

TEST(Timer, OutlivesTheSystem) {
  cTimer t;
  t.setInterval(50);
  qpi::cSystem::cleanup();
  t.reset();
}
