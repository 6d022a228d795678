#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/rmi/cindirectlazyslotcalln.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"
#include "qelcore/rmi/signal0.h"
#include "qelcore/std/cbugexception.h"

#include "rmitestutil.h"
#include "support/capturingout.h"

using qrmi::cConnectable;
using qrmi::localSignal0;
using qrmi::localSignal1;
using qrmi::localSignal4;
using qsa::piVoid;
using rmitest::textOf;

namespace {

typedef std::vector<std::string> tLog;

// A receiver that logs its calls and can run a scripted action inside one.
class cReceiver : public cConnectable {
public:
  cReceiver(tLog& log, const std::string& name, int value = 0) : mLog(log), msName(name), miValue(value) {}
  std::function<void()> mAction;

  int sltValue() {
    mLog.push_back(msName);
    if (mAction) mAction();
    return miValue;
  }
  piVoid sltNote(int v) {
    mLog.push_back(msName + ":" + std::to_string(v));
    if (mAction) mAction();
    return piVoid();
  }

private:
  tLog& mLog;
  std::string msName;
  int miValue;
};

}  // namespace

TEST(LocalSignalEmission, UnconnectedSignalThrowsOrReturnsDefault) {
  localSignal0<int> sig;
  try {
    sig();
    FAIL() << "no exception";
  } catch (const qrmi::cUnconnectedSignalException& e) {
    EXPECT_EQ(textOf(e), "Call of an unconnected signal");
    EXPECT_EQ(std::string(e.typeName().c_str()), "cUnconnectedSignalException");
    // Raised where the emission found no slot.
    EXPECT_STREQ(e.sourceFileName(), "qelcore/rmi/localsignaln.h");
  }
  EXPECT_EQ(sig.emissionDepth(), 0u);
  sig.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  EXPECT_EQ(sig(), 0);
  // Any nonzero behaviour counts as "may be unconnected".
  sig.setInvocationBehavior(static_cast<qrmi::cAbstractSignal::InvocationBehavior>(7));
  EXPECT_EQ(sig(), 0);
  // The behaviour can also be given at construction.
  localSignal1<int, int> lenient(qrmi::cAbstractSignal::eMayBeUnconnected);
  EXPECT_EQ(lenient.invocationBehavior(), qrmi::cAbstractSignal::eMayBeUnconnected);
  EXPECT_EQ(lenient(4), 0);
}

TEST(LocalSignalEmission, OnlyASingleSlotDeliversItsResult) {
  tLog log;
  cReceiver a(log, "a", 7), b(log, "b", 9);
  localSignal0<int> sig;
  sig.connect(a, &cReceiver::sltValue);
  EXPECT_EQ(sig(), 7);
  sig.connect(b, &cReceiver::sltValue);
  EXPECT_EQ(sig(), 0);
  EXPECT_EQ(log, (tLog{"a", "a", "b"}));
}

TEST(LocalSignalEmission, ArgumentsReachEverySlotInConnectionOrder) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b");
  localSignal1<piVoid, int> sig;
  sig.connect(a, &cReceiver::sltNote);
  sig.connect(b, &cReceiver::sltNote);
  sig.connect(a, &cReceiver::sltNote);
  sig(5);
  EXPECT_EQ(log, (tLog{"a:5", "b:5", "a:5"}));
  EXPECT_EQ(a.attachedSignals().size(), 2u);
}

TEST(LocalSignalEmission, SlotsThatDisconnectDuringEmissionSkipNothingAndRepeatNothing) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b"), c(log, "c"), d(log, "d");
  localSignal1<piVoid, int> sig;
  sig.connect(a, &cReceiver::sltNote);
  sig.connect(b, &cReceiver::sltNote);
  sig.connect(c, &cReceiver::sltNote);
  sig.connect(d, &cReceiver::sltNote);
  // b removes itself, c removes a slot before it: every other slot still
  // runs exactly once.
  b.mAction = [&] { sig.disconnect(b); };
  c.mAction = [&] { sig.disconnect(a); };
  sig(1);
  EXPECT_EQ(log, (tLog{"a:1", "b:1", "c:1", "d:1"}));
  EXPECT_EQ(sig.slotCount(), 2u);
  EXPECT_TRUE(a.attachedSignals().empty());
  EXPECT_TRUE(b.attachedSignals().empty());
  // A slot that removes a later one prevents its call.
  log.clear();
  c.mAction = [&] { sig.disconnect(d); };
  sig(2);
  EXPECT_EQ(log, (tLog{"c:2"}));
  EXPECT_EQ(sig.emissionDepth(), 0u);
}

