// Servers: where they listen, who owns accepted connections, the order in
// which sockets, queues and receivers may die, and a server on a queue of
// its own thread.
#include "qelcore/qce/net++/cnetabstractserver.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include <gtest/gtest.h>

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
    net.reset();
    client.connection().send("lost", 4);
    peers.connections.front()->close();
    client.close();
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
    // The server dies before its queue's next pass would have run it.
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
