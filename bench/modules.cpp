// Module files and core extensions, each against a baseline in the same run:
// - a class loader cycle (open, section checks, one plug-in, unload) against a
//   bare dlopen/dlsym/dlclose cycle of the same file (the IPv6 module);
// - creating an address by type name among 100 registered extensions against
//   constructing it directly;
// - the IPv4 text round trip against inet_pton + inet_ntop.
#include <arpa/inet.h>
#include <dlfcn.h>

#include <string>

#include <benchmark/benchmark.h>

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/net++/cnetabstractaddressextension.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cmodulesections.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/ucs/cstring.h"

namespace {

std::string ipv6Module() {
  const qstd::tArray<char> dir = qpi::cPlatform::moduleDirectory().toUTF8();
  return std::string(dir.data(true), dir.size()) + "/libqelipv6.so";
}

void BM_ClassLoaderCycle(benchmark::State& state) {
  const qucs::cString file(ipv6Module().c_str());
  qsa::cReferenceFrame frame;
  for (auto _ : state) {
    qstd::tAutoPtr<qpi::cAbstractClassLoader> loader = qpi::cPlatform::createClassLoader(file);
    qstd::tAutoPtr<qcs::cAbstractPlugIn> plugIn(loader->instance(frame));
    benchmark::DoNotOptimize(plugIn.get());
  }
}
BENCHMARK(BM_ClassLoaderCycle);

void BM_BareDlopenCycle(benchmark::State& state) {
  const std::string file = ipv6Module();
  qsa::cReferenceFrame frame;
  for (auto _ : state) {
    void* handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) state.SkipWithError("dlopen failed");
    void* sections[4];
    for (int i = 0; i < 4; ++i)
      sections[i] = ::dlsym(handle, i == 0   ? "moduleInitPlugIn"
                                    : i == 1 ? "moduleInitComponent"
                                    : i == 2 ? "moduleVersion"
                                             : "qelVersion");
    qcs::cAbstractPlugIn* plugIn = nullptr;
    reinterpret_cast<qcs::cModuleSections::tInitPlugIn>(sections[0])(&plugIn, frame);
    benchmark::DoNotOptimize(plugIn);
    delete plugIn;
    ::dlclose(handle);
  }
}
BENCHMARK(BM_BareDlopenCycle);

class cNamedExtension : public qce::cNetAbstractAddressExtension {
public:
  explicit cNamedExtension(const std::string& name) : msName(name.c_str()) {}
  qstd::cAsciiString description() override { return msName; }
  const qstd::cBuildInfo& buildInfo() const override { return mInfo; }
  bool supports(const qstd::cAsciiString& typeName) const override { return typeName == msName; }
  qstd::tAutoPtr<qce::cNetAbstractAddress> createNetAddress(const qstd::cAsciiString&) const override {
    return qstd::tAutoPtr<qce::cNetAbstractAddress>(new qce::cNetIPv4Address);
  }

private:
  qstd::cAsciiString msName;
  qstd::cBuildInfo mInfo;
};

void BM_CreateByTypeName100(benchmark::State& state) {
  qce::cCoreExtensionMgr mgr;
  for (int i = 0; i < 100; ++i)
    mgr.add(qstd::tAutoPtr<qce::cAbstractCoreExtension>(new cNamedExtension("Type" + std::to_string(i))));
  const qstd::cAsciiString last("Type99");  // the whole list is asked
  for (auto _ : state) {
    qstd::tAutoPtr<qce::cNetAbstractAddress> a = mgr.createNetAddress(last);
    benchmark::DoNotOptimize(a.get());
  }
}
BENCHMARK(BM_CreateByTypeName100);

void BM_CreateDirectly(benchmark::State& state) {
  for (auto _ : state) {
    qstd::tAutoPtr<qce::cNetAbstractAddress> a(new qce::cNetIPv4Address);
    benchmark::DoNotOptimize(a.get());
  }
}
BENCHMARK(BM_CreateDirectly);

void BM_IPv4RoundTrip(benchmark::State& state) {
  const qstd::cAsciiString text("192.168.100.254");
  qce::cNetIPv4Address a;
  for (auto _ : state) {
    a.fromString(text);
    qstd::cAsciiString back = a.toString(0);
    benchmark::DoNotOptimize(back.c_str());
  }
}
BENCHMARK(BM_IPv4RoundTrip);

void BM_InetPtonNtop(benchmark::State& state) {
  const char* text = "192.168.100.254";
  in_addr address;
  char back[INET_ADDRSTRLEN];
  for (auto _ : state) {
    ::inet_pton(AF_INET, text, &address);
    ::inet_ntop(AF_INET, &address, back, sizeof back);
    benchmark::DoNotOptimize(back);
  }
}
BENCHMARK(BM_InetPtonNtop);

}  // namespace
