#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/pi/cabstractqelapp.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/qcs/cmoduleloadexception.h"
#include "qelcore/qcs/cnopublicinterfaceexception.h"
#include "qelcore/qcs/cnosuchmoduleexception.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/texception.h"

#include "qcstestutil.h"
#include "support/capturingout.h"
#include "support/testmodules.h"

using qcs::cAbstractComponent;
using qcs::cComponentAddr;
using qcs::cComponentLocation;
using qcs::cModuleMgr;
using qcstest::cRecorder;
using qcstest::cTestComponent;
using qcstest::pump;
using qcstest::thrown;
using qstd::cAsciiString;
using qstd::tAutoPtr;

namespace {

typedef std::vector<std::string> tLog;

// The log outlives the manager, whose components write to it as they go.
struct cLogHolder {
  tLog mLog;
};

class ModuleManager : public ::testing::Test, public cLogHolder, public qcstest::cManagerFixture {
protected:
  // Owned by the manager; logs its notifications and destruction.
  cTestComponent& add(const char* name, unsigned int fixedId = 0) {
    tAutoPtr<cTestComponent> c(new cTestComponent(mMgr, name));
    c->mpLog = &mLog;
    c->miFixedId = fixedId;
    cTestComponent& ref = *c;
    mMgr.addComponent(tAutoPtr<cAbstractComponent>(c), cComponentAddr());
    return ref;
  }
};

std::string addr(const cAbstractComponent& c) { return c.address().toString().c_str(); }

class cApp : public qpi::cAbstractQELApp {};

class cLoader : public qpi::cAbstractClassLoader {
public:
  explicit cLoader(bool* destroyed) : cAbstractClassLoader(qucs::cString()), mpDestroyed(destroyed) {}
  ~cLoader() override { *mpDestroyed = true; }
  qcs::cAbstractComponent* instance(qsa::cReferenceFrame&, qcs::cModuleMgr&) override { return nullptr; }
  qcs::cAbstractPlugIn* instance(qsa::cReferenceFrame&) override { return nullptr; }
  void getModuleVersion(unsigned int&, unsigned int&) const override {}
  void getModuleQELVersion(unsigned int&, unsigned int&) const override {}
  bool* mpDestroyed;
};

// A prototype that tells which component created an exception.
class cTagged : public qstd::tException<cTagged, qstd::cRuntimeException> {
public:
  static const char* staticTypeName() { return "cTagged"; }
  explicit cTagged(const char* tag = "") : msTag(tag) {}
  qstd::cAbstractException* createObject() const override { return new cTagged(msTag.c_str()); }
  std::string msTag;
};

}  // namespace

TEST_F(ModuleManager, IdsAreCountedAndAFixedIdMustNotGoBelowTheCounter) {
  EXPECT_EQ(addr(add("a")), "1:2");  // the counter starts at 1
  EXPECT_EQ(addr(add("b")), "1:3");
  EXPECT_EQ(addr(add("c", 3)), "1:3");  // equal to the counter: accepted
  cTestComponent* refused = new cTestComponent(mMgr, "d");
  refused->miFixedId = 2;
  EXPECT_EQ(thrown<qstd::cRuntimeException>(
                [&] { mMgr.addComponent(tAutoPtr<cAbstractComponent>(refused), cComponentAddr()); }),
            "Component id (2) not unique!");
  EXPECT_EQ(mMgr.components().size(), 3u);
  EXPECT_EQ(addr(add("e")), "1:4");  // the counter did not move

  cManagerFixture fresh;
  cTestComponent first(fresh.mMgr);
  first.miFixedId = 1;
  fresh.mMgr.addComponent(first, cComponentAddr());
  EXPECT_EQ(first.address(), cComponentAddr(1, 1));
  EXPECT_EQ(first.location().address(), cComponentAddr(1, 1));
  EXPECT_EQ(first.location().pid(), qpi::cPlatform::pid());
}

