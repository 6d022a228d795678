// A component server for the tests that need a second process: exports one
// component with the interface "Counter" (slots "add", "slow", "fail" and
// "ticks", which emits the signal "tick" with 0, 1, ... n-1),
// writes the port it listens on to a file once it listens, then serves
// until it is killed.
//
//   qelcore_remoteserver <secret file> <port file>
#include <chrono>
#include <cstdio>
#include <thread>

#include "qelcore/pi/csystem.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/cremotecomponentserver.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/rmi/remotesignaln.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/ucs/cstring.h"

namespace {

class cCounterApi : public qcs::cAbstractInterface {
public:
  cCounterApi()
      : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "Counter", "test", 1, "")) {
    qrmi::registerPublicSlot(*this, &cCounterApi::sltAdd, "add");
    qrmi::registerPublicSlot(*this, &cCounterApi::sltSlow, "slow");
    qrmi::registerPublicSlot(*this, &cCounterApi::sltFail, "fail");
    qrmi::registerPublicSlot(*this, &cCounterApi::sltTicks, "ticks");
    sigTick.exportSignal(*this, "tick", qrmi::cAbstractSignal::eProvidedInterface, "");
  }
  int sltAdd(int n) { return miTotal += n; }
  // Keeps the whole process busy, as a slow or hanging peer would.
  int sltSlow(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    return milliseconds;
  }
  int sltFail(int id) { qcs::cQCSExceptions::throwNoSuchModule(qcs::cComponentAddr(1, static_cast<unsigned int>(id))); }
  int sltTicks(int n) {
    for (int i = 0; i < n; ++i) sigTick(i);
    return n;
  }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  int miTotal = 0;
  qrmi::remoteSignal1<qsa::piVoid, int> sigTick;
};

class cCounter : public qcs::cAbstractComponent {
public:
  explicit cCounter(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
    addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cCounterApi));
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s <secret file> <port file>\n", argv[0]);
    return 2;
  }
  try {
    qce::cCoreExtensionMgr extensions;
    qcs::cModuleMgr mgr(extensions);
    qcs::cAbstractComponent& counter =
        mgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cCounter(mgr)), qcs::cComponentAddr());
    qcs::cRemoteOptions options;
    options.loadSecretFile(qucs::cString(argv[1]));
    qcs::cRemoteComponentServer server(mgr, options);
    server.exportComponent(counter);
    server.listen();
    // Written elsewhere and renamed, so that the test never reads half a file.
    const std::string tmp = std::string(argv[2]) + ".tmp";
    if (std::FILE* f = std::fopen(tmp.c_str(), "w")) {
      std::fprintf(f, "%u\n", server.port());
      std::fclose(f);
      std::rename(tmp.c_str(), argv[2]);
    }
    for (;;) qpi::system().exec();
  } catch (const qstd::cAbstractException& e) {
    e.dump();
    return 1;
  }
}
