// Objects of the component system that point at each other may die in any
// order; each side lets go of the other.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"

#include "qcstestutil.h"

using qcs::cAbstractComponent;
using qcs::cComponentAddr;
using qcs::cInterfaceDep;
using qcstest::cRecorder;
using qcstest::cTestComponent;
using qcstest::cUser;
using qcstest::pump;
using qstd::tAutoPtr;

TEST(Lifetimes, AListedComponentDestroyedByItsOwnerLeavesEverythingBehindConsistent) {
  qcstest::cManagerFixture f;
  std::vector<std::string> log;
  cRecorder recorder(f.mMgr, log);
  cTestComponent* provider = new cTestComponent(f.mMgr, "provider");
  provider->offer();
  f.mMgr.addComponent(*provider, cComponentAddr());
  cUser* user = new cUser(f.mMgr, "user");
  user->addLocalRequiredComponent(provider);
  f.mMgr.addComponent(tAutoPtr<cAbstractComponent>(user), cComponentAddr());
  pump(f.mMgr);
  ASSERT_TRUE(user->mDep.matched());
  const cComponentAddr where = provider->address();

  log.clear();
  delete provider;
  EXPECT_EQ(log, (std::vector<std::string>{"removed 1:2"}));
  EXPECT_EQ(f.mMgr.components().size(), 1u);
  EXPECT_EQ(f.mMgr.hasComponent(where), nullptr);
  EXPECT_FALSE(user->requiresComponent(provider));  // it forgot the dead component
  EXPECT_FALSE(user->mDep.match().valid());
  pump(f.mMgr);
  EXPECT_FALSE(user->mDep.matched());
  EXPECT_EQ(user->mUse.mpBound, nullptr);
}

TEST(Lifetimes, ComponentsAndDependenciesMayOutliveTheirManager) {
  cTestComponent* component = nullptr;
  qcstest::cCounterUse use;
  cInterfaceDep* loose = nullptr;
  cInterfaceDep* orphan = nullptr;
  {
    qcstest::cManagerFixture f;
    component = new cTestComponent(f.mMgr, "borrowed");
    f.mMgr.addComponent(*component, cComponentAddr());
    loose = new cInterfaceDep(f.mMgr, use.desc(), &use, cInterfaceDep::saUseFirstBest);
    orphan = new cInterfaceDep(*component, use.desc(), &use, cInterfaceDep::saUseFirstBest);
    pump(f.mMgr);
  }
  component->removeLater();
  EXPECT_THROW(loose->recalc(), qstd::cBugException);
  delete loose;
  delete component;  // the dependency outlives its owner as well
  delete orphan;
}

TEST(Lifetimes, AManagerMayDieWhileItsComponentsAreMarkedOrDelayed) {
  std::vector<std::string> log;
  {
    qcstest::cManagerFixture f;
    cTestComponent* delayed = new cTestComponent(f.mMgr, "delayed");
    delayed->mbDelay = true;
    delayed->mpLog = &log;
    f.mMgr.addComponent(tAutoPtr<cAbstractComponent>(delayed), cComponentAddr());
    cTestComponent* marked = new cTestComponent(f.mMgr, "marked");
    marked->mpLog = &log;
    marked->addLocalRequiredComponent(delayed);
    f.mMgr.addComponent(tAutoPtr<cAbstractComponent>(marked), cComponentAddr());
    delayed->removeLater();
    pump(f.mMgr, 1);  // the referrer goes first; the manager takes the rest
  }
  EXPECT_EQ(log, (std::vector<std::string>{"destroyed marked", "destroyed delayed"}));
}
