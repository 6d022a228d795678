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

using qpi::cSystem;

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