TEST_F(ModuleManager, LookupsFindTheFirstListedComponentAndNameWhatIsMissing) {
  cTestComponent& a = add("a");
  cTestComponent& b = add("b");
  b.moduleInfo().setContext("clock.so");
  qcstest::cCounterApi& api = b.offer();

  EXPECT_EQ(&mMgr.findComponent(cComponentAddr(1, 3)), &b);
  EXPECT_EQ(&mMgr.findComponent(a.location()), &a);
  EXPECT_EQ(&mMgr.findComponent(cAsciiString("clock.so")), &b);
  EXPECT_EQ(&mMgr.findComponent(api), &b);
  EXPECT_TRUE(mMgr.exists(b.location()));

  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([&] { mMgr.findComponent(cComponentAddr(1, 99)); }),
            "Module (1:99) not found!");
  cComponentLocation nowhere(cComponentAddr(1, 2), "elsewhere", "", 1);
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([&] { mMgr.findComponent(nowhere); }),
            "Module (1:2-1@elsewhere) not found!");
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([&] { mMgr.findComponent(cAsciiString("x.so")); }),
            "Module (x.so) not found!");
  qcstest::cCounterApi loose;
  EXPECT_EQ(thrown<qcs::cNoPublicInterfaceException>([&] { mMgr.findComponent(loose); }), "No public interface!");
  EXPECT_EQ(mMgr.hasComponent(cComponentAddr(1, 99)), nullptr);
  EXPECT_EQ(mMgr.hasComponent(nowhere), nullptr);
  EXPECT_FALSE(mMgr.exists(nowhere));

  // A component that changes its location is found where it is now.
  const cComponentLocation old = a.location();
  a.componentLocation() = cComponentLocation(old.address(), old.hostName(), "moved", old.pid());
  EXPECT_EQ(mMgr.hasComponent(old), nullptr);
  EXPECT_EQ(mMgr.hasComponent(a.location()), &a);
  a.componentLocation() = b.location();  // two at one location: the first listed wins
  EXPECT_EQ(mMgr.hasComponent(b.location()), &a);
  // And an interface removed from a component no longer leads to it.
  b.removeInterface(api);
  EXPECT_EQ(thrown<qcs::cNoPublicInterfaceException>([&] { mMgr.findComponent(api); }), "No public interface!");
}

TEST_F(ModuleManager, APassAnnouncesInListOrderAndNotifiesAfterTheSignal) {
  cRecorder recorder(mMgr, mLog);
  add("a");
  add("b");
  EXPECT_TRUE(mMgr.passRequested());
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"added 1:2", "added 1:3", "registered 1:2", "notified a", "registered 1:3", "notified b"}));
  EXPECT_FALSE(mMgr.passRequested());
}

TEST_F(ModuleManager, ADelayedComponentIsNotAnnouncedAndItsDependenciesAreNotRecalculated) {
  add("provider").offer();
  pump(mMgr);  // announced before the user's dependency exists
  qcstest::cUser* user = new qcstest::cUser(mMgr, "user");
  user->mbDelay = true;
  mMgr.addComponent(tAutoPtr<cAbstractComponent>(user), cComponentAddr());
  pump(mMgr, 5);
  EXPECT_FALSE(user->announced());
  EXPECT_FALSE(user->mDep.matched());
  EXPECT_TRUE(mMgr.passRequested());  // it is asked again in every pass
  user->mbDelay = false;
  pump(mMgr);
  EXPECT_TRUE(user->announced());
  EXPECT_TRUE(user->mDep.matched());
}

TEST_F(ModuleManager, ChangedDependenciesOfAnnouncedComponentsAreSignalled) {
  cTestComponent& a = add("a");
  cTestComponent& b = add("b");
  pump(mMgr);
  cRecorder recorder(mMgr, mLog);
  mLog.clear();
  b.addLocalRequiredComponent(&a);
  b.addLocalRequiredComponent(nullptr);  // ignored
  EXPECT_TRUE(b.componentDepModified());
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"component deps changed"}));
  EXPECT_FALSE(b.componentDepModified());
  EXPECT_TRUE(b.requiresComponent(&a));

  mLog.clear();
  qcs::cInterfaceDep dep(a, qcstest::wanted("Counter"), nullptr, qcs::cInterfaceDep::saUseFirstBest);
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"interface deps changed 1:2"}));
}

TEST_F(ModuleManager, ReferencingComponentsAreRemovedFirst) {
  cRecorder recorder(mMgr, mLog);
  cTestComponent& a = add("a");
  cTestComponent& b = add("b");
  cTestComponent& c = add("c");
  c.addLocalRequiredComponent(&b);
  b.addLocalRequiredComponent(&a);
  pump(mMgr);
  mLog.clear();

  cAbstractComponent::tComponentList referrers;
  mMgr.componentsReferencedBy(a, referrers);
  ASSERT_EQ(referrers.size(), 1u);
  EXPECT_EQ(*referrers.begin(), &b);

  qeltest::cCapturingOut out;
  a.removeLater();
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"removed 1:4", "destroyed c", "removed 1:3", "destroyed b", "removed 1:2", "destroyed a"}));
  const std::string here = "-" + std::to_string(qpi::cPlatform::pid()) + "@" + qpi::cPlatform::hostname().c_str();
  std::vector<std::string> marks;
  for (const auto& e : out.entries())
    if (e.text.find("Mark referencing") != std::string::npos) marks.push_back(e.text);
  EXPECT_EQ(marks, (std::vector<std::string>{
                       "cModuleMgr: Mark referencing component for removal... (1:3" + here + ")",
                       "cModuleMgr: Mark referencing component for removal... (1:4" + here + ")",
                       // the next pass: a is still referenced by b
                       "cModuleMgr: Mark referencing component for removal... (1:3" + here + ")",
                   }));
  EXPECT_EQ(mMgr.components().size(), 0u);
}

