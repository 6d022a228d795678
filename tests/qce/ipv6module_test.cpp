// The IPv6 addresses come from a module file installed with the library,
// loaded by name: the plug-in path end to end.
#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/exceptiontext.h"

using qce::cNetAbstractAddress;
using qstd::tAutoPtr;

namespace {

class IPv6Module : public ::testing::Test {
protected:
  static void SetUpTestSuite() {
    qsa::cReferenceFrame frame;
    qpi::system().coreExtensions().load(qstd::cAsciiString("qelipv6"), frame);
  }
  static void TearDownTestSuite() { qpi::cSystem::cleanup(); }

  static tAutoPtr<cNetAbstractAddress> address() {
    return qpi::system().coreExtensions().createNetAddress("TcpIpv6");
  }
  // The text printed after parsing `input`.
  static std::string standard(const char* input, int flags = 0) {
    tAutoPtr<cNetAbstractAddress> a = address();
    a->fromString(input);
    return a->toString(flags).c_str();
  }
};

}  // namespace

TEST_F(IPv6Module, IsLoadedByNameFromTheLibrarysModuleDirectory) {
  const qce::cCoreExtensionMgr& mgr = qpi::system().coreExtensions();
  const qcs::cAbstractPlugIn* plugIn = mgr.extensions().last()->plugIn();
  ASSERT_NE(plugIn, nullptr);
  EXPECT_EQ(plugIn->moduleInfo().name(), "qelipv6");
  tAutoPtr<cNetAbstractAddress> a = address();
  EXPECT_EQ(a->addrType(), "TcpIpv6");
  EXPECT_NE(a->isIPAddress(), nullptr);
}

TEST_F(IPv6Module, PrintsTheStandardCompressedForm) {
  EXPECT_EQ(standard("2001:0DB8:0000:0000:0000:0000:0000:0001"), "2001:db8::1");
  EXPECT_EQ(standard("::"), "::");
  EXPECT_EQ(standard("1:0:0:2:0:0:0:3"), "1:0:0:2::3");  // the longest run
  EXPECT_EQ(standard("1:0:0:2:3:0:0:4"), "1::2:3:0:0:4");  // the first of equal runs
  EXPECT_EQ(standard("1:2:3:4:5:6:0:8"), "1:2:3:4:5:6:0:8");  // one zero group stays
  EXPECT_EQ(standard("::ffff:10.0.0.1"), "::ffff:10.0.0.1");
  EXPECT_EQ(standard("1:2:3:4:5:6:1.2.3.4"), "1:2:3:4:5:6:102:304");
  EXPECT_EQ(standard("[fe80::1]:8080", cNetAbstractAddress::WithPort), "[fe80::1]:8080");
  EXPECT_EQ(standard("fe80::1", cNetAbstractAddress::WithPort), "[fe80::1]:0");
}

TEST_F(IPv6Module, MalformedTextLeavesTheAddressUnchanged) {
  tAutoPtr<cNetAbstractAddress> a = address();
  a->fromString("[::1]:7");
  for (const char* bad : {"", ":::", "1:2:3:4:5:6:7:8:9", "1::2::3", "12345::", "1:", ":1", "[::1", "[::1]x",
                          "::1.2.3.04", "1:2:3:4:5:6:7:1.2.3.4", "fe80::1%eth0"}) {
    EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { a->fromString(bad); }),
              std::string("Malformed IPv6 address (\"") + bad + "\")!");
    EXPECT_EQ(a->toString(cNetAbstractAddress::WithPort), "[::1]:7");
  }
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { a->fromString("[::1]:"); }), "Expecting port number!");
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { a->fromString("[::1]:65536"); }),
            "Given port number (65536) is not in range of 0..65535");
}

TEST_F(IPv6Module, SocketAddressesRoundTrip) {
  tAutoPtr<cNetAbstractAddress> a = address();
  a->fromString("[2001:db8::7]:443");
  unsigned char buffer[128];
  EXPECT_EQ(a->toSockAddr(buffer, 8), 0u);
  const unsigned int size = a->toSockAddr(buffer, sizeof buffer);
  tAutoPtr<cNetAbstractAddress> b = address();
  ASSERT_TRUE(b->fromSockAddr(buffer, size));
  EXPECT_TRUE(b->equals(*a));
  EXPECT_FALSE(b->equals(qce::cNetIPv4Address()));
  qce::cNetIPv4Address v4;
  EXPECT_FALSE(v4.fromSockAddr(buffer, size));  // not an IPv4 socket address
}
