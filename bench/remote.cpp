// Remote components on loopback, client and server in one process and on
// one work queue: a remote slot call with one integer argument and result,
// one at a time, against a ping-pong of the same byte counts over the same
// TCP connections without the protocol; one-way signal emissions sent back
// to back; and the bytes an idle remote connection holds.
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/net++/cnetabstractclient.h"
#include "qelcore/qce/net++/cnetabstractserver.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cmanagedcomponent.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cremotecomponentclient.h"
#include "qelcore/qcs/cremotecomponentserver.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/remotesignaln.h"

#include "livebytes.h"

namespace {

using qsa::piVoid;

// Bytes of a call frame of add(int) and of its result frame.
enum : unsigned int { CallBytes = 63, ResultBytes = 36 };

class cApi : public qcs::cAbstractInterface {
public:
  cApi() : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "Counter", "b", 1, "")) {
    qrmi::registerPublicSlot(*this, &cApi::sltAdd, "add");
    qrmi::registerPublicSlot(*this, &cApi::sltLength, "length");
    sigTick.exportSignal(*this, "tick", qrmi::cAbstractSignal::eProvidedInterface, "");
  }
  int sltAdd(int n) { return miTotal += n; }
  int sltLength(const qstd::cAsciiString& text) { return static_cast<int>(text.size()); }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  int miTotal = 0;
  qrmi::remoteSignal1<piVoid, int> sigTick;
};

class cUse : public qcs::cAbstractInterface {
public:
  cUse() : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eRequiredInterface, "Counter", "b", 1, "")) {
    qrmi::registerPublicSlot(*this, &cUse::sltTick, "onTick");
  }
  qrmi::localSignal1<int, int> add;
  qrmi::localSignal1<int, const qstd::cAsciiString&> length;
  piVoid sltTick(int) {
    ++miTicks;
    return piVoid();
  }
  void connectInterface(cAbstractInterface& p) override {
    bindSlot(add, p, "add");
    bindSlot(length, p, "length");
    p.findSignal("tick").signal().connectIndirect(*this, "onTick");
  }
  void disconnectInterface() override { unbindSlots(); }
  unsigned long miTicks = 0;
};

class cProvider : public qcs::cAbstractComponent {
public:
  explicit cProvider(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr), mpApi(new cApi) {
    addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(mpApi));
  }
  cApi* mpApi;
};

// The first proxy of a remote component in `mgr`, or null.
qcs::cAbstractComponent* remoteProxy(qcs::cModuleMgr& mgr) {
  for (qcs::cManagedComponent* c : mgr.components())
    if (!c->component().isLocal()) return &c->component();
  return nullptr;
}

// Connects `client` to `port` on loopback and binds `use` to the proxy it
// brings; false when that did not happen in time.
bool connectUse(qcs::cRemoteComponentClient& client, qcs::cModuleMgr& mgr, unsigned int port, cUse& use) {
  client.connect(qstd::cAsciiString(("127.0.0.1:" + std::to_string(port)).c_str()));
  client.waitConnected(10000);
  qpi::cLocalEventLoop loop;
  for (int i = 0; i < 1000 && !remoteProxy(mgr); ++i) loop.process();
  qcs::cAbstractComponent* proxy = remoteProxy(mgr);
  if (proxy) use.connectInterface(proxy->getInterface(0));
  return proxy != nullptr;
}

// A server and a client process in one, connected, the client's use bound
// to the proxy.
struct cRemotePair {
  qce::cCoreExtensionMgr mExtensions;
  qcs::cModuleMgr mServerMgr{mExtensions}, mClientMgr{mExtensions};
  qcs::cRemoteOptions mOptions;
  cProvider* mpProvider;
  cUse mUse;
  std::unique_ptr<qcs::cRemoteComponentServer> mpServer;
  std::unique_ptr<qcs::cRemoteComponentClient> mpClient;

  cRemotePair() {
    mOptions.setSecret("bench", 5);
    mpProvider = static_cast<cProvider*>(&mServerMgr.addComponent(
        qstd::tAutoPtr<qcs::cAbstractComponent>(new cProvider(mServerMgr)), qcs::cComponentAddr()));
    mpServer.reset(new qcs::cRemoteComponentServer(mServerMgr, mOptions));
    mpServer->exportComponent(*mpProvider);
    mpServer->listen();
    mpClient.reset(new qcs::cRemoteComponentClient(mClientMgr, mOptions));
    connectUse(*mpClient, mClientMgr, mpServer->port(), mUse);
  }
  ~cRemotePair() { mUse.disconnectInterface(); }
  qcs::cAbstractComponent* proxy() { return remoteProxy(mClientMgr); }
};

