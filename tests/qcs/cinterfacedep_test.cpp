#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/qcs/cnosuchmoduleexception.h"
#include "qelcore/qcs/cunmatchedinterfaceexception.h"
#include "qelcore/std/cbugexception.h"

#include "qcstestutil.h"
#include "support/capturingout.h"

using qcs::cAbstractComponent;
using qcs::cComponentAddr;
using qcs::cComponentLocation;
using qcs::cInterfaceDep;
using qcstest::cRecorder;
using qcstest::cTagLog;
using qcstest::cTestComponent;
using qcstest::cUser;
using qcstest::pump;
using qcstest::thrown;
using qstd::tAutoPtr;

namespace {

typedef std::vector<std::string> tLog;

struct cLogHolder {
  tLog mLog;
};

class Dependencies : public ::testing::Test, public cLogHolder, public qcstest::cManagerFixture {
protected:
  template <class C = cTestComponent, class... A>
  C& add(A&&... args) {
    C* c = new C(mMgr, args...);
    mMgr.addComponent(tAutoPtr<cAbstractComponent>(c), cComponentAddr());
    return *c;
  }
  cTestComponent& provider(const char* name = "p") {
    cTestComponent& p = add(name);
    p.offer();
    return p;
  }
};

}  // namespace

TEST_F(Dependencies, FirstBestTakesTheEarliestListedProviderAndKeepsIt) {
  cTestComponent& first = provider();
  provider();
  cUser& user = add<cUser>("user");
  pump(mMgr);
  ASSERT_TRUE(user.mDep.matched());
  EXPECT_EQ(user.mDep.address(), first.address());
  EXPECT_EQ(user.mUse.add(4), 4);  // calls reach the matched provider's interface
  EXPECT_EQ(static_cast<qcstest::cCounterApi&>(first.getInterface(0)).miTotal, 4);

  provider("later");
  pump(mMgr);
  EXPECT_EQ(user.mDep.address(), first.address());
}

TEST_F(Dependencies, AnUnmatchedFirstBestDependencyBindsWhenAProviderIsAnnounced) {
  cRecorder recorder(mMgr, mLog);
  cUser& user = add<cUser>("user");
  recorder.watch(user.mDep, "user");
  pump(mMgr);
  EXPECT_FALSE(user.mDep.matched());
  mLog.clear();
  cTestComponent& p = provider();
  pump(mMgr);
  // The recorder was connected first, so it hears of the provider first.
  EXPECT_EQ(mLog, (tLog{"added 1:3", "registered 1:3", "matched 1:3"}));
  EXPECT_EQ(user.mDep.address(), p.address());
}

TEST_F(Dependencies, OnlyTheOtherSideOfTheSameNameMatches) {
  cTestComponent& sameSide = add("same side");
  sameSide.addInterface(tAutoPtr<qcs::cAbstractInterface>(new qcstest::cCounterUse));  // requiring "Counter"
  cTestComponent& otherName = add("other name");
  otherName.offer("Timer");
  cUser& user = add<cUser>("user");
  pump(mMgr);
  EXPECT_FALSE(user.mDep.matched());
  EXPECT_EQ(thrown<qcs::cUnmatchedInterfaceException>([&] { user.mDep.address(); }), "Unmatched interface!");
}

TEST_F(Dependencies, AComponentMayMatchItsOwnDependency) {
  cUser& user = add<cUser>("self");
  user.offer();
  pump(mMgr);
  EXPECT_EQ(user.mDep.address(), user.address());
}

TEST_F(Dependencies, PossibleLocationsCompareOnlyTheHostAndExcludedOnesAreSkipped) {
  cTestComponent& first = provider();
  cTestComponent& second = provider();
  cUser* user = new cUser(mMgr, "user");
  const cComponentLocation& here = first.location();
  user->mDep.addPossibleLocation(cComponentLocation(cComponentAddr(9, 9), here.hostName(), "any", here.pid() + 1),
                                 true);
  user->mDep.excludedLocations().append(first.location());
  mMgr.addComponent(tAutoPtr<cAbstractComponent>(user), cComponentAddr());
  pump(mMgr);
  EXPECT_EQ(user->mDep.address(), second.address());

  cUser* elsewhere = new cUser(mMgr, "elsewhere");
  elsewhere->mDep.addPossibleLocation(cComponentLocation(cComponentAddr(1, 2), "other-host", "", here.pid()), true);
  mMgr.addComponent(tAutoPtr<cAbstractComponent>(elsewhere), cComponentAddr());
  pump(mMgr);
  EXPECT_FALSE(elsewhere->mDep.matched());

  EXPECT_EQ(thrown<qstd::cBugException>([&] { elsewhere->mDep.addPossibleLocation(here, false); }),
            "The operation \"cInterfaceDep::addPossibleLocation(useUnpredictable)\" is not supported!");
  EXPECT_EQ(elsewhere->mDep.possibleLocations().size(), 1u);
}

