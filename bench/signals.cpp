// Signal emission against the plain virtual calls it replaces, the cost of
// a connection, and the two indirect call paths.
#include <benchmark/benchmark.h>

#include "qelcore/rmi/signal0.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializebinary.h"

#include "benchutil.h"

#ifdef QELBENCH_HAVE_BOOST_SIGNALS2
#include <boost/signals2/signal.hpp>
#endif
#ifdef QELBENCH_HAVE_SIGC
#include <sigc++/sigc++.h>
#endif

namespace {

using qsa::piVoid;

// Baseline: the same work behind a virtual function.
class cAbstractHandler {
public:
  virtual ~cAbstractHandler() {}
  virtual void handle(int v) = 0;
};
// Not inlined, like a slot called through its connection.
class cHandler : public cAbstractHandler {
public:
  __attribute__((noinline)) void handle(int v) override { miSum += v; }
  int miSum = 0;
};

class cReceiver : public qrmi::cConnectable {
public:
  cReceiver() { qrmi::registerPublicSlot(*this, &cReceiver::sltAdd, "add"); }
  piVoid sltTick() {
    ++miSum;
    return piVoid();
  }
  piVoid sltAddTo(int v) {
    miSum += v;
    return piVoid();
  }
  int sltAdd(int a, int b) { return a + b; }
  int miSum = 0;
};

void BM_Baseline_VirtualCall(benchmark::State& state) {
  cHandler handler;
  cAbstractHandler* p = &handler;
  for (auto _ : state) {
    benchmark::DoNotOptimize(p);
    p->handle(1);
  }
  benchmark::DoNotOptimize(handler.miSum);
}
BENCHMARK(BM_Baseline_VirtualCall);

void BM_Baseline_FourVirtualCalls(benchmark::State& state) {
  cHandler handlers[4];
  cAbstractHandler* p[4] = {&handlers[0], &handlers[1], &handlers[2], &handlers[3]};
  for (auto _ : state) {
    benchmark::DoNotOptimize(p);
    for (cAbstractHandler* h : p) h->handle(1);
  }
  benchmark::DoNotOptimize(handlers[0].miSum);
}
BENCHMARK(BM_Baseline_FourVirtualCalls);

void BM_Emit0_OneSlot(benchmark::State& state) {
  cReceiver receiver;
  qrmi::localSignal0<piVoid> sig;
  sig.connect(receiver, &cReceiver::sltTick);
  for (auto _ : state) sig();
  benchmark::DoNotOptimize(receiver.miSum);
}
BENCHMARK(BM_Emit0_OneSlot);

void BM_Emit1_FourSlots(benchmark::State& state) {
  cReceiver receivers[4];
  qrmi::localSignal1<piVoid, int> sig;
  for (cReceiver& r : receivers) sig.connect(r, &cReceiver::sltAddTo);
  for (auto _ : state) sig(1);
  benchmark::DoNotOptimize(receivers[0].miSum);
}
BENCHMARK(BM_Emit1_FourSlots);

void BM_ConnectDisconnect(benchmark::State& state) {
  qelbench::warmMemory(1 << 20);
  cReceiver receiver, other;
  qrmi::localSignal1<piVoid, int> sig;
  sig.connect(other, &cReceiver::sltAddTo);
  for (auto _ : state) {
    sig.connect(receiver, &cReceiver::sltAddTo);
    sig.disconnect(receiver);
  }
}
BENCHMARK(BM_ConnectDisconnect);

void BM_IndirectFrameCall(benchmark::State& state) {
  cReceiver receiver;
  const qstd::cAsciiString name("add");
  int result = 0, a = 2, b = 3;
  qsa::cReferenceFrame frame;
  frame.add(result).add(a).add(b);
  for (auto _ : state) receiver.invokeIndirectSlot(name, frame);
  benchmark::DoNotOptimize(result);
}
BENCHMARK(BM_IndirectFrameCall);

void BM_IndirectArchiveCall(benchmark::State& state) {
  qelbench::warmMemory(1 << 20);
  cReceiver receiver;
  const qstd::cAsciiString name("add");
  qsa::cSerializeBinary args;
  args.store(2);
  args.store(3);
  const qstd::tArray<char>& bytes = args.ownData();
  qsa::cSerializeBinary out;
  for (auto _ : state) {
    qsa::cDeserializeBinary in(bytes);
    out.clear();
    receiver.invokeIndirectRemoteSlot(name, in, out);
  }
  benchmark::DoNotOptimize(out.ownData().size());
}
BENCHMARK(BM_IndirectArchiveCall);

// ---------------------------------------------------------------- peers
// The same workloads on other signal libraries, when installed. Their slots
// are member functions of a receiver, called through the library's own
// binding, like ours.

#ifdef QELBENCH_HAVE_BOOST_SIGNALS2
class cBoostReceiver {
public:
  __attribute__((noinline)) void tick() { ++miSum; }
  __attribute__((noinline)) void addTo(int v) { miSum += v; }
  int miSum = 0;
};

void BM_Peer_Signals2_Emit0_OneSlot(benchmark::State& state) {
  cBoostReceiver receiver;
  boost::signals2::signal<void()> sig;
  sig.connect([&receiver] { receiver.tick(); });
  for (auto _ : state) sig();
  benchmark::DoNotOptimize(receiver.miSum);
}
BENCHMARK(BM_Peer_Signals2_Emit0_OneSlot);

void BM_Peer_Signals2_Emit1_FourSlots(benchmark::State& state) {
  cBoostReceiver receivers[4];
  boost::signals2::signal<void(int)> sig;
  for (cBoostReceiver& r : receivers) sig.connect([&r](int v) { r.addTo(v); });
  for (auto _ : state) sig(1);
  benchmark::DoNotOptimize(receivers[0].miSum);
}
BENCHMARK(BM_Peer_Signals2_Emit1_FourSlots);

void BM_Peer_Signals2_ConnectDisconnect(benchmark::State& state) {
  qelbench::warmMemory(1 << 20);
  cBoostReceiver receiver, other;
  boost::signals2::signal<void(int)> sig;
  sig.connect([&other](int v) { other.addTo(v); });
  for (auto _ : state) {
    boost::signals2::connection c = sig.connect([&receiver](int v) { receiver.addTo(v); });
    c.disconnect();
  }
}
BENCHMARK(BM_Peer_Signals2_ConnectDisconnect);
#endif

#ifdef QELBENCH_HAVE_SIGC
class cSigcReceiver : public sigc::trackable {
public:
  __attribute__((noinline)) void tick() { ++miSum; }
  __attribute__((noinline)) void addTo(int v) { miSum += v; }
  int miSum = 0;
};

void BM_Peer_Sigc_Emit0_OneSlot(benchmark::State& state) {
  cSigcReceiver receiver;
  sigc::signal<void()> sig;
  sig.connect(sigc::mem_fun(receiver, &cSigcReceiver::tick));
  for (auto _ : state) sig();
  benchmark::DoNotOptimize(receiver.miSum);
}
BENCHMARK(BM_Peer_Sigc_Emit0_OneSlot);

void BM_Peer_Sigc_Emit1_FourSlots(benchmark::State& state) {
  cSigcReceiver receivers[4];
  sigc::signal<void(int)> sig;
  for (cSigcReceiver& r : receivers) sig.connect(sigc::mem_fun(r, &cSigcReceiver::addTo));
  for (auto _ : state) sig(1);
  benchmark::DoNotOptimize(receivers[0].miSum);
}
BENCHMARK(BM_Peer_Sigc_Emit1_FourSlots);

void BM_Peer_Sigc_ConnectDisconnect(benchmark::State& state) {
  qelbench::warmMemory(1 << 20);
  cSigcReceiver receiver, other;
  sigc::signal<void(int)> sig;
  sig.connect(sigc::mem_fun(other, &cSigcReceiver::addTo));
  for (auto _ : state) {
    sigc::connection c = sig.connect(sigc::mem_fun(receiver, &cSigcReceiver::addTo));
    c.disconnect();
  }
}
BENCHMARK(BM_Peer_Sigc_ConnectDisconnect);
#endif

}  // namespace
