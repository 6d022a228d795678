// The remote protocol engine over memory: two sessions, each with its own
// module manager, wired back to back. The server exports components, the
// client gets proxies that the manager matches like local components.
#include "qelcore/qcs/detail/cremotesession.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qcs/cmanagedcomponent.h"
#include "qelcore/qcs/cnosuchmoduleexception.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/qcs/crmiexception.h"
#include "qelcore/qcs/detail/nestedwait.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/remotesignaln.h"
#include "qelcore/sa/cserializebinary.h"

#include "qcstestutil.h"
#include "support/worktestutil.h"

namespace {

using qcs::detail::cRemoteSession;
using qcstest::cCounterApi;
using qcstest::cManagerFixture;
using qcstest::cTestComponent;
using qcstest::cUser;
using qcstest::pump;
using qsa::piVoid;

// Hands every byte to the peer at once, or keeps them while held.
class cPipe : public qcs::detail::cRemoteSink {
public:
  void send(const char* data, unsigned int size) override {
    if (mbHold || !mpPeer) {
      mHeld.append(data, size);
      return;
    }
    mpPeer->feed(data, size);
  }
  std::size_t backlog() const override { return mHeld.size(); }
  // The peer notices, as it would on a socket.
  void close() override {
    ++miClosed;
    if (mpPeer) mpPeer->connectionLost();
  }
  cRemoteSession* mpPeer = nullptr;
  bool mbHold = false;
  std::string mHeld;
  int miClosed = 0;
};

// A provider whose slot fails with a library exception.
class cFailingApi : public qcs::cAbstractInterface {
public:
  cFailingApi() : cAbstractInterface(qcstest::provided("Failing")) {
    qrmi::registerPublicSlot(*this, &cFailingApi::sltFail, "fail");
  }
  int sltFail(int id) { qcs::cQCSExceptions::throwNoSuchModule(qcs::cComponentAddr(1, static_cast<unsigned>(id))); }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
};
class cFailingUse : public qcs::cAbstractInterface {
public:
  cFailingUse() : cAbstractInterface(qcstest::wanted("Failing")) {}
  qrmi::localSignal1<int, int> fail;
  void connectInterface(cAbstractInterface& p) override { bindSlot(fail, p, "fail"); }
  void disconnectInterface() override { unbindSlots(); }
};
class cFailingUser : public cTestComponent {
public:
  explicit cFailingUser(qcs::cModuleMgr& mgr)
      : cTestComponent(mgr, "failing user"), mDep(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {}
  cFailingUse mUse;
  qcs::cInterfaceDep mDep;
};

class cTickerApi : public qcs::cAbstractInterface {
public:
  cTickerApi() : cAbstractInterface(qcstest::provided("Ticker")) {
    sigTick.exportSignal(*this, "tick", qrmi::cAbstractSignal::eProvidedInterface, "every tick");
  }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  qrmi::remoteSignal1<piVoid, int> sigTick;
};

// Connects the provider's "tick" to its public slot "onTick" by name.
class cTickerUse : public qcs::cAbstractInterface {
public:
  cTickerUse() : cAbstractInterface(qcstest::wanted("Ticker")) {
    qrmi::registerPublicSlot(*this, &cTickerUse::sltTick, "onTick");
  }
  piVoid sltTick(int n) {
    mvTicks.push_back(n);
    return piVoid();
  }
  void connectInterface(cAbstractInterface& p) override {
    p.findSignal("tick").signal().connectIndirect(*this, "onTick");
  }
  void disconnectInterface() override {}
  std::vector<int> mvTicks;
};
class cTickerUser : public cTestComponent {
public:
  explicit cTickerUser(qcs::cModuleMgr& mgr)
      : cTestComponent(mgr, "ticker user"), mDep(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {}
  cTickerUse mUse;
  qcs::cInterfaceDep mDep;
};

qcs::cRemoteOptions optionsWith(const char* secret) {
  qcs::cRemoteOptions o;
  o.setSecret(secret, static_cast<unsigned int>(std::string(secret).size()));
  return o;
}

// A server process and a client process, in one.
struct cPair {
  cManagerFixture mServerSide;
  cManagerFixture mClientSide;
  qcs::cRemoteOptions mServerOptions = optionsWith("s3cret");
  qcs::cRemoteOptions mClientOptions = optionsWith("s3cret");
  cTestComponent* mpCounter = nullptr;
  cCounterApi* mpApi = nullptr;
  cPipe mToClient, mToServer;
  std::unique_ptr<cRemoteSession> mpServer, mpClient;