TEST_F(ModuleManager, ComponentsThatRequireEachOtherNeverLeave) {
  cTestComponent& a = add("a");
  cTestComponent& b = add("b");
  a.addLocalRequiredComponent(&b);
  b.addLocalRequiredComponent(&a);
  a.removeLater();
  pump(mMgr, 10);
  EXPECT_EQ(mMgr.components().size(), 2u);
  EXPECT_TRUE(b.toRemove());
  EXPECT_TRUE(mMgr.passRequested());
}

TEST_F(ModuleManager, RemoveAllComponentsNowEmptiesTheListWithoutRemovalSignals) {
  cRecorder recorder(mMgr, mLog);
  cTestComponent* previous = nullptr;
  for (const char* name : {"c1", "c2", "c3"}) {
    cTestComponent& c = add(name);
    if (previous) c.addLocalRequiredComponent(previous);
    previous = &c;
  }
  add("free");
  pump(mMgr);
  mLog.clear();
  mMgr.removeAllComponentsNow();
  EXPECT_EQ(mLog, (tLog{"destroyed c3", "destroyed free", "destroyed c2", "destroyed c1"}));
  EXPECT_EQ(mMgr.components().size(), 0u);
}

TEST_F(ModuleManager, RemoveComponentByAddressMarksIt) {
  add("a");
  cTestComponent& b = add("b");
  mMgr.removeComponent(cComponentAddr(1, 3));
  EXPECT_TRUE(b.toRemove());
  EXPECT_EQ(thrown<qcs::cNoSuchModuleException>([&] { mMgr.removeComponent(cComponentAddr(1, 9)); }),
            "Module (1:9) not found!");
  pump(mMgr);
  EXPECT_EQ(mMgr.components().size(), 1u);
}

TEST_F(ModuleManager, ClosingAsksEveryComponentAndWarnsThemInListOrder) {
  cApp app;
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { mMgr.app(); }), "No application object set!");
  mMgr.setApp(app);
  EXPECT_EQ(&mMgr.app(), &app);
  EXPECT_TRUE(mMgr.applicationCloseAdvisable(app));  // also with no components
  add("a").mbCloseOk = false;
  add("b");
  EXPECT_FALSE(mMgr.applicationCloseAdvisable(app));
  mMgr.submitShortlyRemove();
  EXPECT_EQ(mLog, (tLog{"close? a", "close? b", "shortly a", "shortly b"}));
}

TEST_F(ModuleManager, UnusedClassLoadersAreDeletedAfterEachPass) {
  bool gone = false;
  cLoader* loader = new cLoader(&gone);
  mMgr.registerClassLoader(tAutoPtr<qpi::cAbstractClassLoader>(loader));
  cTestComponent& c = add("loaded");
  loader->incRef();
  c.setClassLoader(loader, "loaded.so");
  EXPECT_EQ(c.moduleInfo().context(), cAsciiString("loaded.so"));
  EXPECT_FALSE(c.isStatic());
  pump(mMgr);
  EXPECT_FALSE(gone);
  c.removeLater();
  pump(mMgr);  // the component gives its reference back; the loader goes after the pass
  EXPECT_TRUE(gone);
}

TEST_F(ModuleManager, LoadsAComponentFromItsModuleFileAndDropsTheFileWithIt) {
  cAbstractComponent& c = mMgr.loadComponent(qeltest::testModule("component"), cComponentAddr(1, 9));
  EXPECT_EQ(c.moduleInfo().name(), "component");  // the module's own constructor ran
  EXPECT_EQ(c.moduleInfo().context(), qeltest::testModule("component").ascii());
  EXPECT_EQ(&mMgr.findComponent(c.moduleInfo().context()), &c);
  EXPECT_EQ(c.deployedBy(), cComponentAddr(1, 9));
  ASSERT_NE(c.classLoader(), nullptr);
  EXPECT_EQ(c.classLoader()->numReferences(), 1u);
  pump(mMgr);
  EXPECT_TRUE(c.announced());
  c.removeLater();
  pump(mMgr);  // the component goes, then its unused loader and file
  EXPECT_EQ(mMgr.components().size(), 0u);

  // Nothing is listed from a file that is no component module.
  EXPECT_EQ(thrown<qcs::cModuleLoadException>([&] { mMgr.loadComponent(qeltest::testModule("plugin"), cComponentAddr()); }),
            "cClassLoader: No component!");
  EXPECT_EQ(mMgr.components().size(), 0u);
}

