// Helpers shared by the component system tests: a provider and a user of one
// interface, a configurable component, a recorder of the manager's signals,
// and pumping the work queue.
#ifndef QELCORE_TESTS_QCS_QCSTESTUTIL_H
#define QELCORE_TESTS_QCS_QCSTESTUTIL_H

#include <string>
#include <vector>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cinterfacedep.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"

#include "support/exceptiontext.h"

namespace qcstest {

using qcs::cInterfaceDesc;
using qsa::piVoid;

using qeltest::textOf;

// The messages of the whole chain, outermost first, joined by " / ".
inline std::string chainOf(const qstd::cAbstractException& e) {
  std::string all;
  for (const std::string& text : qeltest::chainOf(e)) all += (all.empty() ? "" : " / ") + text;
  return all;
}

// Runs `f`, which must throw E; returns the chain's texts.
template <class E, class F>
std::string thrown(F f) {
  try {
    f();
  } catch (const E& e) {
    return chainOf(e);
  }
  return "nothing thrown";
}

inline cInterfaceDesc provided(const char* name) {
  return cInterfaceDesc(cInterfaceDesc::eProvidedInterface, name, "test", 1, "provided");
}
inline cInterfaceDesc wanted(const char* name) {
  return cInterfaceDesc(cInterfaceDesc::eRequiredInterface, name, "test", 1, "wanted");
}

// A provided interface with one public slot "add".
class cCounterApi : public qcs::cAbstractInterface {
public:
  explicit cCounterApi(const char* name = "Counter") : cAbstractInterface(provided(name)), miTotal(0) {
    qrmi::registerPublicSlot(*this, &cCounterApi::sltAdd, "add");
  }
  int sltAdd(int n) { return miTotal += n; }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  int miTotal;
};

// The requiring side: calls "add" through its signal once bound.
class cCounterUse : public qcs::cAbstractInterface {
public:
  explicit cCounterUse(const char* name = "Counter") : cAbstractInterface(wanted(name)), mpBound(nullptr) {
    add.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  }
  qrmi::localSignal1<int, int> add;
  void connectInterface(cAbstractInterface& provider) override {
    mpBound = &provider;
    bindSlot(add, provider, "add");
  }
  void disconnectInterface() override {
    mpBound = nullptr;
    unbindSlots();
  }
  cAbstractInterface* mpBound;
};

// A component whose virtuals and interfaces a test sets up.
class cTestComponent : public qcs::cAbstractComponent {
public:
  explicit cTestComponent(qcs::cModuleMgr& mgr, const char* name = "")
      : cAbstractComponent(mgr), msName(name), miFixedId(0), mbDelay(false), mbCloseOk(true), mpLog(nullptr) {}
  ~cTestComponent() override {
    if (mpLog) mpLog->push_back("destroyed " + msName);
  }

  // Offers a cCounterApi under `name` (owned).
  cCounterApi& offer(const char* name = "Counter") {
    return static_cast<cCounterApi&>(addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cCounterApi(name))));
  }
  using cAbstractComponent::addInterface;
  using cAbstractComponent::componentLocation;
  using cAbstractComponent::registerRemoteException;
  using cAbstractComponent::removeInterface;

  unsigned int fixedModuleID() const override { return miFixedId; }
  bool delayAnnouncement() const override { return mbDelay; }
  bool applicationCloseAdvisable(qpi::cAbstractQELApp&) override {
    if (mpLog) mpLog->push_back("close? " + msName);
    return mbCloseOk;
  }
  void notifyComponentRegistered() override {
    if (mpLog) mpLog->push_back("notified " + msName);
  }
  void notifyShortlyRemove() override {
    if (mpLog) mpLog->push_back("shortly " + msName);
  }

  std::string msName;
  unsigned int miFixedId;
  bool mbDelay;
  bool mbCloseOk;
  std::vector<std::string>* mpLog;
};

