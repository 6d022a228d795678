#include "qelcore/qp/clocker.h"

#include <atomic>

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractplatforminfo.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qp/cabstractrunnable.h"
#include "qelcore/qp/csynchronizable.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/runnabletestutil.h"

using qp::cLocker;

namespace {

bool onWindows() { return qpi::cPlatform::createPlatformInfo()->platformName() == "Win32"; }

// Tries the locker from another thread: whether it could be taken there.
class cProbe : public qp::cAbstractRunnable {
public:
  explicit cProbe(cLocker& locker) : mLocker(locker) {}
  ~cProbe() override { stop(); }
  bool free() {
    start();
    qeltest::waitFinished(*this);
    stop();
    return mbFree;
  }

protected:
  void run() override {
    cLocker::cLock attempt(mLocker.tryLock());
    mbFree = attempt.isLocked();
  }

private:
  cLocker& mLocker;
  bool mbFree = false;
};

}  // namespace

TEST(Locker, GuardsLockForTheirLifetimeAndNest) {
  if (onWindows()) GTEST_SKIP() << "probing needs a try-lock";
  cLocker m;
  cProbe probe(m);
  EXPECT_TRUE(probe.free());
  {
    cLocker::cLock outer(m.lock());
    cLocker::cLock inner = m.lock();  // recursive
    EXPECT_TRUE(outer.isLocked());
    EXPECT_FALSE(probe.free());
  }
  EXPECT_TRUE(probe.free());

  cLocker::cLock none(static_cast<cLocker*>(nullptr));
  EXPECT_TRUE(none.isLocked()) << "a guard over no locker counts as locked";
}

TEST(Locker, OnlyTheReferenceFormOfUnlockReleases) {
  if (onWindows()) GTEST_SKIP() << "probing needs a try-lock";
  cLocker m;
  cProbe probe(m);
  {
    cLocker::cLock held(m.lock());
    {
      cLocker::cUnlock open(m.unlock());
      EXPECT_TRUE(probe.free());
    }
    EXPECT_FALSE(probe.free()) << "taken again when the unlock guard goes";
    {
      cLocker::cUnlock notReally(&m);
      EXPECT_FALSE(probe.free()) << "the pointer form does not release";
    }
    // ...but it took the mutex once more on its way out: two unlocks needed.
  }
  EXPECT_FALSE(probe.free());
  m.doUnlock();
  EXPECT_TRUE(probe.free());
}

TEST(Locker, TryLockFollowsThePlatform) {
  cLocker m;
  if (onWindows()) {
    EXPECT_THROW(cLocker::cLock attempt(m.tryLock()), qstd::cRuntimeException);
  } else {
    cLocker::cLock attempt(m.tryLock());
    EXPECT_TRUE(attempt.isLocked());
  }
}
