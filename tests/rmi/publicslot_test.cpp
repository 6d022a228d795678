#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/crmiexceptionfactory.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"
#include "qelcore/rmi/signal0.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cstdexceptionfactory.h"

#include "rmitestutil.h"
#include "support/capturingout.h"

using qrmi::cConnectable;
using qrmi::cPublicSignal;
using qrmi::cPublicSlot;
using qsa::cDeserializeBinary;
using qsa::cReferenceFrame;
using qsa::cSerializeBinary;
using qsa::piVoid;
using qstd::cAsciiString;
using rmitest::chainOf;
using rmitest::textOf;

namespace {

class cService : public cConnectable {
public:
  cService() {
    qrmi::registerPublicSlot(*this, &cService::sltAdd, "add", "adds two numbers");
    qrmi::registerPublicSlot(*this, &cService::sltRename, "rename");
    qrmi::registerPublicSlot(*this, &cService::sltHello, "hello");
  }
  int sltAdd(int a, int b) {
    ++miCalls;
    return a + b;
  }
  piVoid sltRename(const cAsciiString& prefix, cAsciiString& name) {
    ++miCalls;
    name = prefix + name;
    return piVoid();
  }
  cAsciiString sltHello() {
    ++miCalls;
    return cAsciiString("hello");
  }
  int miCalls = 0;
  qrmi::localSignal2<piVoid, int, const cAsciiString&> sigChanged;
};

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

template <class F>
std::vector<std::string> missmatchChainOf(F f) {
  try {
    f();
  } catch (const qrmi::cCallParameterMissmatchException& e) {
    return chainOf(e);
  }
  return {"no mismatch"};
}

}  // namespace

TEST(PublicSlots, LookupsAreExactAndCreateNothing) {
  cConnectable plain;
  EXPECT_EQ(plain.tryFindSlot("add"), nullptr);
  EXPECT_EQ(plain.hasPublicSlots(), nullptr);
  EXPECT_EQ(plain.hasPublicSignals(), nullptr);

  cService svc;
  ASSERT_NE(svc.tryFindSlot("add"), nullptr);
  EXPECT_EQ(svc.tryFindSlot("Add"), nullptr);
  try {
    svc.findPublicSlot("Add");
    FAIL();
  } catch (const qrmi::cNoSuchSlotException& e) {
    EXPECT_EQ(textOf(e), "Slot \"Add((?))\" not found in interface!");
    EXPECT_STREQ(e.slotName().c_str(), "Add");
    EXPECT_STREQ(e.slotArgs().c_str(), "(?)");
  }
  const qrmi::cAbstractSlotCall& add = *svc.tryFindSlot("add");
  EXPECT_EQ(svc.tryFindPublicSlot(add), &svc.findPublicSlot("add"));
  EXPECT_STREQ(svc.publicSlotName(add).c_str(), "add");
  EXPECT_STREQ(add.publicSlotName().c_str(), "add");
  EXPECT_EQ(svc.findPublicSlot("add").slot(), &add);

  qrmi::cAbstractSlotCall loose(svc, nullptr);
  EXPECT_STREQ(svc.publicSlotName(loose).c_str(), "unknown");
  try {
    loose.publicSlotName();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(textOf(e), "Slot is not a public one!");
  }
  // A second slot of the same name is kept, but the first one answers.
  qrmi::registerPublicSlot(svc, &cService::sltAdd, "hello");
  EXPECT_STREQ(svc.findPublicSlot("hello").returnTypeName().c_str(), "cAsciiString");
}

TEST(PublicSlots, DescriptionsFollowTheCxxTypes) {
  cService svc;
  const cPublicSlot& add = svc.findPublicSlot("add");
  EXPECT_STREQ(add.returnTypeName().c_str(), "piInt32");
  EXPECT_STREQ(add.paramTypeNames().c_str(), "piInt32, piInt32");
  EXPECT_STREQ(add.description().c_str(), "adds two numbers");
  ASSERT_EQ(add.parameters().size(), 2u);
  EXPECT_STREQ(add.parameters()[0].typeName().c_str(), "piInt32");

  const cPublicSlot& rename = svc.findPublicSlot("rename");
  EXPECT_STREQ(rename.returnTypeName().c_str(), "");
  EXPECT_TRUE(rename.returnValue().isVoid());
  EXPECT_STREQ(rename.paramTypeNames().c_str(), "cAsciiString, cAsciiString");
  ASSERT_EQ(rename.parameters().size(), 2u);
  EXPECT_FALSE(rename.parameters()[0].isAlterable());
  EXPECT_TRUE(rename.parameters()[1].isAlterable());
  EXPECT_STREQ(svc.findPublicSlot("hello").paramTypeNames().c_str(), "");
}

