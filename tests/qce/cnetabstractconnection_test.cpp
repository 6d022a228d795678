// Connections over real loopback TCP: echo, buffering of large sends, the
// receive limit, the end of a connection from either side, and connections
// closed or destroyed from inside their own signals.
#include "qelcore/qce/net++/cnetabstractconnection.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetabstractclient.h"
#include "qelcore/qce/net++/cnetabstractserver.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/nettestutil.h"

using qce::cNetAbstractClient;
using qce::cNetAbstractConnection;
using qce::cNetAbstractServer;
using qeltest::cNetQueue;
using qeltest::cPeers;
using qeltest::cRecorder;

namespace {

// A byte pattern that shows lost, doubled or reordered bytes.
std::string pattern(std::size_t size) {
  std::string s(size, 0);
  for (std::size_t i = 0; i < size; ++i) s[i] = static_cast<char>(i * 7 + i / 251);
  return s;
}

class NetConnection : public ::testing::Test {
protected:
  NetConnection() : server(&net.queue), peers(server), client(&net.queue) {
    server.listen();
    recorder.watch(client.connection());
    client.connectTo(qstd::cAsciiString("127.0.0.1:") + qstd::cAsciiString().setNum32(static_cast<int>(server.port())));
  }

  bool connected() {
    return net.runUntil([this] { return client.isConnected() && !peers.connections.empty(); });
  }
  cNetAbstractConnection& accepted() { return *peers.connections.front(); }

  cNetQueue net;
  cNetAbstractServer server;
  cPeers peers;
  cNetAbstractClient client;
  cRecorder recorder;
};

}  // namespace

TEST_F(NetConnection, EchoesWhatWasSentWhileConnecting) {
  EXPECT_EQ(client.connection().state(), cNetAbstractConnection::Connecting);
  client.connection().send("hello ", 6);  // kept until connected
  ASSERT_TRUE(connected());
  client.connection().send(qstd::tArray<char>("world", 5));
  ASSERT_TRUE(net.runUntil([this] { return recorder.data.size() == 11; }));
  EXPECT_EQ(recorder.data, "hello world");
  EXPECT_EQ(recorder.story(), "connected data");
  // Each side's peer is the other's local end.
  EXPECT_TRUE(client.connection().peerAddress()->equals(*server.localAddress()));
  EXPECT_TRUE(accepted().peerAddress()->equals(*client.connection().localAddress()));
  EXPECT_EQ(client.connection().peerAddress()->toString(qce::cNetAbstractAddress::WithPort),
            qstd::cAsciiString("127.0.0.1:") + qstd::cAsciiString().setNum32(static_cast<int>(server.port())));
}

TEST_F(NetConnection, BuffersLargeSendsAndGivesTheMemoryBackAfterwards) {
  ASSERT_TRUE(connected());
  peers.echo = false;
  const std::string big = pattern(8 << 20);
  client.connection().send(big.data(), big.size());
  // The system takes only part of it at once; the rest waits in the connection.
  EXPECT_GT(client.connection().pendingSendBytes(), 0u);
  EXPECT_LE(client.connection().pendingSendBytes(), big.size());
  std::string got;
  accepted().sigData.disconnect(peers);
  accepted().sigData.connect(peers, [&got](cNetAbstractConnection& c) {
    got.append(c.receivedData(), c.receivedSize());
    c.consume(c.receivedSize());
  });
  ASSERT_TRUE(net.runUntil([&] { return got.size() == big.size(); }));
  EXPECT_TRUE(got == big);
  EXPECT_EQ(client.connection().pendingSendBytes(), 0u);
  // After the burst both ends are back to small buffers.
  EXPECT_LE(client.connection().bufferCapacity(), 32u * 1024);
  EXPECT_LE(accepted().bufferCapacity(), 32u * 1024);
}