TEST(LocalSignalEmission, SlotsConnectedDuringEmissionRunInTheSameEmissionOfSeveral) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b"), late(log, "late");
  localSignal1<piVoid, int> sig;
  sig.connect(a, &cReceiver::sltNote);
  bool once = true;
  a.mAction = [&] {
    if (once) sig.connect(late, &cReceiver::sltNote);
    once = false;
  };
  // With a single slot the new one waits for the next emission.
  sig(1);
  EXPECT_EQ(log, (tLog{"a:1"}));
  sig.disconnect(late);
  log.clear();
  once = true;
  sig.connect(b, &cReceiver::sltNote);
  sig(2);
  EXPECT_EQ(log, (tLog{"a:2", "b:2", "late:2"}));
}

TEST(LocalSignalEmission, NestedEmissionsCountAndEndTheOuterPass) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b");
  localSignal1<piVoid, int> sig;
  sig.connect(a, &cReceiver::sltNote);
  sig.connect(b, &cReceiver::sltNote);
  std::vector<unsigned int> depths;
  a.mAction = [&] {
    depths.push_back(sig.emissionDepth());
    if (depths.size() == 1) sig(2);
  };
  sig(1);
  // The inner emission calls every slot; the outer one finds them all done.
  EXPECT_EQ(log, (tLog{"a:1", "a:2", "b:2"}));
  EXPECT_EQ(depths, (std::vector<unsigned int>{1, 2}));
  EXPECT_EQ(sig.emissionDepth(), 0u);
}

TEST(LocalSignalEmission, AThrowingSlotStopsTheEmissionAndRestoresTheDepth) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b");
  localSignal1<piVoid, int> sig;
  sig.connect(a, &cReceiver::sltNote);
  sig.connect(b, &cReceiver::sltNote);
  a.mAction = [] { throw std::runtime_error("slot failed"); };
  EXPECT_THROW(sig(1), std::runtime_error);
  EXPECT_EQ(log, (tLog{"a:1"}));
  EXPECT_EQ(sig.emissionDepth(), 0u);
  a.mAction = nullptr;
  sig(2);
  EXPECT_EQ(log, (tLog{"a:1", "a:2", "b:2"}));
}

namespace {
class cEditor : public cConnectable {
public:
  piVoid sltEdit(int n, const qstd::cAsciiString& in, qstd::cAsciiString& out, double f) {
    out = in;
    out.addNum32(n);
    mf = f;
    return piVoid();
  }
  double mf = 0;
};
}  // namespace

TEST(LocalSignalEmission, ReferenceArgumentsReachTheEmitter) {
  cEditor editor;
  localSignal4<piVoid, int, const qstd::cAsciiString&, qstd::cAsciiString&, double> sig;
  sig.connect(editor, &cEditor::sltEdit);
  qstd::cAsciiString out;
  sig(42, qstd::cAsciiString("n"), out, 2.5);
  EXPECT_STREQ(out.c_str(), "n42");
  EXPECT_EQ(editor.mf, 2.5);
}

TEST(LocalSignalLifetime, DestroyingAReceiverRemovesItsSlotsFromEverySignal) {
  tLog log;
  cReceiver a(log, "a"), c(log, "c");
  localSignal1<piVoid, int> first, second;
  {
    cReceiver b(log, "b");
    first.connect(a, &cReceiver::sltNote);
    first.connect(b, &cReceiver::sltNote);
    first.connect(c, &cReceiver::sltNote);
    first.connect(b, &cReceiver::sltNote);
    second.connect(b, &cReceiver::sltNote);
    EXPECT_EQ(b.attachedSignals().size(), 3u);
  }
  EXPECT_EQ(first.slotCount(), 2u);
  EXPECT_EQ(second.slotCount(), 0u);
  first(1);
  EXPECT_EQ(log, (tLog{"a:1", "c:1"}));
  EXPECT_THROW(second(1), qrmi::cUnconnectedSignalException);
}

TEST(LocalSignalLifetime, ReceiversDestroyedDuringAnEmissionAreSkippedSafely) {
  tLog log;
  cReceiver a(log, "a"), d(log, "d");
  auto* self = new cReceiver(log, "self");
  auto* later = new cReceiver(log, "later");
  localSignal1<piVoid, int> sig;
  sig.connect(a, &cReceiver::sltNote);
  sig.connect(*self, &cReceiver::sltNote);
  sig.connect(*later, &cReceiver::sltNote);
  sig.connect(d, &cReceiver::sltNote);
  // A receiver that deletes itself and a later receiver from its own slot.
  self->mAction = [&] {
    delete later;
    delete self;
  };
  sig(1);
  EXPECT_EQ(log, (tLog{"a:1", "self:1", "d:1"}));
  EXPECT_EQ(sig.slotCount(), 2u);
  EXPECT_EQ(sig.emissionDepth(), 0u);
}

