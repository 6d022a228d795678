// The component system at scale: matching thousands of dependencies,
// removing chains and independent components, and the text forms of
// addresses and locations against snprintf in the same run. Each size
// (1,000, 10,000, 100,000 components) shows how the cost grows; a std::map
// of the same size gives an n log n reference.
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cinterfacedep.h"
#include "qelcore/qcs/cmodulemgr.h"

#include "benchutil.h"

namespace {

using qcs::cAbstractComponent;
using qcs::cComponentAddr;
using qcs::cInterfaceDesc;
using qstd::tAutoPtr;

class cApi : public qcs::cAbstractInterface {
public:
  explicit cApi(cInterfaceDesc::InterfaceType side)
      : cAbstractInterface(cInterfaceDesc(side, "Service", "bench", 1, "")) {}
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
};

class cProvider : public cAbstractComponent {
public:
  explicit cProvider(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
    addInterface(tAutoPtr<qcs::cAbstractInterface>(new cApi(cInterfaceDesc::eProvidedInterface)));
  }
};

class cConsumer : public cAbstractComponent {
public:
  explicit cConsumer(qcs::cModuleMgr& mgr)
      : cAbstractComponent(mgr),
        mUse(cInterfaceDesc::eRequiredInterface),
        mDep(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {}
  cApi mUse;
  qcs::cInterfaceDep mDep;
};

class cPlain : public cAbstractComponent {
public:
  explicit cPlain(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {}
};

void pump(qcs::cModuleMgr& mgr) {
  while (mgr.passRequested()) qpi::system().exec();
}

template <class C>
C& add(qcs::cModuleMgr& mgr) {
  C* c = new C(mgr);
  mgr.addComponent(tAutoPtr<cAbstractComponent>(c), cComponentAddr());
  return *c;
}

// n components, each with one first-best dependency on an interface that 100
// providers offer: added and pumped until every dependency is matched.
void BM_FirstBestMatching(benchmark::State& state) {
  qelbench::warmMemory(256 << 20);
  const int n = static_cast<int>(state.range(0));
  qce::cCoreExtensionMgr extensions;
  for (auto _ : state) {
    qcs::cModuleMgr mgr(extensions);
    std::vector<cConsumer*> consumers;
    consumers.reserve(n);
    for (int i = 0; i < 100; ++i) add<cProvider>(mgr);
    for (int i = 0; i < n; ++i) consumers.push_back(&add<cConsumer>(mgr));
    pump(mgr);
    state.PauseTiming();
    for (cConsumer* c : consumers)
      if (!c->mDep.matched()) state.SkipWithError("a dependency stayed unmatched");
    mgr.removeAllComponentsNow();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_FirstBestMatching)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// removeAllComponentsNow of n components, timed alone: in one chain, each
// requiring the previous one (n passes, one removal each), or independent
// (one pass).
void measureRemoveAll(benchmark::State& state, bool chain) {
  qelbench::warmMemory(256 << 20);
  const int n = static_cast<int>(state.range(0));
  qce::cCoreExtensionMgr extensions;
  for (auto _ : state) {
    state.PauseTiming();
    {
      qcs::cModuleMgr mgr(extensions);
      cAbstractComponent* previous = nullptr;
      for (int i = 0; i < n; ++i) {
        cAbstractComponent& c = add<cPlain>(mgr);
        if (chain && previous) c.addLocalRequiredComponent(previous);
        previous = &c;
      }
      pump(mgr);
      state.ResumeTiming();
      mgr.removeAllComponentsNow();
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * n);
}

void BM_RemoveAllChain(benchmark::State& state) { measureRemoveAll(state, true); }
BENCHMARK(BM_RemoveAllChain)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_RemoveAllIndependent(benchmark::State& state) { measureRemoveAll(state, false); }
BENCHMARK(BM_RemoveAllIndependent)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Reference growth: n inserts into a std::map and its destruction.
void BM_Baseline_MapOfN(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  for (auto _ : state) {
    std::map<int, std::string> m;
    for (int i = 0; i < n; ++i) m.emplace(i * 7919 % n, std::string());
    benchmark::DoNotOptimize(m.size());
  }
  state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_Baseline_MapOfN)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// --- text forms --------------------------------------------------------------

const unsigned int kQueue = 1, kModule = 48213, kPid = 4711;

void BM_Baseline_SnprintfAddress(benchmark::State& state) {
  char text[32];
  unsigned int module = kModule;
  for (auto _ : state) {
    benchmark::DoNotOptimize(module);
    const int n = std::snprintf(text, sizeof text, "%u:%u", kQueue, module);
    benchmark::DoNotOptimize(n);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(BM_Baseline_SnprintfAddress);

void BM_AddressRoundTrip(benchmark::State& state) {
  cComponentAddr a(kQueue, kModule);
  cComponentAddr back;
  for (auto _ : state) {
    benchmark::DoNotOptimize(a);
    back.fromString(a.toString());
    benchmark::DoNotOptimize(back);
  }
}
BENCHMARK(BM_AddressRoundTrip);

void BM_Baseline_SnprintfLocation(benchmark::State& state) {
  char text[128];
  unsigned int module = kModule;
  for (auto _ : state) {
    benchmark::DoNotOptimize(module);
    const int n = std::snprintf(text, sizeof text, "%u:%u-%u@%s:%s", kQueue, module, kPid, "buildhost-01", "x");
    benchmark::DoNotOptimize(n);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(BM_Baseline_SnprintfLocation);

void BM_LocationRoundTrip(benchmark::State& state) {
  qcs::cComponentLocation l(cComponentAddr(kQueue, kModule), "buildhost_01", "x", kPid);
  qcs::cComponentLocation back(cComponentAddr(), "", "", 0);
  for (auto _ : state) {
    benchmark::DoNotOptimize(l);
    back.fromString(l.toString());
    benchmark::DoNotOptimize(back);
  }
}
BENCHMARK(BM_LocationRoundTrip);

}  // namespace
