#include "qelcore/qce/net++/cnetabstractipv4address.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/exceptiontext.h"

using qce::cNetAbstractAddress;
using qce::cNetIPv4Address;
using qeltest::thrownText;

namespace {

std::string text(const cNetIPv4Address& a, int flags = cNetAbstractAddress::WithPort) {
  return a.toString(flags).c_str();
}

// Parsing `input` fails with `message` and leaves the address as it was.
void expectRejected(const char* input, const std::string& message) {
  cNetIPv4Address a(0x04030201, 99);
  EXPECT_EQ(thrownText<qstd::cRuntimeException>([&] { a.fromString(input); }), message) << input;
  EXPECT_EQ(text(a), "1.2.3.4:99") << input;
}

}  // namespace

TEST(IPv4Address, TheFirstPartIsTheLowestByte) {
  cNetIPv4Address a;
  EXPECT_EQ(text(a), "0.0.0.0:0");
  a.fromString("10.0.0.1");
  EXPECT_EQ(a.value(), 0x0100000Au);
  EXPECT_EQ(a.port(), 0u);
  EXPECT_EQ(text(a, 0), "10.0.0.1");
  a.fromString("192.168.200.255:8080");
  EXPECT_EQ(text(a), "192.168.200.255:8080");
  EXPECT_EQ(a.addrType(), "TcpIpv4");
}

TEST(IPv4Address, WhatFollowsTheFourthPartWithoutAColonIsIgnored) {
  cNetIPv4Address a;
  a.fromString("1.2.3.4.5");
  EXPECT_EQ(text(a), "1.2.3.4:0");
  a.fromString("1..2.3.4:65535");  // empty parts are skipped
  EXPECT_EQ(text(a), "1.2.3.4:65535");
}

TEST(IPv4Address, MalformedTextsAreRejectedWithTheirOwnMessages) {
  expectRejected("10.0.0", "Expecting an unsigned decimal number!");
  expectRejected("", "Expecting an unsigned decimal number!");
  expectRejected("256.0.0.1", "IP number part (256) is not in range of 0..255!");
  expectRejected("1.2.-3.4", "IP number part (-3) is not in range of 0..255!");
  expectRejected("10.0.0.1:", "Expecting port number!");
  expectRejected("1.2.3.4:65536", "Given port number (65536) is not in range of 0..65535");
  // Other characters: the number conversion's own exception.
  for (const char* bad : {"1.2.x.4", "0x1.2.3.4", " 1.2.3.4", "1.2.3.4:8o"}) {
    cNetIPv4Address a(0x04030201, 99);
    EXPECT_THROW(a.fromString(bad), qstd::cAbstractException) << bad;
    EXPECT_EQ(text(a), "1.2.3.4:99") << bad;
  }
}

TEST(IPv4Address, OnlyIPAddressesHaveAnIPView) {
  cNetIPv4Address a;
  const cNetAbstractAddress& any = a;
  EXPECT_EQ(&any.ipAddress(), &a);

  class cOther : public cNetAbstractAddress {
    qstd::cAsciiString addrType() const override { return "other"; }
    cNetAbstractAddress& fromString(const qstd::cAsciiString&) override { return *this; }
    qstd::cAsciiString toString(int) const override { return ""; }
    cNetAbstractAddress* clone() const override { return new cOther; }
    bool equals(const cNetAbstractAddress&) const override { return false; }
    unsigned int toSockAddr(void*, unsigned int) const override { return 0; }
    bool fromSockAddr(const void*, unsigned int) override { return false; }
  } other;
  EXPECT_EQ(other.isIPAddress(), nullptr);
  EXPECT_EQ(thrownText<qstd::cRuntimeException>([&] { other.ipAddress(); }),
            "Network address type is not an ip address!");
}

TEST(IPv4Address, SocketAddressesRoundTrip) {
  const cNetIPv4Address a(0x0100007F, 4711);  // 127.0.0.1
  unsigned char buffer[128];
  EXPECT_EQ(a.toSockAddr(buffer, 4), 0u);
  const unsigned int size = a.toSockAddr(buffer, sizeof buffer);
  ASSERT_GT(size, 0u);
  EXPECT_EQ(buffer[4], 127);  // sin_addr in network order, after family and port
  cNetIPv4Address b;
  EXPECT_TRUE(b.fromSockAddr(buffer, size));
  EXPECT_TRUE(b.equals(a));
  EXPECT_FALSE(b.fromSockAddr(buffer, 2));

  qstd::tAutoPtr<cNetAbstractAddress> copy(a.clone());
  EXPECT_TRUE(copy->equals(a));
  EXPECT_FALSE(copy->equals(cNetIPv4Address(0x0100007F, 4712)));
}
