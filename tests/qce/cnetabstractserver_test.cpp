// Servers: where they listen, who owns accepted connections, the order in
// which sockets, queues and receivers may die, and a server on a queue of
// its own thread.
#include "qelcore/qce/net++/cnetabstractserver.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetabstractclient.h"
#include "qelcore/std/coserrorexception.h"

#include "support/nettestutil.h"

using qce::cNetAbstractClient;
using qce::cNetAbstractConnection;
using qce::cNetAbstractServer;
using qeltest::cNetQueue;
using qeltest::cPeers;
using qeltest::cRecorder;

TEST(NetServer, ListensOnTheLoopbackAtAFreePortByDefault) {
  cNetQueue net;
  cNetAbstractServer server(&net.queue);
  EXPECT_FALSE(server.isListening());
  EXPECT_EQ(server.port(), 0u);
  server.listen();
  EXPECT_TRUE(server.isListening());
  EXPECT_NE(server.port(), 0u);
  EXPECT_EQ(server.localAddress()->toString(0), "127.0.0.1");

  // The port is taken now: a second server fails and is left not listening.
  cNetAbstractServer second(&net.queue);
  EXPECT_THROW(second.listen(server.port()), qstd::cOSErrorException);
  EXPECT_FALSE(second.isListening());
  server.close();
  EXPECT_FALSE(server.isListening());
}

TEST(NetServer, RunsOnTheSystemsMainQueueByDefault) {
  {
    // The main queue gets an event processor that waits on sockets.
    cNetAbstractServer server;
    EXPECT_TRUE(qpi::system().workQueue().events()->supportsAIO());
    cPeers peers(server);
    server.listen();
    cNetAbstractClient client;
    cRecorder recorder;
    recorder.watch(client.connection());
    client.connectTo(*server.localAddress());
    client.connection().send("main", 4);
    for (int i = 0; i < 1000 && recorder.data != "main"; ++i) qpi::system().exec();
    EXPECT_EQ(recorder.data, "main");
  }
  qpi::cSystem::cleanup();
}

TEST(NetServer, ClosesAConnectionThatNobodyTakes) {
  cNetQueue net;
  cNetAbstractServer server(&net.queue);
  int offered = 0;
  server.sigAccepted.connect(server, [&offered](cNetAbstractServer&, qstd::tAutoPtr<cNetAbstractConnection>& c) {
    ++offered;
    EXPECT_TRUE(c->isConnected());
  });
  server.listen();
  cNetAbstractClient client(&net.queue);
  cRecorder recorder;
  recorder.watch(client.connection());
  client.connectTo(*server.localAddress());
  ASSERT_TRUE(net.runUntil([&] { return recorder.count("closed") == 1; }));
  EXPECT_EQ(offered, 1);
  EXPECT_EQ(recorder.story(), "connected closed");
}

namespace {

// The platform's socket, whose first accept() fails as when the process has
// run out of descriptors.
class cFailingAcceptImpl : public qpi::cAbstractSocketImpl {
public:
  cFailingAcceptImpl() : mpReal(qpi::cPlatform::createSocketImpl()), mbFailed(false) {}
  int handle() const override { return mpReal->handle(); }
  bool connect(const void* sa, unsigned int size) override { return mpReal->connect(sa, size); }
  int connectError() override { return mpReal->connectError(); }
  void listen(const void* sa, unsigned int size, int backlog) override { mpReal->listen(sa, size, backlog); }
  qstd::tAutoPtr<qpi::cAbstractSocketImpl> accept() override {
    if (!mbFailed) {
      mbFailed = true;
      qpi::cPIExceptions::throwSocketError("accept", 24, __FILE__, __LINE__);
    }
    return mpReal->accept();
  }
  long send(const char* data, std::size_t size, int& error) override { return mpReal->send(data, size, error); }
  long receive(char* buffer, std::size_t size, int& error) override { return mpReal->receive(buffer, size, error); }
  unsigned int localAddress(void* buffer, unsigned int size) const override {
    return mpReal->localAddress(buffer, size);
  }
  unsigned int peerAddress(void* buffer, unsigned int size) const override { return mpReal->peerAddress(buffer, size); }
  void shutdownSend() override { mpReal->shutdownSend(); }
  void close() override { mpReal->close(); }

private:
  qstd::tAutoPtr<qpi::cAbstractSocketImpl> mpReal;
  bool mbFailed;
};

class cFailingServer : public cNetAbstractServer {
public:
  using cNetAbstractServer::cNetAbstractServer;

protected:
  qstd::tAutoPtr<qpi::cAbstractSocketImpl> createSocketImpl() const override {
    return qstd::tAutoPtr<qpi::cAbstractSocketImpl>(new cFailingAcceptImpl);
  }
};

}  // namespace