TEST(PublicSignals, ExportFindAndNames) {
  cService svc;
  try {
    svc.sigChanged.publicSignalName();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(textOf(e), "Signal is not a public one!");
  }
  cPublicSignal& sig = svc.sigChanged.exportSignal(svc, "changed", qrmi::cAbstractSignal::eRequiredInterface, "d");
  EXPECT_EQ(&svc.findSignal("changed"), &sig);
  EXPECT_EQ(&sig.signal(), &svc.sigChanged);
  EXPECT_EQ(svc.sigChanged.isPublicSignal(), &sig);
  EXPECT_STREQ(svc.sigChanged.publicSignalName().c_str(), "changed");
  EXPECT_STREQ(sig.paramTypeNames().c_str(), "piInt32, cAsciiString");
  EXPECT_STREQ(sig.returnTypeName().c_str(), "");
  EXPECT_EQ(sig.type(), qrmi::cAbstractSignal::eRequiredInterface);
  EXPECT_EQ(sig.parameters().size(), 2u);
  ASSERT_NE(svc.hasPublicSignals(), nullptr);
  try {
    static_cast<const cService&>(svc).findPublicSignal("Changed");
    FAIL();
  } catch (const qrmi::cNoSuchSignalException& e) {
    EXPECT_EQ(textOf(e), "Signal \"Changed\" could not be found in interface!");
    EXPECT_STREQ(e.signalName().c_str(), "Changed");
  }
  svc.clear();
  EXPECT_EQ(svc.sigChanged.isPublicSignal(), nullptr);
  EXPECT_EQ(svc.tryFindSlot("add"), nullptr);
  EXPECT_THROW(svc.findSignal("changed"), qrmi::cNoSuchSignalException);
}

TEST(IndirectFrameCalls, ResultAndAlterableArgumentsLandInTheFrame) {
  cService svc;
  int result = -1, a = 2, b = 3;
  cReferenceFrame frame;
  frame.add(result).add(a).add(b);
  svc.invokeIndirectSlot("add", frame);
  EXPECT_EQ(result, 5);

  piVoid none;
  const cAsciiString prefix("my");
  cAsciiString name("file");
  cReferenceFrame renaming;
  renaming.add(none).add(prefix).add(name);
  svc.invokeIndirectSlot("rename", renaming);
  EXPECT_STREQ(name.c_str(), "myfile");

  cAsciiString hello;
  cReferenceFrame greeting;
  greeting.add(hello);
  svc.invokeIndirectSlot("hello", greeting);
  EXPECT_STREQ(hello.c_str(), "hello");
}

TEST(IndirectFrameCalls, BadFramesRaiseTheMissmatchChainAndCallNothing) {
  cService svc;
  int result = -1, a = 2;
  double wrong = 1.5;
  cReferenceFrame frame;
  frame.add(result).add(a).add(wrong);
  auto chain = missmatchChainOf([&] { svc.invokeIndirectSlot("add", frame); });
  ASSERT_EQ(chain.size(), 3u);
  EXPECT_EQ(chain[0], "Slot parameter of (add) or return value missmatch!");
  EXPECT_EQ(chain[1], "Definition: \"piInt32 add(piInt32, piInt32)\"");
  EXPECT_EQ(chain[2].rfind("Type mismatch: Expecting type", 0), 0u) << chain[2];
  EXPECT_NE(chain[2].find("piDouble"), std::string::npos) << chain[2];
  cReferenceFrame tooShort;
  tooShort.add(result).add(a);
  EXPECT_EQ(missmatchChainOf([&] { svc.invokeIndirectSlot("add", tooShort); }).at(2),
            "Type mismatch: Expecting type \"piInt32, piInt32\" but got object of type \"piInt32\"!");
  // A constant value cannot take an alterable argument or the result.
  piVoid none;
  const cAsciiString prefix("p"), name("n");
  cReferenceFrame constName;
  constName.add(none).add(prefix).add(name);
  EXPECT_EQ(missmatchChainOf([&] { svc.invokeIndirectSlot("rename", constName); }).size(), 3u);
  EXPECT_EQ(result, -1);
  EXPECT_EQ(svc.miCalls, 0);
}

