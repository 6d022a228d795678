#include "qelcore/qp/cabstractrunnable.h"

#include <atomic>

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractplatforminfo.h"
#include "qelcore/pi/clocaleventprocessor.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"

#include "support/capturingout.h"
#include "support/runnabletestutil.h"

using qp::cAbstractRunnable;

namespace {

bool onWindows() { return qpi::cPlatform::createPlatformInfo()->platformName() == "Win32"; }

// Counts its runs; loops until asked to stop when `loop` is set.
class cWorker : public cAbstractRunnable {
public:
  explicit cWorker(bool loop = false) : mbLoop(loop) {}
  ~cWorker() override { stop(); }
  std::atomic<int> runs{0};
  std::atomic<bool> inside{false};

protected:
  void run() override {
    ++runs;
    inside = true;
    while (mbLoop && !isStopInProgress()) qpi::cPlatform::yield();
  }

private:
  bool mbLoop;
};

}  // namespace

TEST(Runnable, GoesFromIdleThroughRunningToFinished) {
  cWorker w;
  EXPECT_EQ(w.state(), cAbstractRunnable::Idle);
  EXPECT_FALSE(w.isActive());
  w.start();
  qeltest::waitFinished(w);
  EXPECT_FALSE(w.isActive());
  EXPECT_FALSE(w.isRunning());
  EXPECT_EQ(w.runs.load(), 1);

  w.start();  // the finished thread is stopped and a new one runs
  qeltest::waitFinished(w);
  EXPECT_EQ(w.runs.load(), 2);
}

TEST(Runnable, StopAlwaysMarksAStopInProgress) {
  cWorker never;
  never.stop();
  EXPECT_EQ(never.state(), cAbstractRunnable::StopInProgress);
  EXPECT_TRUE(never.isActive());

  cWorker ran;
  ran.start();
  qeltest::waitFinished(ran);
  ran.stop();  // the thread has ended: nothing is left to wait for
  EXPECT_EQ(ran.state(), cAbstractRunnable::StopInProgress);
  ran.start();
  qeltest::waitFinished(ran);
  EXPECT_EQ(ran.runs.load(), 2);
}

TEST(Runnable, StopAsksRunToReturnAndWaitsForIt) {
  if (onWindows()) GTEST_SKIP() << "stopping a running thread is not supported on Windows";
  cWorker w(true);
  w.start();
  while (!w.inside) qpi::cPlatform::yield();
  EXPECT_TRUE(w.isRunning());
  EXPECT_TRUE(w.isActive());
  w.stop();
  EXPECT_EQ(w.state(), cAbstractRunnable::Finished);

  // A stop right after start is not lost when the thread comes up.
  w.start();
  w.stop();
  EXPECT_EQ(w.state(), cAbstractRunnable::Finished);
}

TEST(Runnable, AnEscapingExceptionEndsTheRunAndIsReported) {
  class cThrower : public cAbstractRunnable {
  public:
    ~cThrower() override { stop(); }

  protected:
    void run() override { throw 3; }
  };
  qeltest::cCapturingOut out;
  cThrower t;
  t.start();
  qeltest::waitFinished(t);
  t.stop();
  EXPECT_TRUE(out.contains("Runnable ended by an unknown exception"));
}