  cPair() {
    mpCounter = static_cast<cTestComponent*>(&mServerSide.mMgr.addComponent(
        qstd::tAutoPtr<qcs::cAbstractComponent>(new cTestComponent(mServerSide.mMgr, "counter")),
        qcs::cComponentAddr()));
    mpApi = &mpCounter->offer();
    pump(mServerSide.mMgr);
  }
  void connect() {
    mToClient = cPipe();
    mToServer = cPipe();
    mpServer.reset(new cRemoteSession(cRemoteSession::Server, mServerSide.mMgr, mServerOptions, mToClient));
    mpClient.reset(new cRemoteSession(cRemoteSession::Client, mClientSide.mMgr, mClientOptions, mToServer));
    mToClient.mpPeer = mpClient.get();
    mToServer.mpPeer = mpServer.get();
    mpServer->exportComponent(*mpCounter);
    mpServer->start();
    mpClient->start();
    pump(mClientSide.mMgr);
  }
  qcs::cAbstractComponent* proxy() const {
    for (const qcs::cManagedComponent* c : mClientSide.mMgr.components())
      if (!c->component().isLocal()) return const_cast<qcs::cAbstractComponent*>(&c->component());
    return nullptr;
  }
};

TEST(RemoteSession, AnExportedComponentBecomesAProxyThatDependenciesMatchAndCall) {
  cPair pair;
  cUser& user = static_cast<cUser&>(pair.mClientSide.mMgr.addComponent(
      qstd::tAutoPtr<qcs::cAbstractComponent>(new cUser(pair.mClientSide.mMgr, "user")), qcs::cComponentAddr()));
  pair.connect();
  ASSERT_TRUE(pair.mpClient->established());
  ASSERT_TRUE(pair.mpServer->established());
  EXPECT_EQ(pair.mpClient->peerLocation().pid(), qpi::cPlatform::pid());

  qcs::cAbstractComponent* proxy = pair.proxy();
  ASSERT_NE(proxy, nullptr);
  EXPECT_EQ(proxy->location(), pair.mpCounter->location());
  ASSERT_EQ(proxy->numInterfaces(), 1u);
  EXPECT_EQ(proxy->interface(0).desc(), pair.mpApi->desc());

  ASSERT_EQ(user.mUse.mpBound, &proxy->getInterface(0));
  EXPECT_EQ(user.mUse.add(5), 5);
  EXPECT_EQ(user.mUse.add(2), 7);
  EXPECT_EQ(pair.mpApi->miTotal, 7);
  EXPECT_EQ(pair.mpClient->pendingCalls(), 0u);
}

TEST(RemoteSession, ARemoteExceptionArrivesAsCRMIExceptionWithTheRebuiltCause) {
  cPair pair;
  pair.mpCounter->addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cFailingApi));
  cFailingUser& user = static_cast<cFailingUser&>(pair.mClientSide.mMgr.addComponent(
      qstd::tAutoPtr<qcs::cAbstractComponent>(new cFailingUser(pair.mClientSide.mMgr)), qcs::cComponentAddr()));
  pair.connect();

  const qcs::cRMIException e = qeltest::caught<qcs::cRMIException>([&] { user.mUse.fail(42); });
  EXPECT_EQ(e.signalSlotName(), "fail");
  EXPECT_EQ(e.interfaceIndex(), 1u);
  EXPECT_EQ(e.location(), pair.mpCounter->location());
  const qstd::cAbstractException* cause = e.has("cNoSuchModuleException");
  ASSERT_NE(cause, nullptr);
  EXPECT_EQ(qcstest::textOf(*cause), "Module (1:42) not found!");
  ASSERT_TRUE(cause->isRemote());
  EXPECT_EQ(*cause->remoteLocation(), pair.mpClient->peerLocation());
  // The connection survives a failed call.
  EXPECT_TRUE(pair.mpClient->established());
}

TEST(RemoteSession, EmissionsOfAnExportedSignalReachTheSlotsConnectedToTheProxy) {
  cPair pair;
  cTickerApi& ticker =
      static_cast<cTickerApi&>(pair.mpCounter->addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cTickerApi)));
  cTickerUser& user = static_cast<cTickerUser&>(pair.mClientSide.mMgr.addComponent(
      qstd::tAutoPtr<qcs::cAbstractComponent>(new cTickerUser(pair.mClientSide.mMgr)), qcs::cComponentAddr()));
  pair.connect();
  ticker.sigTick(1);
  ticker.sigTick(2);
  // Emissions leave together when the queue gets to them.
  EXPECT_TRUE(user.mUse.mvTicks.empty());
  EXPECT_TRUE(qcs::detail::waitNested([&] { return user.mUse.mvTicks.size() == 2; }, 5000, "test"));
  EXPECT_EQ(user.mUse.mvTicks, (std::vector<int>{1, 2}));
  // A receiver that goes stops receiving; the others are not affected.
  pair.mClientSide.mMgr.removeAllComponentsNow();
  ticker.sigTick(3);
  EXPECT_TRUE(pair.mpClient->established());
}