void BM_RemoteSlotCall(benchmark::State& state) {
  cRemotePair pair;
  if (!pair.proxy()) {
    state.SkipWithError("no connection");
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(pair.mUse.add(1));
}
BENCHMARK(BM_RemoteSlotCall)->UseRealTime();

void BM_RemoteSignalsPipelined(benchmark::State& state) {
  cRemotePair pair;
  if (!pair.proxy()) {
    state.SkipWithError("no connection");
    return;
  }
  const int batch = 1000;
  qpi::cLocalEventLoop loop;
  for (auto _ : state) {
    const unsigned long until = pair.mUse.miTicks + batch;
    for (int i = 0; i < batch; ++i) pair.mpProvider->mpApi->sigTick(i);
    while (pair.mUse.miTicks < until) loop.process();
  }
  state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(BM_RemoteSignalsPipelined)->UseRealTime();

// What an idle remote connection holds: clients, each with its own manager,
// connected to one server, each having made a small call and a call with a
// 256 KiB argument (so that every buffer on the way has grown once), then
// idle. Counted through operator new from just before the first client is
// made (managers, server and argument exist already); the kernel's socket
// buffers are not in it. Reported per connection end (client or server:
// connection, session, link) with the client's proxy component counted in.
void BM_IdleRemoteConnectionBytes(benchmark::State& state) {
  const int clients = 20;
  const std::string text(256 * 1024, 'x');
  const qstd::cAsciiString big(text.data(), static_cast<unsigned int>(text.size()));
  for (auto _ : state) {
    cRemotePair pair;  // the server, and one client to make sure it works
    std::vector<std::unique_ptr<qcs::cModuleMgr>> mgrs;
    std::vector<std::unique_ptr<cUse>> uses;
    for (int i = 0; i < clients; ++i) {
      mgrs.emplace_back(new qcs::cModuleMgr(pair.mExtensions));
      uses.emplace_back(new cUse);
    }
    const long long before = qelbench::liveBytes();
    std::vector<std::unique_ptr<qcs::cRemoteComponentClient>> links;
    bool ok = pair.proxy() != nullptr;
    for (int i = 0; i < clients && ok; ++i) {
      links.emplace_back(new qcs::cRemoteComponentClient(*mgrs[i], pair.mOptions));
      ok = connectUse(*links.back(), *mgrs[i], pair.mpServer->port(), *uses[i]) && uses[i]->add(1) > 0 &&
           uses[i]->length(big) == static_cast<int>(big.size());
    }
    const long long after = qelbench::liveBytes();
    for (int i = 0; i < static_cast<int>(links.size()); ++i) uses[i]->disconnectInterface();
    if (!ok) {
      state.SkipWithError("no connection");
      return;
    }
    state.counters["bytes_per_connection"] = static_cast<double>(after - before) / (2 * clients);
  }
}
BENCHMARK(BM_IdleRemoteConnectionBytes)->Iterations(3);

// The baseline: the same byte counts back and forth over the same kind of
// connection on the same queue, without frames, archives or components.
class cEcho : public qrmi::cConnectable {
public:
  qsa::piVoid sltAccepted(qce::cNetAbstractServer&, qstd::tAutoPtr<qce::cNetAbstractConnection>& c) {
    mpPeer.reset(c.release());
    mpPeer->sigData.connect(*this, &cEcho::sltRequest);
    return qsa::piVoid();
  }
  qsa::piVoid sltRequest(qce::cNetAbstractConnection& c) {
    while (c.receivedSize() >= CallBytes) {
      c.consume(CallBytes);
      c.send(maReply, ResultBytes);
    }
    return qsa::piVoid();
  }
  qsa::piVoid sltReply(qce::cNetAbstractConnection& c) {
    while (c.receivedSize() >= ResultBytes) {
      c.consume(ResultBytes);
      ++miReplies;
    }
    return qsa::piVoid();
  }
  std::unique_ptr<qce::cNetAbstractConnection> mpPeer;
  char maReply[ResultBytes] = {};
  unsigned long miReplies = 0;
};

void BM_Baseline_TcpPingPong(benchmark::State& state) {
  cEcho echo;
  qce::cNetAbstractServer server;
  server.sigAccepted.connect(echo, &cEcho::sltAccepted);
  server.listen();
  qce::cNetAbstractClient client;
  client.connection().sigData.connect(echo, &cEcho::sltReply);
  client.connectTo(qstd::cAsciiString(("127.0.0.1:" + std::to_string(server.port())).c_str()));
  qpi::cLocalEventLoop loop;
  for (int i = 0; i < 10000 && !(client.isConnected() && echo.mpPeer); ++i) loop.process();
  char request[CallBytes] = {};
  for (auto _ : state) {
    const unsigned long until = echo.miReplies + 1;
    client.connection().send(request, CallBytes);
    while (echo.miReplies < until) loop.process();
  }
}
BENCHMARK(BM_Baseline_TcpPingPong)->UseRealTime();

}  // namespace