TEST_F(ModuleManager, RemoteExceptionsComeFromTheFirstComponentThatKnowsTheType) {
  qsa::cSerializeBinary s;
  cTagged("sent").store(s);
  qsa::cDeserializeBinary d(s.ownData());
  cAsciiString typeName;
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { mMgr.createRemoteException(cComponentLocation(), "cTagged", d); }),
            "Unknown remote exception of type cTagged!");

  add("a");
  add("b").registerRemoteException(tAutoPtr<qstd::cAbstractException>(new cTagged("b")));
  add("c").registerRemoteException(tAutoPtr<qstd::cAbstractException>(new cTagged("c")));
  typeName << d;
  tAutoPtr<qstd::cAbstractException> e = mMgr.createRemoteException(cComponentLocation(), typeName, d);
  ASSERT_NE(dynamic_cast<cTagged*>(e.get()), nullptr);
  EXPECT_EQ(static_cast<cTagged&>(*e).msTag, "b");
  EXPECT_EQ(e->type(), qstd::cAbstractException::TypeRuntime);
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { mMgr.createRemoteException(cComponentLocation(), "cOther", d); }),
            "Unknown remote exception of type cOther!");
}

namespace {

// Runs a nested pass of the work queue from inside the manager's pass.
class cNester : public qrmi::cConnectable {
public:
  cNester(cModuleMgr& mgr, tLog& log) : mMgr(mgr), mLog(log), mbDone(false) {
    mgr.sigComponentRegistered.connect(*this, &cNester::sltRegistered);
  }
  qsa::piVoid sltRegistered(cAbstractComponent& c) {
    mLog.push_back("registered " + std::string(c.address().toString().c_str()));
    if (!mbDone) {
      mbDone = true;
      mMgr.handleComponentIterationLater();
      qpi::system().exec();
      mLog.push_back("nested loop done");
    }
    return qsa::piVoid();
  }
  cModuleMgr& mMgr;
  tLog& mLog;
  bool mbDone;
};

}  // namespace

TEST_F(ModuleManager, APassAskedForDuringAPassIsDeferred) {
  cNester nester(mMgr, mLog);
  add("a");
  add("b");
  pump(mMgr);
  EXPECT_EQ(mLog, (tLog{"registered 1:2", "nested loop done", "notified a", "registered 1:3", "notified b"}));
}

namespace {

// The manager's works on the system's queue, by name.
const qpi::cWork* workNamed(const char* name) {
  for (const qstd::tSharedObject<qpi::cWork>& w : qpi::system().workQueue().jobs())
    if (w && w->name() == name) return w.get();
  return nullptr;
}

}  // namespace

TEST(ModuleManagerLifetime, BothWorksLiveOnTheSystemQueueUnderTheirShortNames) {
  {
    qcstest::cManagerFixture f;
    const qpi::cWork* pass = workNamed("ComponentManagement");
    const qpi::cWork* idle = workNamed("ComapatIdle");
    ASSERT_NE(pass, nullptr);
    ASSERT_NE(idle, nullptr);
    EXPECT_EQ(workNamed("component management (QEL Core)"), nullptr);
    EXPECT_FALSE(pass->isStarted());  // nothing to do yet
    EXPECT_TRUE(idle->isStarted());
    EXPECT_EQ(idle->type(), qpi::cWork::Periodic);
    EXPECT_EQ(idle->interval(), 4000u);
    f.mMgr.handleComponentIterationLater();
    EXPECT_TRUE(pass->isStarted());
  }
  EXPECT_EQ(workNamed("ComponentManagement"), nullptr);
  EXPECT_EQ(workNamed("ComapatIdle"), nullptr);
}

TEST(ModuleManagerLifetime, DestroyingTheManagerDeletesOwnedComponentsInListOrder) {
  tLog log;
  cTestComponent* borrowed = nullptr;
  {
    qcstest::cManagerFixture f;
    for (const char* name : {"x", "y"}) {
      cTestComponent* c = new cTestComponent(f.mMgr, name);
      c->mpLog = &log;
      f.mMgr.addComponent(tAutoPtr<cAbstractComponent>(c), cComponentAddr());
    }
    borrowed = new cTestComponent(f.mMgr, "borrowed");
    borrowed->mpLog = &log;
    f.mMgr.addComponent(*borrowed, cComponentAddr());
  }
  EXPECT_EQ(log, (tLog{"destroyed x", "destroyed y"}));
  // Outliving its manager, the component must not reach it any more.
  borrowed->removeLater();
  EXPECT_THROW(borrowed->moduleMgr(), qstd::cAbstractException);
  delete borrowed;
}
