#include "qelcore/qp/csynchronizable.h"

#include <gtest/gtest.h>

#include "qelcore/qp/cabstractrunnable.h"
#include "qelcore/qp/clocker.h"

#include "support/runnabletestutil.h"

using qp::cLocker;

TEST(Synchronizable, GuardsSharedStateAcrossThreads) {
  class cCounter : public qp::cSynchronizable {
  public:
    void add() {
      cLocker::cLock guard(mutex().lock());
      ++miCount;
    }
    int count() const {
      cLocker::cLock guard(mutex().lock());
      return miCount;
    }

  private:
    int miCount = 0;
  };
  class cAdder : public qp::cAbstractRunnable {
  public:
    explicit cAdder(cCounter& c) : mCounter(c) {}
    ~cAdder() override {
      qeltest::waitFinished(*this);
      stop();
    }

  protected:
    void run() override {
      for (int i = 0; i < 1000; ++i) mCounter.add();
    }

  private:
    cCounter& mCounter;
  };
  cCounter counter;
  {
    cAdder a(counter), b(counter);
    a.start();
    b.start();
  }
  EXPECT_EQ(counter.count(), 2000);
}
