// A pass visits only the components that have something to do, unless the
// debug output shows its lines, when it walks the whole list. Both must give
// the same signals in the same order: random histories are run both ways.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qcstestutil.h"
#include "support/capturingout.h"

using qcs::cAbstractComponent;
using qcs::cComponentAddr;
using qcs::cInterfaceDep;
using qcstest::cTagLog;
using qcstest::cTestComponent;
using qstd::tAutoPtr;

namespace {

typedef std::vector<std::string> tLog;

// A component that leaves the test's list of live components when it dies,
// with one optional dependency.
class cMember : public cTestComponent {
public:
  cMember(qcs::cModuleMgr& mgr, const std::string& name, std::vector<cMember*>& alive, tLog& log)
      : cTestComponent(mgr, ""), mAlive(alive) {
    msName = name;
    mpLog = &log;
    alive.push_back(this);
  }
  ~cMember() override { mAlive.erase(std::find(mAlive.begin(), mAlive.end(), this)); }
  void need(const char* name, cInterfaceDep::selectionAlgo algo, tLog& log) {
    mpUse.reset(new qcstest::cCounterUse(name));
    mpDep.reset(new cInterfaceDep(*this, mpUse->desc(), mpUse.get(), algo));
    mpTags.reset(new cTagLog(*mpDep, msName, log));
  }
  std::vector<cMember*>& mAlive;
  // Declared so that the dependency goes before its local interface.
  tAutoPtr<qcstest::cCounterUse> mpUse;
  tAutoPtr<cInterfaceDep> mpDep;
  tAutoPtr<cTagLog> mpTags;
};

tLog run(unsigned int seed, bool wholeList) {
  qeltest::cCapturingOut out;
  out.setFilter(wholeList ? "trace" : "warning");
  tLog log;
  std::vector<cMember*> alive;
  {
    qcstest::cManagerFixture f;
    qcstest::cRecorder recorder(f.mMgr, log);
    std::mt19937 rng(seed);
    auto pick = [&](unsigned int n) { return static_cast<unsigned int>(rng() % n); };
    const char* names[] = {"Counter", "Timer"};
    for (unsigned int step = 0; step < 300; ++step) {
      const unsigned int what = pick(12);
      if (what < 3 || alive.empty()) {
        cMember* c = new cMember(f.mMgr, "c" + std::to_string(step), alive, log);
        if (pick(2)) c->offer(names[pick(2)]);
        if (pick(3))
          c->need(names[pick(2)], pick(4) ? cInterfaceDep::saUseFirstBest : cInterfaceDep::saUseExplicit, log);
        c->mbDelay = pick(8) == 0;
        f.mMgr.addComponent(tAutoPtr<cAbstractComponent>(c), cComponentAddr());
      } else if (what == 3 && alive.size() > 1) {
        // Later components refer to earlier ones only: no cycles.
        const unsigned int a = pick(static_cast<unsigned int>(alive.size()));
        const unsigned int b = pick(static_cast<unsigned int>(alive.size()));
        if (a != b) alive[std::max(a, b)]->addLocalRequiredComponent(alive[std::min(a, b)]);
      } else if (what == 4) {
        alive[pick(static_cast<unsigned int>(alive.size()))]->removeLater();
      } else if (what == 5) {
        cMember* c = alive[pick(static_cast<unsigned int>(alive.size()))];
        c->mbDelay = !c->mbDelay;
        f.mMgr.handleComponentIterationLater();
      } else if (what == 6) {
        cMember* c = alive[pick(static_cast<unsigned int>(alive.size()))];
        cMember* target = alive[pick(static_cast<unsigned int>(alive.size()))];
        if (c->mpDep.get() && c->mpDep->algorithm() == cInterfaceDep::saUseExplicit)
          c->mpDep->setExplicit(target->location());
      } else if (what == 7) {
        alive[pick(static_cast<unsigned int>(alive.size()))]->offer(names[pick(2)]);  // a late interface
      } else if (what == 8) {
        cMember* c = alive[pick(static_cast<unsigned int>(alive.size()))];
        if (c->numInterfaces() != 0) c->removeInterface(c->getInterface(0));
      } else if (f.mMgr.passRequested()) {
        qpi::system().exec();
      }
    }
    qcstest::pump(f.mMgr, 20);
    log.push_back("-- all now");
    f.mMgr.removeAllComponentsNow();
  }
  return log;
}

}  // namespace

TEST(PassOrder, VisitingOnlyPendingComponentsGivesTheSameHistoryAsWalkingTheWholeList) {
  for (unsigned int seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(seed);
    const tLog fast = run(seed, false);
    const tLog whole = run(seed, true);
    EXPECT_GT(fast.size(), 100u);
    ASSERT_EQ(fast, whole);
  }
}