TEST(RemoteSession, AWrongSecretClosesBothEndsBeforeAnythingIsExported) {
  cPair pair;
  pair.mClientOptions = optionsWith("guess");
  pair.connect();
  EXPECT_TRUE(pair.mpServer->closed());
  EXPECT_TRUE(pair.mpClient->closed());
  EXPECT_EQ(pair.mpClient->closeReason(), "Remote peer failed to authenticate!");
  EXPECT_EQ(pair.mpServer->closeReason(), "connection lost");
  EXPECT_EQ(pair.proxy(), nullptr);
  EXPECT_EQ(pair.mToServer.miClosed, 1);
}

// Feeds raw bytes to a fresh server session and returns why it closed.
std::string closeReasonOf(const std::string& bytes, unsigned int maxFrame = 1024) {
  cManagerFixture side;
  qcs::cRemoteOptions options = optionsWith("k");
  options.setMaxFrameSize(maxFrame);
  cPipe out;
  cRemoteSession s(cRemoteSession::Server, side.mMgr, options, out);
  s.start();
  s.feed(bytes.data(), bytes.size());
  if (!s.closed()) return "open";
  EXPECT_EQ(out.miClosed, 1);
  return s.closeReason().c_str();
}

std::string frame(const std::string& payload) {
  const unsigned int n = static_cast<unsigned int>(payload.size());
  std::string f;
  for (int i = 0; i < 4; ++i) f += static_cast<char>(n >> (8 * i));
  return f + payload;
}
std::string archive(unsigned int type, const char* text = nullptr) {
  qsa::cSerializeBinary s;
  s.store(type);
  if (text) s.store(qstd::cAsciiString(text));
  const qstd::tArrayRef<char> d = s.data();
  return std::string(d.data(), d.size());
}

TEST(RemoteSession, BadInputClosesTheConnectionWithAClearReason) {
  // Announcing more than the limit fails before anything is allocated.
  EXPECT_EQ(closeReasonOf(std::string("\xff\xff\xff\x7f", 4)), "Remote protocol error: frame exceeds the size limit!");
  EXPECT_EQ(closeReasonOf(std::string(4, '\0')), "Remote protocol error: empty frame!");
  // A partial frame waits for the rest.
  EXPECT_EQ(closeReasonOf(frame(archive(1)).substr(0, 7)), "open");
  // Anything but a hello first.
  EXPECT_EQ(closeReasonOf(frame(archive(5))), "Remote protocol error: expected the peer's hello!");
  EXPECT_EQ(closeReasonOf(frame(archive(1, "Other"))), "Remote protocol error: not a remote component peer!");
  // A payload that is no archive.
  const std::string reason = closeReasonOf(frame("garbage!"));
  EXPECT_NE(reason.find("Type mismatch"), std::string::npos) << reason;
}

TEST(RemoteSession, APeerThatNeverCompletesTheHandshakeIsDropped) {
  cManagerFixture side;
  qcs::cRemoteOptions options = optionsWith("k");
  options.setHandshakeTimeout(20);
  cPipe out;
  cRemoteSession s(cRemoteSession::Server, side.mMgr, options, out);
  s.start();
  EXPECT_TRUE(qcs::detail::waitNested([&] { return s.closed(); }, 5000, "test"));
  EXPECT_EQ(s.closeReason(), "Remote handshake timed out!");
  EXPECT_EQ(out.miClosed, 1);
}

TEST(RemoteSession, TimeoutAndLossFailPendingCallsAndRemoveTheProxies) {
  cPair pair;
  pair.mClientOptions.setCallTimeout(30);
  cUser& user = static_cast<cUser&>(pair.mClientSide.mMgr.addComponent(
      qstd::tAutoPtr<qcs::cAbstractComponent>(new cUser(pair.mClientSide.mMgr, "user")), qcs::cComponentAddr()));
  pair.connect();
  ASSERT_NE(user.mUse.mpBound, nullptr);

  // The server never answers: the call times out, the connection stays.
  pair.mToServer.mbHold = true;
  qcs::cRMIException e = qeltest::caught<qcs::cRMIException>([&] { user.mUse.add(1); });
  EXPECT_EQ(qcstest::chainOf(e), "Unable to call slot \"add\" on interface 0! / Remote call failed: timed out!");
  EXPECT_EQ(pair.mpClient->pendingCalls(), 0u);
  EXPECT_TRUE(pair.mpClient->established());

  // The connection is lost while a call waits.
  pair.mClientOptions.setCallTimeout(30000);
  qstd::tSharedObject<qpi::cWork> loss = qpi::system().workQueue().createJob();
  qeltest::cJob job;
  job.body = [&] { pair.mpClient->connectionLost(); };
  loss->sigTrigger.connect(job, &qeltest::cJob::sltRun);
  loss->start(10, qpi::cWork::SingleTask);
  e = qeltest::caught<qcs::cRMIException>([&] { user.mUse.add(1); });
  EXPECT_EQ(qcstest::chainOf(e), "Unable to call slot \"add\" on interface 0! / Remote call failed: connection lost!");
  qpi::system().workQueue().removeJob(*loss);

  // The proxy leaves through the manager; the dependency lets go of it.
  pump(pair.mClientSide.mMgr);
  EXPECT_EQ(pair.proxy(), nullptr);
  EXPECT_EQ(user.mUse.mpBound, nullptr);

  // Reconnecting brings the proxy back and the dependency matches again.
  pair.connect();
  ASSERT_NE(pair.proxy(), nullptr);
  ASSERT_NE(user.mUse.mpBound, nullptr);
  EXPECT_EQ(user.mUse.add(3), 3);
}