TEST(LocalSignalLifetime, ClearDetachesAndForgetsEverything) {
  tLog log;
  cReceiver a(log, "a");
  localSignal0<int> s1, s2;
  s1.connect(a, &cReceiver::sltValue);
  s2.connect(a, &cReceiver::sltValue);
  a.clear();
  EXPECT_TRUE(a.attachedSignals().empty());
  EXPECT_EQ(s1.slotCount() + s2.slotCount(), 0u);
}

TEST(LocalSignalLifetime, DestroyingTheSignalFromItsOwnSlotWarnsAndStopsTheEmission) {
  qeltest::cCapturingOut out;
  tLog log;
  cReceiver a(log, "a"), b(log, "b"), c(log, "c");
  auto* sig = new localSignal1<piVoid, int>;
  sig->connect(a, &cReceiver::sltNote);
  sig->connect(b, &cReceiver::sltNote);
  sig->connect(c, &cReceiver::sltNote);
  b.mAction = [&] { delete sig; };
  EXPECT_NO_THROW((*sig)(1));
  EXPECT_EQ(log, (tLog{"a:1", "b:1"}));
  auto entries = out.entries();
  ASSERT_GE(entries.size(), 2u);
  EXPECT_EQ(entries[0].text, ">>>>>>>>> delete this situation in signal!");
  EXPECT_NE(entries[0].file.find("rmi/cabstractsignal"), std::string::npos);
  EXPECT_EQ(entries[0].level, qpi::cAbstractOut::LevelWarning);
  EXPECT_NE(entries[1].text.find("Stack trace"), std::string::npos);
  EXPECT_TRUE(a.attachedSignals().empty() && b.attachedSignals().empty() && c.attachedSignals().empty());

  // The single-slot path survives it as well, and an ordinary destruction is silent.
  out.clear();
  sig = new localSignal1<piVoid, int>;
  sig->connect(b, &cReceiver::sltNote);
  EXPECT_NO_THROW((*sig)(2));
  EXPECT_TRUE(out.contains(">>>>>>>>> delete this situation in signal!"));
  // Destroyed inside a nested emission: the outer one stops as well.
  out.clear();
  log.clear();
  sig = new localSignal1<piVoid, int>;
  sig->connect(a, &cReceiver::sltNote);
  sig->connect(b, &cReceiver::sltNote);
  bool nested = false;
  a.mAction = [&] {
    if (!nested) {
      nested = true;
      (*sig)(2);
    }
  };
  EXPECT_NO_THROW((*sig)(1));
  EXPECT_EQ(log, (tLog{"a:1", "a:2", "b:2"}));
  EXPECT_TRUE(out.contains(">>>>>>>>> delete this situation in signal!"));
  out.clear();
  { localSignal1<piVoid, int> quiet; }
  EXPECT_TRUE(out.entries().empty());
}

TEST(LocalSignalLifetime, SlotCallsTheSignalDoesNotHoldLeaveTheReceiversEntriesAlone) {
  tLog log;
  auto* a = new cReceiver(log, "a");
  cReceiver b(log, "b");
  localSignal1<piVoid, int> sig, other;
  sig.connect(*a, &cReceiver::sltNote);
  sig.connect(b, &cReceiver::sltNote);
  // Made for the signal, dropped before it was connected.
  { qrmi::cIndirectLazySlotCall1<piVoid, int> stray(*a, "note", &sig); }
  // Made for the signal, connected to another one.
  other.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall1<piVoid, int>>(
      new qrmi::cDirectLocalSlotCall1<cReceiver, piVoid, int>(*a, &cReceiver::sltNote, &sig)));
  EXPECT_EQ(a->attachedSignals(), (cConnectable::tSignalList{&sig, &other}));
  delete a;
  EXPECT_EQ(sig.slotCount(), 1u);
  EXPECT_EQ(other.slotCount(), 0u);
  sig(1);
  EXPECT_EQ(log, (tLog{"b:1"}));
}

TEST(LocalSignalLifetime, DetachingKeepsNoEntryForSignalsThatMayDieFirst) {
  tLog log;
  cReceiver a(log, "a");
  auto* sig = new localSignal1<piVoid, int>;
  sig->connect(a, &cReceiver::sltNote);
  a.detachAllSignals();
  EXPECT_EQ(sig->slotCount(), 0u);
  EXPECT_TRUE(a.attachedSignals().empty());
  delete sig;
  // `a` dies last and must not reach the signal.
}

