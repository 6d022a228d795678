// Objects made of several archive values load all or nothing: a load that
// fails on any of its values leaves the reader where it stood and the object
// as it was, whichever value is torn off.
#include <algorithm>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/cssvalue.h"
#include "qelcore/rmi/signal0.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "archivetestutil.h"
#include "rmi/rmitestutil.h"
#include "support/exceptiontext.h"

using namespace satest;
using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

namespace {

// The archived form of whatever `store` writes.
Bytes stored(const std::function<void(cSerializeBinary&)>& store) {
  cSerializeBinary s;
  store(s);
  return bytesOf(s);
}

// Cuts `object` (as `store` writes it) after every byte but its last, behind a
// leading value, and loads each piece: every load must fail, leave the reader
// right after the leading value and leave `state()` as it was.
void expectAllOrNothing(const std::function<void(cSerializeBinary&)>& store,
                        const std::function<void(cDeserializeBinary&)>& load, const std::function<Bytes()>& state) {
  const Bytes object = stored(store);
  const Bytes before = state();
  for (std::size_t cut = 0; cut < object.size(); ++cut) {
    Bytes torn = words({4, 7});
    torn.insert(torn.end(), object.begin(), object.begin() + cut);
    qstd::tArray<char> data = arrayOf(torn);
    cDeserializeBinary d(data);
    unsigned int lead = 0;
    lead << d;
    EXPECT_THROW(load(d), qstd::cAbstractException) << "cut at " << cut;
    EXPECT_EQ(d.currentPos(), 8u) << "cut at " << cut;
    EXPECT_EQ(state(), before) << "cut at " << cut;
  }
  // The whole object loads and is read to its end.
  qstd::tArray<char> whole = arrayOf(object);
  cDeserializeBinary d(whole);
  load(d);
  EXPECT_EQ(d.currentPos(), object.size());
}

template <class T>
Bytes bytesOfValue(const T& value) {
  return stored([&](cSerializeBinary& s) { value >> s; });
}

}  // namespace

TEST(CompositeLoads, BuildInfo) {
  const qstd::cBuildInfo given("cmake", "g++", "12", "host", "2026-11-22", 42);
  qstd::cBuildInfo target;
  expectAllOrNothing([&](cSerializeBinary& s) { given >> s; }, [&](cDeserializeBinary& d) { target << d; },
                     [&] { return bytesOfValue(target); });
  EXPECT_EQ(bytesOfValue(target), bytesOfValue(given));
}

TEST(CompositeLoads, SlotAndSignalDescriptions) {
  rmitest::cService svc;
  svc.sigChanged.exportSignal(svc, "changed", qrmi::cAbstractSignal::eRequiredInterface, "on change");
  const qrmi::cPublicSlot& slot = svc.findPublicSlot("rename");
  const qrmi::cPublicSignal& signal = svc.findPublicSignal("changed");

  qrmi::cSSValue value;
  expectAllOrNothing([&](cSerializeBinary& s) { slot.returnValue() >> s; }, [&](cDeserializeBinary& d) { value << d; },
                     [&] { return bytesOfValue(value); });

  qrmi::cConnectable proxy;
  qrmi::cPublicSlot& slotTarget = proxy.registerRemoteSlot(
      "raw", qstd::tAutoPtr<qrmi::cAbstractSlotCall>(new qrmi::cAbstractSlotCall(proxy, nullptr)));
  expectAllOrNothing([&](cSerializeBinary& s) { slot >> s; }, [&](cDeserializeBinary& d) { slotTarget << d; },
                     [&] { return bytesOfValue(slotTarget); });
  EXPECT_EQ(bytesOfValue(slotTarget), bytesOfValue(slot));

  qrmi::localSignal1<qsa::piVoid, int> other;
  qrmi::cPublicSignal& signalTarget = other.exportSignal(svc, "other", qrmi::cAbstractSignal::eProvidedInterface, "");
  expectAllOrNothing([&](cSerializeBinary& s) { signal >> s; }, [&](cDeserializeBinary& d) { signalTarget << d; },
                     [&] { return bytesOfValue(signalTarget); });
  EXPECT_EQ(signalTarget.type(), qrmi::cAbstractSignal::eRequiredInterface);

  // An interface type the enum does not know is refused like a torn one.
  Bytes forged = bytesOfValue(signal);
  const Bytes typeField = words({4, 1});
  auto at = std::search(forged.begin(), forged.end(), typeField.begin(), typeField.end());
  ASSERT_NE(at, forged.end());
  at[4] = 2;
  qstd::tArray<char> data = arrayOf(forged);
  cDeserializeBinary d(data);
  EXPECT_THROW(signalTarget << d, qstd::cAbstractException);
  EXPECT_EQ(d.currentPos(), 0u);
}