TEST_F(NetConnection, PausesReadingAtTheReceiveLimitUntilBytesAreConsumed) {
  ASSERT_TRUE(connected());
  peers.echo = false;
  recorder.keep = true;  // the client's receiver leaves everything in the buffer
  client.connection().setReceiveLimit(1000);
  const std::string sent = pattern(300000);
  accepted().send(sent.data(), sent.size());
  net.runFor(100);
  const std::size_t held = client.connection().receivedSize();
  EXPECT_GE(held, 1000u);
  EXPECT_LT(held, 100000u);
  // Taking bytes out lets the rest in: a framing layer reads this way.
  std::string got;
  client.connection().sigData.connect(recorder, [&got](cNetAbstractConnection& c) {
    got.append(c.receivedData(), c.receivedSize());
    c.consume(c.receivedSize());
  });
  char head[10];
  EXPECT_EQ(client.connection().read(head, sizeof head), sizeof head);
  got.assign(head, sizeof head);
  got.append(client.connection().receivedData(), client.connection().receivedSize());
  client.connection().consume(client.connection().receivedSize());
  ASSERT_TRUE(net.runUntil([&] { return got.size() >= sent.size(); }));
  EXPECT_TRUE(got == sent);
}

TEST_F(NetConnection, ThePeersCloseFollowsItsLastBytes) {
  ASSERT_TRUE(connected());
  cRecorder serverSide;
  serverSide.watch(accepted());
  accepted().send("bye", 3);
  accepted().close();
  // close() reports at once and refuses further sends.
  EXPECT_EQ(serverSide.story(), "closed");
  EXPECT_FALSE(accepted().isConnected());
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([this] { accepted().send("x", 1); }),
            "Network connection is not connected!");
  ASSERT_TRUE(net.runUntil([this] { return recorder.count("closed") == 1; }));
  EXPECT_EQ(recorder.data, "bye");
  EXPECT_EQ(recorder.story(), "connected data closed");
  EXPECT_EQ(client.connection().state(), cNetAbstractConnection::Closed);
  // Once both ends are done the sockets are gone, and nothing more is emitted.
  ASSERT_TRUE(net.runUntil([this] { return !accepted().isOpen() && !client.connection().isOpen(); }));
  net.runFor(20);
  EXPECT_EQ(recorder.count("closed"), 1);
  EXPECT_EQ(serverSide.count("closed"), 1);
}

TEST_F(NetConnection, ClosingFromInsideSignals) {
  ASSERT_TRUE(connected());
  // The client closes as soon as it has its answer; the server sees the end.
  recorder.then = [](const std::string& what, cNetAbstractConnection& c) {
    if (what == "data") c.close();
  };
  client.connection().send("ping", 4);
  ASSERT_TRUE(net.runUntil([this] { return recorder.count("closed") == 1; }));
  EXPECT_EQ(recorder.story(), "connected data closed");
  EXPECT_EQ(recorder.data, "ping");
  ASSERT_TRUE(net.runUntil([this] { return !accepted().isOpen(); }));
}

TEST_F(NetConnection, DestroyingTheConnectionInsideItsSignals) {
  ASSERT_TRUE(connected());
  // The server drops the accepted connection from inside its own sigData.
  peers.connections.front()->sigData.connect(peers, [this](cNetAbstractConnection&) { peers.connections.clear(); });
  client.connection().send("x", 1);
  ASSERT_TRUE(net.runUntil([this] { return peers.connections.empty(); }));
  ASSERT_TRUE(net.runUntil([this] { return recorder.count("closed") == 1; }));

  // A client destroyed by the receiver of its connection's sigClosed.
  cNetAbstractClient* second = new cNetAbstractClient(&net.queue);
  cRecorder secondRecorder;
  secondRecorder.watch(second->connection());
  secondRecorder.then = [&second](const std::string& what, cNetAbstractConnection&) {
    if (what == "closed") {
      delete second;
      second = nullptr;
    }
  };
  second->connectTo(*server.localAddress());
  ASSERT_TRUE(net.runUntil([&] { return !peers.connections.empty(); }));
  peers.connections.clear();
  ASSERT_TRUE(net.runUntil([&] { return second == nullptr; }));
  EXPECT_EQ(secondRecorder.story(), "connected closed");
}

TEST_F(NetConnection, ConsumingMoreThanWasReceivedIsABug) {
  ASSERT_TRUE(connected());
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([this] { client.connection().consume(1); }),
            "Cannot consume 1 of 0 received bytes!");
}
