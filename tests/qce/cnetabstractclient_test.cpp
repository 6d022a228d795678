// Clients: what they accept as an address, how a refused connect is
// reported, reconnecting, IPv6, and many clients on one queue.
#include "qelcore/qce/net++/cnetabstractclient.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetabstractserver.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/nettestutil.h"

using qce::cNetAbstractClient;
using qce::cNetAbstractConnection;
using qce::cNetAbstractServer;
using qce::cNetIPv4Address;
using qeltest::cNetQueue;
using qeltest::cPeers;
using qeltest::cRecorder;
using qeltest::thrownText;

namespace {

// A loopback port that nothing listens on (just released by a server).
unsigned int freePort(cNetQueue& net) {
  cNetAbstractServer server(&net.queue);
  server.listen();
  return server.port();
}

}  // namespace

TEST(NetClient, RefusesAddressesItCannotConnectToWithoutChangingAnything) {
  cNetQueue net;
  cNetAbstractClient client(&net.queue);
  EXPECT_EQ(thrownText<qstd::cRuntimeException>([&] { client.connectTo("example.org:80"); }),
            "Host names are not resolved (\"example.org:80\"); give a numeric address!");
  EXPECT_EQ(thrownText<qstd::cRuntimeException>([&] { client.connectTo("10.0.0.1"); }),
            "Network address (\"10.0.0.1:0\") cannot be used for a socket!");
  EXPECT_EQ(thrownText<qstd::cRuntimeException>([&] { client.connectTo("10.0.0.256:1"); }),
            "IP number part (256) is not in range of 0..255!");
  EXPECT_EQ(client.connection().state(), cNetAbstractConnection::Closed);
  EXPECT_FALSE(client.connection().isOpen());
  EXPECT_EQ(thrownText<qstd::cRuntimeException>([&] { client.connection().peerAddress(); }),
            "Network socket is not open!");
}

TEST(NetClient, ReportsARefusedConnectionAsAnOSErrorThenClosed) {
  cNetQueue net;
  const unsigned int port = freePort(net);
  cNetAbstractClient client(&net.queue);
  cRecorder recorder;
  recorder.watch(client.connection());
  client.connectTo(cNetIPv4Address(127u | 1u << 24, port));
  ASSERT_TRUE(net.runUntil([&] { return recorder.count("closed") == 1; }));
  EXPECT_EQ(recorder.story(), "error closed");
  EXPECT_EQ(recorder.errorType, "cOSErrorException");
  ASSERT_EQ(recorder.error.size(), 2u);
  EXPECT_EQ(recorder.error[0], "OS-Error while trying operation \"connect\"!");
  // The cause carries the system's own words.
  EXPECT_EQ(recorder.error[1].rfind("Network operation \"connect\" failed: ", 0), 0u) << recorder.error[1];
  EXPECT_FALSE(client.connection().isOpen());
  EXPECT_THROW(client.connection().send("x", 1), qstd::cRuntimeException);
}

TEST(NetClient, ReconnectsWithTheSameConnectionObject) {
  cNetQueue net;
  cNetAbstractServer server(&net.queue);
  cPeers peers(server);
  server.listen("localhost:0");
  cNetAbstractClient client(&net.queue);
  cRecorder recorder;
  recorder.watch(client.connection());
  for (int round = 0; round < 3; ++round) {
    client.connectTo(*server.localAddress());  // closes the previous connection first
    client.connection().send("abc", 3);
    ASSERT_TRUE(net.runUntil([&] { return recorder.data.size() == 3u * (round + 1); }));
  }
  EXPECT_EQ(recorder.story(), "connected data closed connected data closed connected data");
  EXPECT_EQ(peers.connections.size(), 3u);
}

TEST(NetClient, ManyClientsShareOneQueue) {
  cNetQueue net;
  cNetAbstractServer server(&net.queue);
  cPeers peers(server);
  server.listen();
  std::vector<std::unique_ptr<cNetAbstractClient>> clients;
  std::vector<std::unique_ptr<cRecorder>> recorders;
  const int count = 100;
  for (int i = 0; i < count; ++i) {
    clients.emplace_back(new cNetAbstractClient(&net.queue));
    recorders.emplace_back(new cRecorder);
    recorders.back()->watch(clients.back()->connection());
    clients.back()->connectTo(*server.localAddress());
    const std::string message = "client " + std::to_string(i);
    clients.back()->connection().send(message.data(), message.size());
  }
  ASSERT_TRUE(net.runUntil([&] {
    for (const auto& r : recorders)
      if (r->data.empty()) return false;
    return true;
  }));
  for (int i = 0; i < count; ++i) EXPECT_EQ(recorders[i]->data, "client " + std::to_string(i));
  EXPECT_EQ(peers.connections.size(), static_cast<std::size_t>(count));
}

namespace {

class NetIPv6 : public ::testing::Test {
protected:
  static void SetUpTestSuite() {
    qsa::cReferenceFrame frame;
    qpi::system().coreExtensions().load(qstd::cAsciiString("qelipv6"), frame);
  }
  static void TearDownTestSuite() { qpi::cSystem::cleanup(); }
};

}  // namespace

TEST_F(NetIPv6, EchoesOverTheIPv6Loopback) {
  cNetQueue net;
  cNetAbstractServer server(&net.queue);
  cPeers peers(server);
  try {
    server.listen("[::1]:0");
  } catch (const qstd::cOSErrorException&) {
    GTEST_SKIP() << "no IPv6 loopback on this host";
  }
  EXPECT_EQ(server.localAddress()->addrType(), "TcpIpv6");
  cNetAbstractClient client(&net.queue);
  cRecorder recorder;
  recorder.watch(client.connection());
  client.connectTo(server.localAddress()->toString(qce::cNetAbstractAddress::WithPort));
  client.connection().send("six", 3);
  ASSERT_TRUE(net.runUntil([&] { return recorder.data == "six" || recorder.count("closed"); }));
  if (recorder.count("error")) GTEST_SKIP() << "IPv6 loopback refuses connections on this host";
  EXPECT_EQ(recorder.story(), "connected data");
  EXPECT_TRUE(client.connection().peerAddress()->equals(*server.localAddress()));
  EXPECT_EQ(peers.connections.front()->peerAddress()->toString(0), "::1");
}
