// Arbitrary bytes as what a remote peer sends. The first byte picks the
// receiving end: a fresh server (the hello and authentication decoders), a
// client that has authenticated a server (exports, withdrawals, results,
// exceptions, signals) or a server that has authenticated a client (calls to
// an exported component). The second byte splits the rest into two feeds, so
// that frames also arrive in pieces. Whatever comes, the session either stays
// open or closes with a reason, and nothing else in the process changes.
#include <cstdint>
#include <cstdlib>

#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/qcs/detail/cremotesession.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/std/casciistring.h"

namespace {

using qcs::detail::cRemoteSession;

void check(bool condition) {
  if (!condition) std::abort();
}

class cPipe : public qcs::detail::cRemoteSink {
public:
  void send(const char* data, unsigned int size) override {
    if (mpPeer) mpPeer->feed(data, size);
  }
  void close() override {}
  cRemoteSession* mpPeer = nullptr;
};

class cApi : public qcs::cAbstractInterface {
public:
  cApi()
      : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "Api", "fuzz", 1, "")),
        miTotal(0) {
    qrmi::registerPublicSlot(*this, &cApi::sltAdd, "add");
    qrmi::registerPublicSlot(*this, &cApi::sltFail, "fail");
  }
  int sltAdd(int n) { return miTotal += n; }
  int sltFail(int n) { qcs::cQCSExceptions::throwNoSuchModule(qcs::cComponentAddr(1, static_cast<unsigned int>(n))); }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  int miTotal;
};

class cProvider : public qcs::cAbstractComponent {
public:
  explicit cProvider(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
    addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cApi));
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const unsigned int mode = data[0] % 3;
  const std::size_t split = data[1] % (size - 1);
  const char* bytes = reinterpret_cast<const char*>(data + 2);
  const std::size_t n = size - 2;

  qce::cCoreExtensionMgr extensions;
  qcs::cModuleMgr serverMgr(extensions), clientMgr(extensions);
  qcs::cRemoteOptions options;
  options.setSecret("fuzz", 4);
  options.setMaxFrameSize(1 << 16);
  options.setMaxComponents(8);
  qcs::cAbstractComponent& provider =
      serverMgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cProvider(serverMgr)), qcs::cComponentAddr());
  {
    cPipe toClient, toServer;
    cRemoteSession server(cRemoteSession::Server, serverMgr, options, toClient);
    cRemoteSession client(cRemoteSession::Client, clientMgr, options, toServer);
    server.exportComponent(provider);
    cRemoteSession* target = &server;
    if (mode != 0) {
      toClient.mpPeer = &client;
      toServer.mpPeer = &server;
      server.start();
      check(server.established() && client.established() && client.proxyCount() == 1);
      // From here on the target hears only the fuzzer.
      toClient.mpPeer = nullptr;
      toServer.mpPeer = nullptr;
      if (mode == 1) target = &client;
    } else {
      server.start();
    }
    target->feed(bytes, split);
    target->feed(bytes + split, n - split);
    check(!target->closed() || !target->closeReason().empty());
    check(target->pendingCalls() == 0);
  }
  // Proxies left behind go with the manager's normal removal.
  clientMgr.removeAllComponentsNow();
  serverMgr.removeAllComponentsNow();
  check(serverMgr.components().size() == 0);
  return 0;
}
