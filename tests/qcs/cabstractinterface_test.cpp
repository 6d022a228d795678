#include "qelcore/qcs/cabstractinterface.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/qcs/cabstractinterfaceprovider.h"
#include "qelcore/qcs/cnopublicinterfaceexception.h"
#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/tptrlist.h"

#include "qcstestutil.h"

using qcs::cAbstractInterface;
using qcs::cInterfaceDesc;
using qcstest::cCounterApi;
using qcstest::cCounterUse;
using qcstest::provided;
using qcstest::thrown;
using qcstest::wanted;
using qsa::piVoid;
using qstd::cAsciiString;

namespace {

class cProvider : public qcs::cAbstractInterfaceProvider {
public:
  using cAbstractInterfaceProvider::addInterface;
  using cAbstractInterfaceProvider::removeInterface;
};

class cPlain : public cAbstractInterface {
public:
  explicit cPlain(const cInterfaceDesc& desc, bool* destroyed = nullptr)
      : cAbstractInterface(desc), mpDestroyed(destroyed) {}
  ~cPlain() override {
    if (mpDestroyed) *mpDestroyed = true;
  }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  bool* mpDestroyed;
};

// Stands in for a remote peer: calls go through archives to the original.
class cLoopbackSlotCall : public qrmi::cAbstractSlotCall {
public:
  cLoopbackSlotCall(qrmi::cConnectable& owner, qrmi::cConnectable& original, const cAsciiString& name)
      : cAbstractSlotCall(owner, nullptr), mOriginal(original), mName(name) {}
  void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const override {
    mOriginal.invokeIndirectRemoteSlot(mName, in, out);
  }

private:
  qrmi::cConnectable& mOriginal;
  cAsciiString mName;
};

class cLoopbackFactory : public qrmi::cAbstractRMIFactory {
public:
  explicit cLoopbackFactory(qrmi::cConnectable& original) : mOriginal(original) {}
  qstd::tAutoPtr<qrmi::cAbstractSlotCall> createSlotCall(qrmi::cConnectable& owner,
                                                         const qrmi::cPublicSlot& slot) override {
    mvAsked.push_back(std::string("slot ") + slot.name().c_str());
    return qstd::tAutoPtr<qrmi::cAbstractSlotCall>(new cLoopbackSlotCall(owner, mOriginal, slot.name()));
  }
  qstd::tAutoPtr<qrmi::cAbstractSignal> createSignal(qrmi::cConnectable&, const qrmi::cPublicSignal& signal) override {
    mvAsked.push_back(std::string("signal ") + signal.name().c_str());
    return qstd::tAutoPtr<qrmi::cAbstractSignal>(new qrmi::localSignal1<piVoid, int>);
  }
  qrmi::cConnectable& mOriginal;
  std::vector<std::string> mvAsked;
};

// A provided interface with two slots and a public signal.
class cRich : public cCounterApi {
public:
  cRich() {
    qrmi::registerPublicSlot(*this, &cRich::sltReset, "reset");
    sigChanged.exportSignal(*this, "changed", qrmi::cAbstractSignal::eProvidedInterface, "after add");
  }
  piVoid sltReset() {
    miTotal = 0;
    return piVoid();
  }
  qrmi::localSignal1<piVoid, int> sigChanged;
};

}  // namespace

TEST(Interfaces, MatchOnlyTheSameNameOnTheOtherSide) {
  cPlain clock(provided("Clock"));
  EXPECT_TRUE(clock.matches(wanted("Clock")));
  EXPECT_FALSE(clock.matches(provided("Clock")));  // same side never matches
  EXPECT_FALSE(clock.matches(wanted("clock")));
  EXPECT_TRUE(clock.matches(cInterfaceDesc(cInterfaceDesc::eRequiredInterface, "Clock", "other", 99, "")));
}

TEST(InterfaceProvider, SearchesRunFromIndexZeroAndStopAtTheFirstHit) {
  cProvider p;
  cPlain& first = static_cast<cPlain&>(p.addInterface(qstd::tAutoPtr<cAbstractInterface>(new cPlain(provided("A")))));
  cPlain second(provided("A"));
  p.addInterface(second);
  cPlain& b = static_cast<cPlain&>(p.addInterface(qstd::tAutoPtr<cAbstractInterface>(new cPlain(wanted("B")))));

  EXPECT_EQ(p.numInterfaces(), 3u);
  EXPECT_EQ(p.tryFindInterface("A"), &first);
  EXPECT_EQ(&p.findInterface("B"), &b);
  EXPECT_EQ(p.tryFindInterface("C"), nullptr);
  EXPECT_EQ(p.hasMatchingInterface(wanted("A")), &first);
  EXPECT_EQ(p.hasMatchingInterface(wanted("B")), nullptr);  // B is itself on the requiring side
  EXPECT_EQ(p.hasMatchingInterface(provided("B")), &b);
  EXPECT_EQ(p.hasInterface(second), &second);
  EXPECT_EQ(&p.getInterface(1), &second);
  qstd::tAutoPtr<qstd::tPtrList<cAbstractInterface>> all = p.interfaces();
  ASSERT_EQ(all->size(), 3u);
  EXPECT_EQ(*all->begin(), &first);
}