TEST(NetServer, ReportsAFailedAcceptAndTriesAgainAfterAPause) {
  cNetQueue net;
  cFailingServer server(&net.queue);
  cPeers peers(server);
  int errors = 0;
  server.sigError.connect(peers, [&errors](cNetAbstractServer&, const qstd::cAbstractException& e) {
    ++errors;
    EXPECT_EQ(qeltest::textOf(e), "OS-Error while trying operation \"accept\"!");
  });
  server.listen();
  cNetAbstractClient client(&net.queue);
  client.connectTo(*server.localAddress());
  ASSERT_TRUE(net.runUntil([&] { return errors == 1; }));
  // The connection waits in the system meanwhile, and is taken after the pause.
  net.runFor(50);
  EXPECT_TRUE(peers.connections.empty());
  ASSERT_TRUE(net.runUntil([&] { return !peers.connections.empty(); }));
  EXPECT_EQ(errors, 1);
}

TEST(NetServer, AcceptedConnectionsOutliveTheirServer) {
  cNetQueue net;
  std::unique_ptr<cNetAbstractServer> server(new cNetAbstractServer(&net.queue));
  cPeers peers(*server);
  server->listen();
  cNetAbstractClient client(&net.queue);
  cRecorder recorder;
  recorder.watch(client.connection());
  client.connectTo(*server->localAddress());
  ASSERT_TRUE(net.runUntil([&] { return !peers.connections.empty(); }));
  server.reset();
  client.connection().send("still here", 10);
  ASSERT_TRUE(net.runUntil([&] { return recorder.data == "still here"; }));
}

TEST(NetServer, SocketsQueuesAndReceiversDieInAnyOrder) {
  // The queue first: the sockets stay usable objects and die quietly later.
  {
    std::unique_ptr<cNetQueue> net(new cNetQueue);
    cNetAbstractServer server(&net->queue);
    cPeers peers(server);
    server.listen();
    cNetAbstractClient client(&net->queue);
    client.connectTo(*server.localAddress());
    ASSERT_TRUE(net->runUntil([&] { return !peers.connections.empty() && client.isConnected(); }));
    const qstd::tAutoPtr<qce::cNetAbstractAddress> at = server.localAddress();
    net.reset();
    client.connection().send("lost", 4);
    peers.connections.front()->close();
    client.close();
    client.connectTo(*at);  // a new socket, never to be watched
    server.close();
  }
  // The receiver first: the connection goes on without it.
  {
    cNetQueue net;
    cNetAbstractServer server(&net.queue);
    std::unique_ptr<cPeers> peers(new cPeers(server));
    server.listen();
    cNetAbstractClient client(&net.queue);
    std::unique_ptr<cRecorder> recorder(new cRecorder);
    recorder->watch(client.connection());
    client.connectTo(*server.localAddress());
    ASSERT_TRUE(net.runUntil([&] { return !peers->connections.empty() && client.isConnected(); }));
    std::unique_ptr<cNetAbstractConnection> accepted(peers->connections.front().release());
    peers.reset();
    recorder.reset();
    accepted->send("nobody listens", 14);
    net.runFor(20);
    EXPECT_EQ(client.connection().receivedSize(), 14u);  // kept, as nobody consumed it
    // A peer still connecting when everything goes.
    cNetAbstractClient late(&net.queue);
    late.connectTo(*server.localAddress());
    net.runFor(5);
  }
}

TEST(NetServer, ServesFromAQueueOnAnotherThread) {
  std::atomic<unsigned int> port(0);
  std::atomic<bool> stop(false);
  std::thread serverThread([&] {
    cNetQueue net;
    cNetAbstractServer server(&net.queue);
    cPeers peers(server);
    server.listen();
    port = server.port();
    net.runUntil([&] { return stop.load(); }, 60000);
  });
  cNetQueue net;
  while (port == 0) std::this_thread::yield();
  cNetAbstractClient client(&net.queue);
  cRecorder recorder;
  recorder.watch(client.connection());
  client.connectTo(qstd::cAsciiString("127.0.0.1:") + qstd::cAsciiString().setNum32(static_cast<int>(port.load())));
  std::string expected;
  for (int i = 0; i < 50; ++i) {
    const std::string message = "round " + std::to_string(i) + ";";
    expected += message;
    client.connection().send(message.data(), message.size());
    ASSERT_TRUE(net.runUntil([&] { return recorder.data == expected; }));
  }
  stop = true;
  serverThread.join();
}