TEST(IndirectFrameCalls, UnknownSlotNamesTheFrameTypes) {
  cService svc;
  piVoid none;
  int a = 1;
  cAsciiString s;
  cReferenceFrame frame;
  frame.add(none).add(a).add(s);
  try {
    svc.invokeIndirectSlot("nope", frame);
    FAIL();
  } catch (const qrmi::cNoSuchSlotException& e) {
    EXPECT_EQ(textOf(e), "Slot \"nope(piInt32, cAsciiString)\" not found in interface");
    EXPECT_STREQ(e.slotArgs().c_str(), "piInt32, cAsciiString");
  }
}

TEST(IndirectArchiveCalls, ArgumentsInResultsOut) {
  cService svc;
  cSerializeBinary args;
  args.store(2);
  args.store(40);
  cDeserializeBinary in(args.ownData());
  cSerializeBinary out;
  svc.invokeIndirectRemoteSlot("add", in, out);
  cDeserializeBinary result(out.ownData());
  int sum = 0;
  result.load(sum);
  EXPECT_EQ(sum, 42);
  EXPECT_TRUE(result.eoc());

  cSerializeBinary renameArgs;
  renameArgs.store(cAsciiString("my"));
  renameArgs.store(cAsciiString("file"));
  cDeserializeBinary renameIn(renameArgs.ownData());
  cSerializeBinary renameOut;
  svc.invokeIndirectRemoteSlot("rename", renameIn, renameOut);
  cDeserializeBinary renamed(renameOut.ownData());
  cAsciiString name;
  renamed.load(name);  // piVoid writes nothing; the alterable argument follows
  EXPECT_STREQ(name.c_str(), "myfile");
  EXPECT_TRUE(renamed.eoc());
}

TEST(IndirectArchiveCalls, BadArgumentsRaiseTheMissmatchChainAndWriteNothing) {
  cService svc;
  auto callAdd = [&](cSerializeBinary& args) {
    cDeserializeBinary in(args.ownData());
    cSerializeBinary out;
    auto chain = missmatchChainOf([&] { svc.invokeIndirectRemoteSlot("add", in, out); });
    EXPECT_EQ(out.ownData().size(), 0u);
    return chain;
  };
  cSerializeBinary wrongType;
  wrongType.store(1);
  wrongType.store(cAsciiString("2"));
  auto chain = callAdd(wrongType);
  ASSERT_EQ(chain.size(), 3u);
  EXPECT_EQ(chain[0], "Slot parameter of (add) or return value missmatch!");
  EXPECT_EQ(chain[1], "Definition: \"piInt32 add(piInt32, piInt32)\"");
  EXPECT_EQ(chain[2], "Type mismatch: Expecting type \"piInt32\" but got object of type \"cAsciiString\"!");

  cSerializeBinary tooFew;
  tooFew.store(1);
  EXPECT_EQ(callAdd(tooFew).at(2), "Unable to deserialize - end of context!");

  cSerializeBinary tooMany;
  tooMany.store(1);
  tooMany.store(2);
  tooMany.store(3);
  EXPECT_EQ(callAdd(tooMany).at(2),
            "Type mismatch: Expecting type \"piInt32, piInt32\" but got object of type \"piInt32, piInt32, ...\"!");
  EXPECT_EQ(svc.miCalls, 0);

  cSerializeBinary empty;
  cDeserializeBinary in(empty.ownData());
  cSerializeBinary out;
  try {
    svc.invokeIndirectRemoteSlot("nope", in, out);
    FAIL();
  } catch (const qrmi::cNoSuchSlotException& e) {
    EXPECT_EQ(textOf(e), "Slot \"nope((?))\" not found in interface!");
  }
}

TEST(IndirectArchiveCalls, UnpublishedSlotCallsReportTheShortMissmatch) {
  cService svc;
  qrmi::cIndirectResolvingSlotCall2<cService, int, int, int> call(svc, &cService::sltAdd);
  int result = 0, a = 1;
  cReferenceFrame frame;
  frame.add(result).add(a);
  auto chain = missmatchChainOf([&] { call.call(frame); });
  ASSERT_EQ(chain.size(), 2u);
  EXPECT_EQ(chain[0], "Slot parameter or return value missmatch on unregistered slot!");
}