// A component with one dependency on "Counter" through a cCounterUse.
class cUser : public cTestComponent {
public:
  cUser(qcs::cModuleMgr& mgr, const char* name,
        qcs::cInterfaceDep::selectionAlgo algo = qcs::cInterfaceDep::saUseFirstBest, const char* wantedName = "Counter")
      : cTestComponent(mgr, name), mUse(wantedName), mDep(*this, mUse.desc(), &mUse, algo) {}
  cCounterUse mUse;
  qcs::cInterfaceDep mDep;
};

// Writes what the manager and dependencies signal into a log, in order.
class cRecorder : public qrmi::cConnectable {
public:
  cRecorder(qcs::cModuleMgr& mgr, std::vector<std::string>& log) : mLog(log) {
    mgr.sigComponentAdded.connect(*this, &cRecorder::sltAdded);
    mgr.sigComponentRegistered.connect(*this, &cRecorder::sltRegistered);
    mgr.sigComponentRemoved.connect(*this, &cRecorder::sltRemoved);
    mgr.sigComponentDepsChanged.connect(*this, &cRecorder::sltDepsChanged);
    mgr.sigInterfaceDepsChanged.connect(*this, &cRecorder::sltInterfaceDepsChanged);
  }
  void watch(qcs::cInterfaceDep& dep, const std::string& name) {
    mNames.push_back(name);
    mDeps.push_back(&dep);
    dep.sigMatched.connect(*this, &cRecorder::sltMatched);
    dep.sigUnmatched.connect(*this, &cRecorder::sltUnmatched);
  }

  piVoid sltAdded(qcs::cAbstractComponent& c) { return note("added", c); }
  piVoid sltRegistered(qcs::cAbstractComponent& c) { return note("registered", c); }
  piVoid sltRemoved(qcs::cAbstractComponent& c) { return note("removed", c); }
  piVoid sltDepsChanged() {
    mLog.push_back("component deps changed");
    return piVoid();
  }
  piVoid sltInterfaceDepsChanged(const qcs::cComponentLocation& l) {
    mLog.push_back("interface deps changed " + std::string(l.address().toString().c_str()));
    return piVoid();
  }
  piVoid sltMatched(const qcs::cComponentAddr& a) {
    mLog.push_back("matched " + std::string(a.toString().c_str()));
    return piVoid();
  }
  piVoid sltUnmatched() {
    mLog.push_back("unmatched");
    return piVoid();
  }

private:
  piVoid note(const char* what, qcs::cAbstractComponent& c) {
    mLog.push_back(std::string(what) + " " + c.address().toString().c_str());
    return piVoid();
  }
  std::vector<std::string>& mLog;
  std::vector<std::string> mNames;
  std::vector<qcs::cInterfaceDep*> mDeps;
};

// Logs one dependency's signals under a tag.
class cTagLog : public qrmi::cConnectable {
public:
  cTagLog(qcs::cInterfaceDep& dep, const std::string& tag, std::vector<std::string>& log) : msTag(tag), mLog(log) {
    dep.sigMatched.connect(*this, &cTagLog::sltMatched);
    dep.sigUnmatched.connect(*this, &cTagLog::sltUnmatched);
  }
  piVoid sltMatched(const qcs::cComponentAddr& a) {
    mLog.push_back(msTag + " matched " + a.toString().c_str());
    return piVoid();
  }
  piVoid sltUnmatched() {
    mLog.push_back(msTag + " unmatched");
    return piVoid();
  }

private:
  std::string msTag;
  std::vector<std::string>& mLog;
};

// Runs the system's work queue until the manager asks for no further pass
// (at most `rounds` times).
inline void pump(const qcs::cModuleMgr& mgr, unsigned int rounds = 50) {
  for (unsigned int i = 0; i < rounds && mgr.passRequested(); ++i) qpi::system().exec();
}

// A manager over an empty extension manager.
struct cManagerFixture {
  qce::cCoreExtensionMgr mExtensions;
  qcs::cModuleMgr mMgr{mExtensions};
};

}  // namespace qcstest

#endif
