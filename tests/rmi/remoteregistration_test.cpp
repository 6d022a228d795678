// A peer's public slots and signals described in an archive and registered on
// a local stand-in through a factory.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializebinary.h"

#include "rmitestutil.h"
#include "support/capturingout.h"

using qrmi::cConnectable;
using qrmi::cPublicSignal;
using qrmi::cPublicSlot;
using qsa::cDeserializeBinary;
using qsa::cReferenceFrame;
using qsa::cSerializeBinary;
using qsa::piVoid;
using rmitest::cService;

namespace {

// Stand-ins for a peer's slots and signals that only record what was asked.
class cRecordingFactory : public qrmi::cAbstractRMIFactory {
public:
  qstd::tAutoPtr<qrmi::cAbstractSlotCall> createSlotCall(cConnectable& owner, const cPublicSlot& slot) override {
    mvAsked.push_back(std::string("slot ") + slot.name().c_str());
    return qstd::tAutoPtr<qrmi::cAbstractSlotCall>(new qrmi::cAbstractSlotCall(owner, nullptr));
  }
  qstd::tAutoPtr<qrmi::cAbstractSignal> createSignal(cConnectable&, const cPublicSignal& signal) override {
    mvAsked.push_back(std::string("signal ") + signal.name().c_str());
    return qstd::tAutoPtr<qrmi::cAbstractSignal>(new qrmi::localSignal1<piVoid, int>);
  }
  std::vector<std::string> mvAsked;
};

}  // namespace

TEST(RemoteRegistration, DescriptionsTravelAndTheFactoryBuildsStandIns) {
  qeltest::cCapturingOut debug;
  cService svc;
  svc.sigChanged.exportSignal(svc, "changed", qrmi::cAbstractSignal::eProvidedInterface, "on change");
  cSerializeBinary desc;
  svc.findPublicSlot("rename") >> desc;
  svc.findPublicSignal("changed") >> desc;
  cDeserializeBinary in(desc.ownData());

  cConnectable proxy;
  cRecordingFactory factory;
  cPublicSlot& slot = proxy.registerRemoteSlot(in, factory);
  cPublicSignal& signal = proxy.registerRemoteSignal(in, factory);
  EXPECT_EQ(factory.mvAsked, (std::vector<std::string>{"slot rename", "signal changed"}));

  const cPublicSlot& original = svc.findPublicSlot("rename");
  EXPECT_STREQ(slot.name().c_str(), "rename");
  EXPECT_EQ(slot.returnTypeName(), original.returnTypeName());
  EXPECT_EQ(slot.paramTypeNames(), original.paramTypeNames());
  EXPECT_EQ(slot.description(), original.description());
  EXPECT_EQ(slot.parameters(), original.parameters());
  EXPECT_EQ(slot.returnValue(), original.returnValue());
  EXPECT_EQ(&proxy.findPublicSlot("rename"), &slot);
  EXPECT_EQ(&slot.slot()->assignedObject(), &proxy);

  EXPECT_EQ(&proxy.findSignal("changed"), &signal);
  EXPECT_STREQ(signal.signal().publicSignalName().c_str(), "changed");
  EXPECT_STREQ(signal.paramTypeNames().c_str(), "piInt32, cAsciiString");
  EXPECT_STREQ(signal.description().c_str(), "on change");
  EXPECT_EQ(signal.parameters().size(), 2u);

  // Reading a description again replaces the parameters.
  cSerializeBinary again;
  original >> again;
  cDeserializeBinary againIn(again.ownData());
  slot << againIn;
  EXPECT_EQ(slot.parameters().size(), 2u);

  // The stand-ins here implement neither indirect path.
  cSerializeBinary none;
  cDeserializeBinary noneIn(none.ownData());
  proxy.invokeIndirectRemoteSlot("rename", noneIn, none);
  cReferenceFrame frame;
  proxy.invokeIndirectSlot("rename", frame);
  EXPECT_TRUE(debug.contains("DummyCall (2)"));
  EXPECT_TRUE(debug.contains("DummyCall (1)"));

  proxy.registerRemoteSlot("raw", qstd::tAutoPtr<qrmi::cAbstractSlotCall>(new qrmi::cAbstractSlotCall(proxy, nullptr)));
  EXPECT_STREQ(proxy.findPublicSlot("raw").paramTypeNames().c_str(), "");
}

TEST(RemoteRegistration, ATruncatedDescriptionChangesNothing) {
  cService svc;
  cSerializeBinary desc;
  svc.findPublicSlot("add") >> desc;
  qstd::tArray<char> bytes(desc.ownData());
  bytes.setSize(bytes.size() - 3);
  cDeserializeBinary in(bytes);
  cConnectable proxy;
  cRecordingFactory factory;
  EXPECT_THROW(proxy.registerRemoteSlot(in, factory), qstd::cAbstractException);
  EXPECT_THROW(proxy.registerRemoteSignal(in, factory), qstd::cAbstractException);
  EXPECT_EQ(proxy.hasPublicSlots(), nullptr);
  EXPECT_EQ(proxy.hasPublicSignals(), nullptr);
  EXPECT_TRUE(factory.mvAsked.empty());
}
