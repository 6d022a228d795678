// Remote components across real processes on loopback: the test starts a
// component server program, connects to it and uses its component through
// a dependency, including a server that is slow, one that is killed in the
// middle of a call, and a client with the wrong secret.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qcs/cmanagedcomponent.h"
#include "qelcore/qcs/cremotecomponentclient.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/qcs/crmiexception.h"
#include "qelcore/qcs/detail/nestedwait.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/ucs/cstring.h"

#include "qcstestutil.h"
#include "support/childprocess.h"
#include "support/worktestutil.h"

namespace {

namespace fs = std::filesystem;
using qcstest::cTestComponent;
using qcstest::pump;

// The remote side's "Counter" with all its slots, listening to its "tick".
class cRemoteCounterUse : public qcs::cAbstractInterface {
public:
  cRemoteCounterUse() : cAbstractInterface(qcstest::wanted("Counter")) {
    qrmi::registerPublicSlot(*this, &cRemoteCounterUse::sltTick, "onTick");
  }
  qrmi::localSignal1<int, int> add, slow, fail, ticks;
  qsa::piVoid sltTick(int n) {
    mvTicks.push_back(n);
    return qsa::piVoid();
  }
  void connectInterface(cAbstractInterface& p) override {
    mpBound = &p;
    bindSlot(add, p, "add");
    bindSlot(slow, p, "slow");
    bindSlot(fail, p, "fail");
    bindSlot(ticks, p, "ticks");
    p.findSignal("tick").signal().connectIndirect(*this, "onTick");
  }
  void disconnectInterface() override {
    mpBound = nullptr;
    unbindSlots();
  }
  cAbstractInterface* mpBound = nullptr;
  std::vector<int> mvTicks;
};
class cRemoteUser : public cTestComponent {
public:
  explicit cRemoteUser(qcs::cModuleMgr& mgr)
      : cTestComponent(mgr, "user"), mDep(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {}
  cRemoteCounterUse mUse;
  qcs::cInterfaceDep mDep;
};

// A server process with its own secret and port files.
class cServerProcess {
public:
  explicit cServerProcess(const std::string& secret) {
    static int counter = 0;
    mDir = fs::path(::testing::TempDir()) /
           ("qelcore_remote_" + std::to_string(qpi::cPlatform::pid()) + "_" + std::to_string(counter++));
    fs::remove_all(mDir);
    fs::create_directories(mDir);
    std::ofstream(mDir / "secret") << secret;
    fs::permissions(mDir / "secret", fs::perms::owner_read | fs::perms::owner_write);
    mpChild.reset(new qeltest::cChildProcess(std::string(QELTEST_PROGRAM_DIR) + "/qelcore_remoteserver",
                                             {(mDir / "secret").string(), (mDir / "port").string()}));
  }
  ~cServerProcess() {
    mpChild.reset();
    std::error_code ignored;
    fs::remove_all(mDir, ignored);
  }
  // The server's address once it listens ("" after 20 s without).
  std::string address() {
    for (int i = 0; i < 2000 && mpChild->running(); ++i) {
      std::ifstream in(mDir / "port");
      unsigned int port = 0;
      if (in >> port) return "127.0.0.1:" + std::to_string(port);
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return "";
  }
  qcs::cRemoteOptions options(const char* secret) const {
    qcs::cRemoteOptions o;
    o.setSecret(secret, static_cast<unsigned int>(std::string(secret).size()));
    return o;
  }
  void kill() { mpChild->kill(); }

private:
  fs::path mDir;
  std::unique_ptr<qeltest::cChildProcess> mpChild;
};

struct cClientSide : qcstest::cManagerFixture {
  cRemoteUser& mUser = static_cast<cRemoteUser&>(
      mMgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cRemoteUser(mMgr)), qcs::cComponentAddr()));
  qcs::cAbstractComponent* proxy() {
    for (qcs::cManagedComponent* c : mMgr.components())
      if (!c->component().isLocal()) return &c->component();
    return nullptr;
  }
  // Passes until the user is bound (or not), at most 10 s.
  bool bound(bool wanted) {
    for (int i = 0; i < 1000 && (mUser.mUse.mpBound != nullptr) != wanted; ++i) {
      qpi::system().exec();
      pump(mMgr);
    }
    return (mUser.mUse.mpBound != nullptr) == wanted;
  }
  // Connects `client` to `server` and waits until the user is bound to the
  // server's component.
  ::testing::AssertionResult connect(qcs::cRemoteComponentClient& client, cServerProcess& server) {
    const std::string address = server.address();
    if (address.empty()) return ::testing::AssertionFailure() << "the server does not listen";
    client.connect(address.c_str());
    if (!client.waitConnected(20000)) return ::testing::AssertionFailure() << client.lastError().c_str();
    if (!bound(true)) return ::testing::AssertionFailure() << "no match";
    return ::testing::AssertionSuccess();
  }
};

TEST(RemoteProcess, CallsResultsExceptionsAndSignalsThroughAProxyOfAnotherProcess) {
  cServerProcess server("shared secret");
  cClientSide side;
  qcs::cRemoteComponentClient client(side.mMgr, server.options("shared secret"));
  ASSERT_TRUE(side.connect(client, server));
  qcs::cAbstractComponent* proxy = side.proxy();
  ASSERT_NE(proxy, nullptr);
  EXPECT_FALSE(proxy->isLocal());
  EXPECT_NE(proxy->location().pid(), qpi::cPlatform::pid());

  EXPECT_EQ(side.mUser.mUse.add(40), 40);
  EXPECT_EQ(side.mUser.mUse.add(2), 42);
  const qcs::cRMIException e = qeltest::caught<qcs::cRMIException>([&] { side.mUser.mUse.fail(9); });
  EXPECT_EQ(e.location(), proxy->location());
  const qstd::cAbstractException* cause = e.has("cNoSuchModuleException");
  ASSERT_NE(cause, nullptr);
  EXPECT_TRUE(cause->isRemote());
  EXPECT_EQ(qcstest::textOf(*cause), "Module (1:9) not found!");

  // Emissions made during a call arrive in order.
  EXPECT_EQ(side.mUser.mUse.ticks(3), 3);
  EXPECT_TRUE(qcs::detail::waitNested([&] { return side.mUser.mUse.mvTicks.size() >= 3; }, 10000, "test"));
  EXPECT_EQ(side.mUser.mUse.mvTicks, (std::vector<int>{0, 1, 2}));
}

TEST(RemoteProcess, ASlowServerTimesOutTheCallAndKeepsTheConnection) {
  cServerProcess server("s");
  cClientSide side;
  qcs::cRemoteOptions options = server.options("s");
  options.setCallTimeout(200);
  qcs::cRemoteComponentClient client(side.mMgr, options);
  ASSERT_TRUE(side.connect(client, server));
  EXPECT_EQ(qcstest::thrown<qcs::cRMIException>([&] { side.mUser.mUse.slow(400); }),
            "Unable to call slot \"slow\" on interface 0! / Remote call failed: timed out!");
  // The late result is dropped; the next call gets its own.
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_EQ(side.mUser.mUse.add(1), 1);
  EXPECT_TRUE(client.isConnected());
}

TEST(RemoteProcess, AServerKilledInTheMiddleOfACallFailsItAndItsProxiesGoUntilItIsBack) {
  cClientSide side;
  std::unique_ptr<cServerProcess> server(new cServerProcess("s"));
  qcs::cRemoteComponentClient client(side.mMgr, server->options("s"));
  ASSERT_TRUE(side.connect(client, *server));

  qstd::tSharedObject<qpi::cWork> killer = qpi::system().workQueue().createJob();
  qeltest::cJob job;
  job.body = [&] { server->kill(); };
  killer->sigTrigger.connect(job, &qeltest::cJob::sltRun);
  killer->start(100, qpi::cWork::SingleTask);
  const qcs::cRMIException e = qeltest::caught<qcs::cRMIException>([&] { side.mUser.mUse.slow(5000); });
  EXPECT_EQ(e.signalSlotName(), "slow");
  EXPECT_EQ(job.calls, 1);
  qpi::system().workQueue().removeJob(*killer);
  EXPECT_FALSE(client.isConnected());
  ASSERT_TRUE(side.bound(false));
  EXPECT_EQ(side.proxy(), nullptr);

  // A new server; connecting again brings the component back.
  server.reset(new cServerProcess("s"));
  ASSERT_TRUE(side.connect(client, *server));
  EXPECT_EQ(side.mUser.mUse.add(7), 7);
}

TEST(RemoteProcess, AClientWithTheWrongSecretGetsNothing) {
  cServerProcess server("right");
  const std::string address = server.address();
  ASSERT_FALSE(address.empty());
  cClientSide side;
  qcs::cRemoteComponentClient client(side.mMgr, server.options("wrong"));
  client.connect(address.c_str());
  EXPECT_FALSE(client.waitConnected(20000));
  EXPECT_FALSE(client.lastError().empty());
  pump(side.mMgr);
  EXPECT_EQ(side.proxy(), nullptr);
}

}  // namespace
