#include "qelcore/pi/csystem.h"

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractqelapp.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/pi/schedule.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/ucs/cstring.h"

#include "support/capturingout.h"
#include "support/worktestutil.h"

using qeltest::cJob;
using qpi::cSystem;
using qpi::cWork;

namespace {

class cApp : public qpi::cAbstractQELApp {};

class cTracked : public cSystem::cReleasable {
public:
  cTracked(std::vector<int>& log, int id) : mLog(log), miId(id) {}
  ~cTracked() override { mLog.push_back(miId); }

private:
  std::vector<int>& mLog;
  int miId;
};

}  // namespace

TEST(System, OneObjectUntilCleanupThenAFreshOne) {
  cSystem::cleanup();
  EXPECT_FALSE(cSystem::exists());
  cSystem& first = qpi::system();
  EXPECT_TRUE(cSystem::exists());
  EXPECT_EQ(&qpi::system(), &first);
  EXPECT_NE(first.workQueue().events(), nullptr);
  EXPECT_EQ(&qstd::cNumberConversionFormat::systemDefault(), &first.defaults().numberFormat);

  std::vector<int> log;
  first.releaseAtCleanup(qstd::tAutoPtr<cSystem::cReleasable>(new cTracked(log, 1)));
  first.releaseAtCleanup(qstd::tAutoPtr<cSystem::cReleasable>(new cTracked(log, 2)));
  cSystem::cleanup();
  EXPECT_EQ(log, (std::vector<int>{2, 1}));
  EXPECT_FALSE(cSystem::exists());
  EXPECT_NE(&qstd::cNumberConversionFormat::systemDefault(), nullptr);
  cSystem::cleanup();  // nothing to do
  qpi::system();
  EXPECT_TRUE(cSystem::exists());
}

TEST(System, TheApplicationMustBeSetBeforeItIsAskedFor) {
  cSystem& sys = qpi::system();
  sys.setApp(nullptr);
  EXPECT_FALSE(sys.hasApp());
  try {
    sys.app();
    FAIL();
  } catch (const qstd::cBugException& e) {
    qucs::cString text;
    e.createMessage(text, qucs::cString(""), 0, nullptr);
    EXPECT_EQ(text, "No application object set!");
  }
  cApp app;
  sys.setApp(&app);
  EXPECT_EQ(&sys.app(), &app);
  sys.setApp(nullptr);
}

TEST(Schedule, PutsWorksOnTheMainQueue) {
  cSystem::cleanup();
  cJob job;
  qstd::tSharedObject<cWork> once =
      qpi::schedule(qrmi::cDirectLocalSlotCall0<cJob, qsa::piVoid>(job, &cJob::sltRun, nullptr), 0, "once");
  qstd::tSharedObject<cWork> tick = qpi::schedule(job, &cJob::sltRun, 0, cWork::Periodic, "tick");
  EXPECT_EQ(once->name(), "once");
  EXPECT_EQ(tick->type(), cWork::Periodic);
  qpi::system().exec();
  EXPECT_EQ(job.calls, 2);
  qpi::system().exec();
  EXPECT_EQ(job.calls, 3);

  cWork mine;
  EXPECT_EQ(&qpi::schedule(mine), &mine);
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 2u);
  qpi::unschedule(mine);
  qpi::unschedule(*tick);
  qpi::system().exec();
  EXPECT_EQ(job.calls, 3);
  EXPECT_EQ(qpi::system().workQueue().jobs().size(), 0u);
  cSystem::cleanup();
  qpi::unschedule(mine);  // without a system: nothing to do
  EXPECT_FALSE(cSystem::exists());
}

TEST(Schedule, AWorkWithoutANameIsScheduledAfterTwoDebugLines) {
  cJob job;
  qeltest::cCapturingOut out;
  qstd::tSharedObject<cWork> w = qpi::schedule(job, &cJob::sltRun, 0, nullptr);
  auto entries = out.entries();
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].text, "Work scheduled without name!");
  EXPECT_TRUE(w->isStarted());
  qpi::system().exec();
  EXPECT_EQ(job.calls, 1);

  // The queue owns what schedule() was handed.
  qstd::tSharedObject<cWork> owned = qpi::schedule(qstd::tAutoPtr<cWork>(new cWork));
  EXPECT_EQ(owned.refCount(), 2u);
  cSystem::cleanup();
  EXPECT_TRUE(owned.unique());
}