TEST(IndirectLazySlotCalls, LocalSignalsReachPublicSlotsByName) {
  cService svc;
  qrmi::localSignal2<int, int, int> sigAdd;
  sigAdd.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall2<int, int, int>>(
      new qrmi::cIndirectLazySlotCall2<int, int, int>(svc, "add", &sigAdd)));
  EXPECT_EQ(sigAdd(20, 22), 42);
  EXPECT_EQ(svc.attachedSignals().size(), 1u);

  qrmi::localSignal2<piVoid, const cAsciiString&, cAsciiString&> sigRename;
  sigRename.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall2<piVoid, const cAsciiString&, cAsciiString&>>(
      new qrmi::cIndirectLazySlotCall2<piVoid, const cAsciiString&, cAsciiString&>(svc, "rename", &sigRename)));
  cAsciiString name("x");
  sigRename(cAsciiString("a"), name);
  EXPECT_STREQ(name.c_str(), "ax");

  // Looked up at every call: a slot of another signature is a mismatch,
  // a missing one is reported by name.
  qrmi::localSignal1<int, int> sigWrong;
  sigWrong.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall1<int, int>>(
      new qrmi::cIndirectLazySlotCall1<int, int>(svc, "add", &sigWrong)));
  EXPECT_EQ(missmatchChainOf([&] { sigWrong(1); }).at(0), "Slot parameter of (add) or return value missmatch!");
  svc.clear();
  EXPECT_THROW(sigAdd(1, 2), qrmi::cUnconnectedSignalException);
  qrmi::localSignal0<cAsciiString> sigHello;
  sigHello.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall0<cAsciiString>>(
      new qrmi::cIndirectLazySlotCall0<cAsciiString>(svc, "hello", &sigHello)));
  EXPECT_THROW(sigHello(), qrmi::cNoSuchSlotException);
}

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

TEST(SSValues, CompareAndTravelWithAllFields) {
  qrmi::cSSValue a, b;
  a.set("piInt32", true, false);
  a.setDescription("count");
  EXPECT_TRUE(a != b);
  cSerializeBinary out;
  a >> out;
  cDeserializeBinary in(out.ownData());
  b << in;
  EXPECT_FALSE(a != b);
  EXPECT_TRUE(b.isAlterable());
  EXPECT_FALSE(b.isVoid());
  qrmi::cSSValue c = b;
  c.set("piInt32", true, true);
  EXPECT_TRUE(c != b);
}

namespace {
// Knows the exceptions of the foundation and of the signals.
class cChainFactory : public qstd::cAbstractExceptionFactory {
public:
  qstd::cAbstractException* createException(const cAsciiString& typeName) const override {
    qstd::cAbstractException* e = mRmi.createException(typeName);
    return e ? e : mStd.createException(typeName);
  }
  qrmi::cRMIExceptionFactory mRmi;
  qstd::cSTDExceptionFactory mStd;
};
}  // namespace

TEST(RMIExceptions, ChainsTravelAndAreRebuiltAsTheirOwnClasses) {
  cService svc;
  cSerializeBinary bad;
  bad.store(true);
  cDeserializeBinary in(bad.ownData());
  cSerializeBinary out;
  cSerializeBinary stored;
  try {
    svc.invokeIndirectRemoteSlot("add", in, out);
    FAIL();
  } catch (const qrmi::cCallParameterMissmatchException& e) {
    e.storeRecursive(stored);
  }
  cDeserializeBinary back(stored.ownData());
  qstd::tAutoPtr<qstd::cAbstractException> rebuilt = qstd::cAbstractException::createFromStream(back, cChainFactory());
  ASSERT_NE(rebuilt.get(), nullptr);
  EXPECT_NE(dynamic_cast<qrmi::cCallParameterMissmatchException*>(rebuilt.get()), nullptr);
  EXPECT_EQ(chainOf(*rebuilt).size(), 3u);
  EXPECT_EQ(chainOf(*rebuilt).at(1), "Definition: \"piInt32 add(piInt32, piInt32)\"");

  qrmi::cRMIExceptionFactory factory;
  for (const char* name : {"cUnconnectedSignalException", "cNoSuchSlotException", "cNoSuchSignalException",
                           "cCallParameterMissmatchException"}) {
    qstd::tAutoPtr<qstd::cAbstractException> e(factory.createException(name));
    ASSERT_NE(e.get(), nullptr) << name;
    EXPECT_STREQ(e->typeName().c_str(), name);
    qstd::tAutoPtr<qstd::cAbstractException> copy(e->clone());
    EXPECT_STREQ(copy->typeName().c_str(), name);
  }
  EXPECT_EQ(factory.createException("cRuntimeException"), nullptr);
}