TEST_F(Dependencies, ARemovedProviderInvalidatesAtOnceAndUnbindsInTheOwnersNextRecalculation) {
  cUser& user = add<cUser>("user");  // first in the list: passed before the removal
  pump(mMgr);
  cTestComponent& gone = provider();
  cTestComponent& next = provider();
  pump(mMgr);
  ASSERT_EQ(user.mDep.address(), gone.address());
  cRecorder recorder(mMgr, mLog);
  recorder.watch(user.mDep, "user");

  gone.removeLater();
  qpi::system().exec();  // the pass that removes it
  EXPECT_TRUE(user.mDep.matched());
  EXPECT_THROW(user.mDep.address(), qcs::cUnmatchedInterfaceException);
  EXPECT_TRUE(user.interfaceDepModified());
  EXPECT_NE(user.mUse.mpBound, nullptr);  // still bound until then

  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"removed 1:3", "unmatched", "matched 1:4", "interface deps changed 1:2"}));
  EXPECT_EQ(user.mDep.address(), next.address());
}

TEST_F(Dependencies, AnInvalidMatchIsReplacedByTheNextAnnouncedProviderBeforeTheOwnersRecalculation) {
  cUser& user = add<cUser>("user");
  cTestComponent& gone = provider();
  pump(mMgr);
  ASSERT_EQ(user.mDep.address(), gone.address());
  cRecorder recorder(mMgr, mLog);
  recorder.watch(user.mDep, "user");
  gone.removeLater();
  provider("new");  // announced in the same pass, after the removal
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"added 1:4", "removed 1:3", "unmatched", "matched 1:4", "registered 1:4",
                        "interface deps changed 1:2"}));
}

TEST_F(Dependencies, ExplicitBindsOnlyWhereToldAndIsNeverRebound) {
  provider();
  cTestComponent& chosen = provider();
  cTestComponent& plain = add("plain");
  cUser& user = add<cUser>("user", cInterfaceDep::saUseExplicit);
  pump(mMgr);
  EXPECT_FALSE(user.mDep.matched());

  cTagLog log(user.mDep, "user", mLog);
  user.mDep.setExplicit(chosen.location());
  EXPECT_EQ(user.mDep.address(), chosen.address());
  // No provider there: the old match is withdrawn first, then the lookup fails.
  cComponentLocation nowhere(cComponentAddr(1, 99), "nowhere", "", 1);
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([&] { user.mDep.setExplicit(nowhere); }),
            "Module (1:99-1@nowhere) not found!");
  EXPECT_FALSE(user.mDep.matched());
  // A component without the interface: unmatched, and no error.
  user.mDep.setExplicit(chosen.location());
  user.mDep.setExplicit(plain.location());
  EXPECT_FALSE(user.mDep.matched());
  EXPECT_EQ(mLog, (tLog{"user matched 1:3", "user unmatched", "user matched 1:3", "user unmatched"}));

  user.mDep.setExplicit(chosen.location());
  chosen.removeLater();
  pump(mMgr);
  EXPECT_FALSE(user.mDep.matched());  // withdrawn, and the first provider is not taken
}

TEST_F(Dependencies, InteractiveSelectionIsRefusedOnEveryRecalculation) {
  provider();
  add<cUser>("user", cInterfaceDep::saUseInteractive);
  EXPECT_EQ(thrown<qstd::cBugException>([&] { pump(mMgr); }),
            "The operation \"cInterfaceDep::saUseInteractive\" is not supported!");
}

TEST_F(Dependencies, WithoutOwnerOnlyAnnouncementsAndRecalcMatch) {
  cTestComponent& early = provider();
  pump(mMgr);
  qcstest::cCounterUse use;
  cInterfaceDep dep(mMgr, use.desc(), &use, cInterfaceDep::saUseFirstBest);
  pump(mMgr);
  EXPECT_FALSE(dep.matched());  // no pass recalculates it
  dep.recalc();
  EXPECT_EQ(dep.address(), early.address());
  EXPECT_EQ(use.add(2), 2);
}

TEST_F(Dependencies, DependenciesKeepTheirPlaceAmongOtherReceiversOfTheManagersSignals) {
  cUser& first = add<cUser>("first");
  cRecorder recorder(mMgr, mLog);  // connected between the two dependencies
  cUser& second = add<cUser>("second");
  cTagLog a(first.mDep, "first", mLog), b(second.mDep, "second", mLog);
  pump(mMgr);
  mLog.clear();
  provider();
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"added 1:4", "first matched 1:4", "registered 1:4", "second matched 1:4"}));
}

TEST_F(Dependencies, RegisteringAndRecalculatingWriteTheirTraceLines) {
  qeltest::cCapturingOut out;
  cUser& user = add<cUser>("user");
  pump(mMgr);
  tLog lines;
  for (const auto& e : out.entries())
    if (e.text.rfind("cAbstractComponent::", 0) == 0) lines.push_back(e.text);
  EXPECT_EQ(lines, (tLog{"cAbstractComponent::addInterfaceDep...", "cAbstractComponent::Recalcing deps..."}));
  EXPECT_FALSE(user.mDep.matched());
}