TEST(LocalSignalConnections, TakingOverASlotCallMovesTheReceiversEntry) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b");
  localSignal1<piVoid, int> first, second;
  // Created without a signal: the receiver learns of it when connected.
  second.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall1<piVoid, int>>(
      new qrmi::cDirectLocalSlotCall1<cReceiver, piVoid, int>(a, &cReceiver::sltNote, nullptr)));
  ASSERT_EQ(a.attachedSignals().size(), 1u);
  EXPECT_EQ(a.attachedSignals()[0], &second);
  // Created for another signal: its entry moves over.
  first.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall1<piVoid, int>>(
      new qrmi::cDirectLocalSlotCall1<cReceiver, piVoid, int>(b, &cReceiver::sltNote, &second)));
  EXPECT_EQ(b.attachedSignals(), (cConnectable::tSignalList{&first}));
  EXPECT_EQ(first.slotCalls()[0]->signal(), &first);
  first(3);
  second(4);
  EXPECT_EQ(log, (tLog{"b:3", "a:4"}));
  // Taken over without a handle: a connection like any other.
  auto* plain = new qrmi::cDirectLocalSlotCall1<cReceiver, piVoid, int>(a, &cReceiver::sltNote, nullptr);
  first.connectWithoutHandle(plain);
  EXPECT_EQ(a.attachedSignals(), (cConnectable::tSignalList{&second, &first}));
  first(5);
  EXPECT_EQ(log, (tLog{"b:3", "a:4", "b:5", "a:5"}));
  EXPECT_TRUE(first.disconnect(*plain));
  EXPECT_EQ(a.attachedSignals(), (cConnectable::tSignalList{&second}));
}

TEST(LocalSignalConnections, LocalSlotCallsRefuseIndirectUse) {
  tLog log;
  cReceiver a(log, "a");
  localSignal1<piVoid, int> sig;
  auto& call = *sig.connect(a, &cReceiver::sltNote);
  EXPECT_TRUE(a == &call);
  qsa::cReferenceFrame frame;
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { call.call(frame); }),
            "Slots connected to an explicit local signal cannot be called indirectly!");
  piVoid result;
  int v = 1;
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { call.invokeByReference(result, v); }),
            "Indirect slots cannot be called by reference!");
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { sig.connectIndirect(a, "sltNote"); }),
            "Indirect connections not possible with explicit local signals!");
  // The flag operation is accepted and changes nothing.
  sig.setQueued(true);
  sig(1);
  EXPECT_EQ(log, (tLog{"a:1"}));
}

namespace {

int tripled(int v) { return 3 * v; }

// A receiver whose slots are declared void.
class cPlainReceiver : public cConnectable {
public:
  void sltAdd(int v) { miSum += v; }
  int miSum = 0;
};

}  // namespace

TEST(LocalSignalConnections, LambdasAndFunctionsBelongToTheirReceiver) {
  tLog log;
  auto owner = std::make_unique<cReceiver>(log, "owner");
  localSignal1<int, int> sig;
  sig.connect(*owner, [&log](int v) {
    log.push_back("lambda:" + std::to_string(v));
    return v + 1;
  });
  // One slot: its result is the emission's.
  EXPECT_EQ(sig(4), 5);
  EXPECT_EQ(owner->attachedSignals().size(), 1u);
  // The connection ends with its owner, like a member function's.
  owner.reset();
  EXPECT_EQ(sig.slotCount(), 0u);

  cReceiver other(log, "other");
  sig.connect(other, &tripled);
  EXPECT_EQ(sig(5), 15);
  // A function without result gives the default one.
  localSignal1<int, int> quiet;
  int seen = 0;
  quiet.connect(other, [&seen](int v) { seen = v; });
  EXPECT_EQ(quiet(6), 0);
  EXPECT_EQ(seen, 6);
  // A lambda with state of its own keeps it between emissions.
  localSignal0<int> counter;
  counter.connect(other, [n = 0]() mutable { return ++n; });
  counter();
  EXPECT_EQ(counter(), 2);
  EXPECT_EQ(log, (tLog{"lambda:4"}));
}

TEST(LocalSignalConnections, SlotsDeclaredVoidServeSignalsWithoutResult) {
  cPlainReceiver r;
  localSignal1<piVoid, int> sig;
  sig.connect(r, &cPlainReceiver::sltAdd);
  sig.connect(r, &cPlainReceiver::sltAdd);
  sig(2);
  EXPECT_EQ(r.miSum, 4);
  // Indirect use is refused as for every local connection.
  qsa::cReferenceFrame frame;
  EXPECT_THROW(sig.slotCalls()[0]->call(frame), qstd::cBugException);
  r.detachAllSignals();
  EXPECT_EQ(sig.slotCount(), 0u);
}