TEST(InterfaceProvider, FailedLookupsNameWhatWasMissing) {
  cProvider p;
  cPlain outsider(provided("X"));
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { p.findInterface("Clock"); }), "No such interface (\"Clock\")!");
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { p.getMatchingInterface(wanted("Clock")); }),
            "No such interface (\"Clock\")!");
  EXPECT_EQ(thrown<qcs::cNoPublicInterfaceException>([&] { p.findInterface(outsider); }), "No public interface!");
  EXPECT_EQ(thrown<qstd::cBugException>([&] { p.getInterface(0); }),
            "Index out of range in cAbstractInterfaceProvider / getInterface. The index should be between 0 - -1 but "
            "is 0!");
}

TEST(InterfaceProvider, RemovingDeletesOwnedInterfacesOnly) {
  bool ownedGone = false, borrowedGone = false;
  cProvider p;
  cAbstractInterface& owned = p.addInterface(qstd::tAutoPtr<cAbstractInterface>(new cPlain(provided("A"), &ownedGone)));
  cPlain borrowed(provided("B"), &borrowedGone);
  p.addInterface(borrowed);
  p.addInterface(borrowed);
  p.removeInterface(borrowed);  // every entry of it
  EXPECT_EQ(p.numInterfaces(), 1u);
  EXPECT_FALSE(borrowedGone);
  p.removeInterface(owned);
  EXPECT_TRUE(ownedGone);
  EXPECT_EQ(p.numInterfaces(), 0u);
}

TEST(InterfaceProvider, EitherSideMayDieFirst) {
  cProvider p;
  {
    cPlain shortLived(provided("A"));
    p.addInterface(shortLived);
    EXPECT_EQ(p.numInterfaces(), 1u);
  }
  EXPECT_EQ(p.numInterfaces(), 0u);
  EXPECT_EQ(p.tryFindInterface("A"), nullptr);

  cPlain longLived(provided("B"));
  {
    cProvider a, b;
    a.addInterface(longLived);
    b.addInterface(longLived);
  }
  cProvider c;
  c.addInterface(longLived);  // still usable: the dead providers let go
  EXPECT_EQ(c.numInterfaces(), 1u);
}

TEST(InterfaceProvider, AnInterfaceListedTwiceInOneProviderGoesOnce) {
  bool gone = false;
  {
    cProvider p;
    cAbstractInterface& twice = p.addInterface(qstd::tAutoPtr<cAbstractInterface>(new cPlain(provided("A"), &gone)));
    p.addInterface(twice);
    p.addInterface(twice);
    EXPECT_EQ(p.numInterfaces(), 3u);
  }
  EXPECT_TRUE(gone);

  gone = false;
  cProvider p;
  cAbstractInterface& twice = p.addInterface(qstd::tAutoPtr<cAbstractInterface>(new cPlain(provided("A"), &gone)));
  p.addInterface(twice);
  p.removeInterface(twice);
  EXPECT_TRUE(gone);
  EXPECT_EQ(p.numInterfaces(), 0u);
}

TEST(Interfaces, StoreThenLoadBuildsAProxyWhoseSlotsReachTheOriginal) {
  cRich original;
  qsa::cSerializeBinary s;
  original.store(s);

  cPlain proxy(provided("placeholder"));
  cLoopbackFactory factory(original);
  qsa::cDeserializeBinary d(s.ownData());
  proxy.load(d, factory);
  EXPECT_EQ(proxy.desc(), original.desc());
  EXPECT_EQ(factory.mvAsked, (std::vector<std::string>{"slot add", "slot reset", "signal changed"}));

  // A user bound to the proxy calls through archives by name.
  cCounterUse use;
  use.connectInterface(proxy);
  EXPECT_EQ(use.add(5), 5);
  EXPECT_EQ(use.add(2), 7);
  EXPECT_EQ(original.miTotal, 7);
  use.disconnectInterface();
  EXPECT_EQ(use.add(1), 0);  // unbound: nothing is called
  EXPECT_EQ(original.miTotal, 7);
}

TEST(Interfaces, ABadDescriptionLeavesTheProxyEmptyWithItsOldDescription) {
  cRich original;
  qsa::cSerializeBinary s;
  7u >> s;  // no such interface type
  cAsciiString("Counter") >> s;
  cAsciiString("test") >> s;
  1u >> s;
  cAsciiString("") >> s;
  cLoopbackFactory factory(original);
  cRich proxy;
  const cInterfaceDesc before = proxy.desc();
  qsa::cDeserializeBinary d(s.ownData());
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { proxy.load(d, factory); }),
            "Unable to deserialize interface description of \"Counter\"!");
  EXPECT_EQ(proxy.desc(), before);
  EXPECT_EQ(proxy.hasPublicSlots() ? proxy.hasPublicSlots()->size() : 0u, 0u);
  EXPECT_TRUE(factory.mvAsked.empty());
}

TEST(Interfaces, BindingCallsASlotOfTheSameSignatureDirectly) {
  cCounterApi api;
  cCounterUse use;
  use.connectInterface(api);
  EXPECT_EQ(use.add(3), 3);
  EXPECT_EQ(api.miTotal, 3);
  EXPECT_EQ(use.add.slotCount(), 1u);
  api.clear();  // the public slots go, and with them the binding
  EXPECT_EQ(use.add.slotCount(), 0u);
}

TEST(Interfaces, BindingToAMissingSlotFailsWhenCalled) {
  cPlain empty(provided("Counter"));
  cCounterUse use;
  use.connectInterface(empty);
  EXPECT_EQ(thrown<qrmi::cNoSuchSlotException>([&] { use.add(1); }), "Slot \"add((?))\" not found in interface!");
}
