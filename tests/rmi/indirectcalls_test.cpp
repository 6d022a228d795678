// Slots called by name: through a reference frame, through archives, and from
// local signals connected lazily to public slots.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbugexception.h"

#include "rmitestutil.h"

using qsa::cDeserializeBinary;
using qsa::cReferenceFrame;
using qsa::cSerializeBinary;
using qsa::piVoid;
using qstd::cAsciiString;
using rmitest::chainOf;
using rmitest::cService;
using rmitest::textOf;

namespace {

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

TEST(IndirectArchiveCalls, BadArgumentsRaiseTheMissmatchChainAndConsumeAndWriteNothing) {
  cService svc;
  auto callAdd = [&](cSerializeBinary& args) {
    cDeserializeBinary in(args.ownData());
    cSerializeBinary out;
    auto chain = missmatchChainOf([&] { svc.invokeIndirectRemoteSlot("add", in, out); });
    EXPECT_EQ(out.ownData().size(), 0u);
    EXPECT_EQ(in.currentPos(), 0u);  // the arguments are left unread
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
  EXPECT_EQ(qeltest::thrownText<qrmi::cNoSuchSlotException>([&] { svc.invokeIndirectRemoteSlot("nope", in, out); }),
            "Slot \"nope((?))\" not found in interface!");
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