namespace {

// Stand-ins that cannot be made: registration fails after the description was read.
class cRefusingFactory : public qrmi::cAbstractRMIFactory {
public:
  qstd::tAutoPtr<qrmi::cAbstractSlotCall> createSlotCall(qrmi::cConnectable&, const qrmi::cPublicSlot&) override {
    throw qstd::cRuntimeException(qucs::cLIMessage("$QNTR$no slot"), __FILE__, __LINE__);
  }
  qstd::tAutoPtr<qrmi::cAbstractSignal> createSignal(qrmi::cConnectable&, const qrmi::cPublicSignal&) override {
    throw qstd::cRuntimeException(qucs::cLIMessage("$QNTR$no signal"), __FILE__, __LINE__);
  }
};

}  // namespace

TEST(CompositeLoads, RemoteRegistrationThatFailsReadsNothing) {
  rmitest::cService svc;
  cSerializeBinary desc;
  svc.findPublicSlot("add") >> desc;
  cDeserializeBinary in(desc.ownData());
  qrmi::cConnectable proxy;
  cRefusingFactory factory;
  EXPECT_THROW(proxy.registerRemoteSlot(in, factory), qstd::cRuntimeException);
  EXPECT_EQ(in.currentPos(), 0u);
  EXPECT_EQ(proxy.hasPublicSlots(), nullptr);
}

TEST(CompositeLoads, ExceptionChains) {
  qstd::cBugException chain(qucs::cLIMessage("$QTR$outer %n%") << 1, "a.cpp", 1);
  chain.link(qstd::cRuntimeException(qucs::cLIMessage("$QTR$inner"), "b.cpp", 2));
  const qstd::cSTDExceptionFactory factory;
  expectAllOrNothing([&](cSerializeBinary& s) { chain.storeRecursive(s); },
                     [&](cDeserializeBinary& d) { qstd::cAbstractException::createFromStream(d, factory); },
                     [] { return Bytes(); });

  // One exception's own load: what its store() writes after the type name.
  // The kind changes with the message or not at all.
  qstd::cRuntimeException target(qucs::cLIMessage("$QTR$kept"), "c.cpp", 3);
  expectAllOrNothing(
      [&](cSerializeBinary& s) {
        static_cast<int>(qstd::cAbstractException::TypeBug) >> s;
        true >> s;
        *chain.liMessage() >> s;
      },
      [&](cDeserializeBinary& d) { target.load(d); },
      [&] {
        Bytes state = bytesOfValue(*target.liMessage());
        state.push_back(static_cast<unsigned char>(target.type()));
        state.push_back(target.outOfMemoryCondition());
        return state;
      });
  EXPECT_EQ(target.type(), qstd::cAbstractException::TypeBug);
  EXPECT_EQ(qeltest::textOf(target), "outer 1");
}

TEST(CompositeLoads, ArraysAndFrames) {
  qstd::tArray<unsigned int> numbers;
  numbers.append(7u);
  numbers.append(8u);
  qstd::tArray<unsigned int> target;
  target.append(1u);
  expectAllOrNothing([&](cSerializeBinary& s) { numbers >> s; }, [&](cDeserializeBinary& d) { target << d; },
                     [&] { return bytesOfValue(target); });

  // A frame loads into the values it refers to; a failed load reads nothing.
  int a = 0;
  qucs::cString b;
  qsa::cReferenceFrame in;
  in.add(a).add(b);
  int a0 = 5;
  qucs::cString b0("five");
  qsa::cReferenceFrame out;
  out.add(a0).add(b0);
  expectAllOrNothing([&](cSerializeBinary& s) { out >> s; }, [&](cDeserializeBinary& d) { in << d; },
                     [] { return Bytes(); });
  EXPECT_EQ(a, 5);

  // A frame that cannot store one of its values writes nothing.
  struct sLocal {
    int x;
  } local = {1};
  qsa::cReferenceFrame bad;
  bad.add(a0).add(local);
  cSerializeBinary s;
  1u >> s;
  EXPECT_THROW(bad >> s, qstd::cBugException);
  EXPECT_EQ(s.currentPos(), 8u);
}