TEST(RemoteSession, ACallBeyondThePendingLimitFailsAtOnce) {
  cPair pair;
  pair.mClientOptions.setMaxPendingCalls(1);
  cUser& user = static_cast<cUser&>(pair.mClientSide.mMgr.addComponent(
      qstd::tAutoPtr<qcs::cAbstractComponent>(new cUser(pair.mClientSide.mMgr, "user")), qcs::cComponentAddr()));
  pair.connect();
  pair.mToServer.mbHold = true;
  // A second call made while the first waits (from a work of the nested pass).
  std::string second;
  qstd::tSharedObject<qpi::cWork> nested = qpi::system().workQueue().createJob();
  qeltest::cJob job;
  job.body = [&] {
    second = qcstest::thrown<qcs::cRMIException>([&] { user.mUse.add(1); });
    pair.mpClient->connectionLost();
  };
  nested->sigTrigger.connect(job, &qeltest::cJob::sltRun);
  nested->start(5, qpi::cWork::SingleTask);
  qeltest::caught<qcs::cRMIException>([&] { user.mUse.add(1); });
  EXPECT_EQ(second, "Unable to call slot \"add\" on interface 0! / Too many pending remote calls (1)!");
  qpi::system().workQueue().removeJob(*nested);
}

TEST(RemoteSession, APeerThatStopsReadingIsDroppedAtTheBacklogLimit) {
  cPair pair;
  pair.mServerOptions.setMaxSendBacklog(4096);
  cTickerApi& ticker =
      static_cast<cTickerApi&>(pair.mpCounter->addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cTickerApi)));
  cTickerUser& user = static_cast<cTickerUser&>(pair.mClientSide.mMgr.addComponent(
      qstd::tAutoPtr<qcs::cAbstractComponent>(new cTickerUser(pair.mClientSide.mMgr)), qcs::cComponentAddr()));
  pair.connect();
  pair.mToClient.mbHold = true;
  for (int i = 0; i < 2000 && !pair.mpServer->closed(); ++i) {
    ticker.sigTick(i);
    if (i % 100 == 99) qpi::system().exec();
  }
  EXPECT_TRUE(pair.mpServer->closed());
  EXPECT_LE(pair.mToClient.mHeld.size(), 4096u);
  EXPECT_EQ(std::string(pair.mpServer->closeReason().c_str()).rfind("The peer does not read: ", 0), 0u)
      << pair.mpServer->closeReason().c_str();
  EXPECT_EQ(pair.mToClient.miClosed, 1);
  EXPECT_TRUE(user.mUse.mvTicks.empty());
}

TEST(RemoteSession, EitherEndMayGoFirst) {
  {
    cPair pair;
    pair.connect();
    pair.mpServer.reset();
    pair.mToClient.mpPeer = nullptr;
    pair.mpClient->connectionLost();
    pump(pair.mClientSide.mMgr);
    EXPECT_EQ(pair.proxy(), nullptr);
  }
  {
    // The session goes first: the proxy stays until the manager's pass
    // removes it, and a call through it fails cleanly meanwhile.
    cPair pair;
    cUser& user = static_cast<cUser&>(pair.mClientSide.mMgr.addComponent(
        qstd::tAutoPtr<qcs::cAbstractComponent>(new cUser(pair.mClientSide.mMgr, "user")), qcs::cComponentAddr()));
    pair.connect();
    pair.mToServer.mpPeer = nullptr;
    pair.mpClient.reset();
    qeltest::caught<qcs::cRMIException>([&] { user.mUse.add(1); });
    pump(pair.mClientSide.mMgr);
    EXPECT_EQ(pair.proxy(), nullptr);
  }
}

}  // namespace
