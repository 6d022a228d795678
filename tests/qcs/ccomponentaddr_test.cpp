#include "qelcore/qcs/ccomponentaddr.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cruntimeexception.h"

#include "qcstestutil.h"

using qcs::cComponentAddr;
using qcs::cComponentLocation;
using qcstest::thrown;
using qstd::cAsciiString;

namespace {

std::string text(const cComponentAddr& a) { return a.toString().c_str(); }
std::string text(const cComponentLocation& l) { return l.toString().c_str(); }

cComponentLocation at(unsigned int queue, unsigned int module, unsigned int pid, const char* host,
                      const char* local = "") {
  return cComponentLocation(cComponentAddr(queue, module), host, local, pid);
}

}  // namespace

TEST(ComponentAddress, TextFormAndItsRoundTrip) {
  EXPECT_EQ(text(cComponentAddr(1, 7)), "1:7");
  EXPECT_EQ(text(cComponentAddr(4294967295u, 0)), "4294967295:0");
  EXPECT_EQ(text(cComponentAddr()), "0:0");

  cComponentAddr a(cAsciiString("1:7"));
  EXPECT_EQ(a.queueID(), 1u);
  EXPECT_EQ(a.moduleID(), 7u);
  EXPECT_TRUE(a.valid());
  EXPECT_EQ(cComponentAddr(cAsciiString("4294967295:4294967295")), cComponentAddr(4294967295u, 4294967295u));
}

TEST(ComponentAddress, EqualityIncludesTheValidFlagAndBoolComparisonYieldsIt) {
  cComponentAddr valid(1, 7);
  cComponentAddr invalidated(1, 7);
  invalidated.invalidate();
  EXPECT_NE(valid, invalidated);
  EXPECT_EQ(invalidated.moduleID(), 7u);  // ids stay
  EXPECT_NE(cComponentAddr(1, 7), cComponentAddr(7, 1));
  // Kept as it is: comparing with any bool gives the valid flag.
  EXPECT_TRUE(valid == false);
  EXPECT_TRUE(valid == true);
  EXPECT_FALSE(invalidated == true);
}

TEST(ComponentAddress, MalformedTextThrowsWithItsReasonAndChangesNothing) {
  cComponentAddr a(3, 4);
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { a.fromString("17"); }),
            "Malformed component address (\"17\")! / Expecting \":\"!");
  EXPECT_EQ(a, cComponentAddr(3, 4));
  for (const char* bad : {"", ":", ":7", "1:", "a:7", "1:7x", " 1:7", "1:-7", "1:7:9", "1:4294967296"}) {
    SCOPED_TRACE(bad);
    std::string got = thrown<qstd::cRuntimeException>([&] { a.fromString(bad); });
    EXPECT_EQ(got.rfind("Malformed component address (\"" + std::string(bad) + "\")! / ", 0), 0u) << got;
    EXPECT_EQ(a, cComponentAddr(3, 4));
  }
  // The number's own fault names the offending character.
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { a.fromString("1:2x"); }),
            "Malformed component address (\"1:2x\")! / Invalid decimal number (\"2x\"). Character at index 1 not "
            "points to digit!");
}

TEST(ComponentAddress, ArchivedAsModuleThenQueueWithOrWithoutLabels) {
  qsa::cSerializeBinary plain;
  cComponentAddr(1, 7) >> plain;
  qsa::cDeserializeBinary in(plain.ownData());
  unsigned int first = 0, second = 0;
  first << in;
  second << in;
  EXPECT_EQ(first, 7u);
  EXPECT_EQ(second, 1u);

  qsa::cSerializeBinary labelled;
  labelled.setPreferNoLabels(false);
  cComponentAddr(2, 9) >> labelled;
  qsa::cDeserializeBinary back(labelled.ownData());
  unsigned int queue = 0;
  back.findLabel("Queue");
  queue << back;
  EXPECT_EQ(queue, 2u);
  back.rewind();
  cComponentAddr read;
  read << back;
  EXPECT_EQ(read, cComponentAddr(2, 9));  // valid once read

  qsa::cSerializeBinary truncated;
  7u >> truncated;
  qsa::cDeserializeBinary short_(truncated.ownData());
  cComponentAddr kept(5, 5);
  EXPECT_THROW(kept << short_, qstd::cAbstractException);
  EXPECT_EQ(kept, cComponentAddr(5, 5));
}

TEST(ComponentLocation, TextFormNamesAddressPidHostAndLocalId) {
  EXPECT_EQ(text(at(1, 7, 4711, "hostA")), "1:7-4711@hostA");
  EXPECT_EQ(text(at(1, 7, 4711, "hostA", "x")), "1:7-4711@hostA:x");

  cComponentLocation l(cAsciiString("1:7-4711@hostA:x"));
  EXPECT_EQ(l, at(1, 7, 4711, "hostA", "x"));
  cComponentLocation noLocal(cAsciiString("1:7-4711@hostA"));
  EXPECT_EQ(noLocal.localId().size(), 0u);
  EXPECT_EQ(text(noLocal), "1:7-4711@hostA");
}

TEST(ComponentLocation, SeparatorsInNamesDoNotSurviveTheTextForm) {
  EXPECT_EQ(cComponentLocation(cAsciiString("1:7-12@my-host")).hostName(), cAsciiString("my"));
  EXPECT_EQ(cComponentLocation(cAsciiString("1:7-12@h:a:b")).localId(), cAsciiString("a"));
  // Only the address is checked: a missing or bad pid gives pid 0 and no host.
  cComponentLocation noPid(cAsciiString("1:7"));
  EXPECT_EQ(noPid.pid(), 0u);
  EXPECT_EQ(noPid.hostName().size(), 0u);
  cComponentLocation badPid(cAsciiString("1:7-x@h"));
  EXPECT_EQ(badPid.pid(), 0u);
  EXPECT_EQ(badPid.hostName().size(), 0u);
  EXPECT_EQ(cComponentLocation(cAsciiString("1:7-99999999999@h")).pid(), 0u);

  cComponentLocation kept = at(1, 2, 3, "h");
  EXPECT_EQ(thrown<qstd::cRuntimeException>([&] { kept.fromString("17-12@h"); }),
            "Malformed component address (\"17\")! / Expecting \":\"!");
  EXPECT_EQ(kept, at(1, 2, 3, "h"));
}

TEST(ComponentLocation, DefaultIsThisHostAndProcessWithoutAddress) {
  cComponentLocation here;
  EXPECT_FALSE(here.address().valid());
  EXPECT_EQ(here.hostName(), qpi::cPlatform::hostname());
  EXPECT_EQ(here.pid(), qpi::cPlatform::pid());
  EXPECT_EQ(here.localId().size(), 0u);

  cComponentLocation other = at(1, 7, 1, "h", "x");
  other.provide();  // host and process, no local id; the address stays
  EXPECT_EQ(other.address(), cComponentAddr(1, 7));
  EXPECT_EQ(other.pid(), qpi::cPlatform::pid());
  EXPECT_EQ(other.localId().size(), 0u);
}

TEST(ComponentLocation, EqualityComparesEveryField) {
  const cComponentLocation base = at(1, 7, 10, "h", "x");
  EXPECT_EQ(base, at(1, 7, 10, "h", "x"));
  EXPECT_NE(base, at(1, 8, 10, "h", "x"));
  EXPECT_NE(base, at(1, 7, 11, "h", "x"));
  EXPECT_NE(base, at(1, 7, 10, "g", "x"));
  EXPECT_NE(base, at(1, 7, 10, "h", "y"));
}

TEST(ComponentLocation, ArchiveKeepsEveryFieldInEitherLayout) {
  const cComponentLocation l = at(1, 7, 4711, "my-host:with@odd chars", "local-id");
  qsa::cSerializeBinary plain;
  l >> plain;
  qsa::cSerializeBinary labelled;
  labelled.setPreferNoLabels(false);
  l >> labelled;

  qsa::cDeserializeBinary a(plain.ownData());
  cComponentLocation fromPlain(cComponentAddr(), "", "", 0);
  fromPlain << a;
  EXPECT_EQ(fromPlain, l);
  EXPECT_TRUE(a.eoc());

  qsa::cDeserializeBinary b(labelled.ownData());
  EXPECT_TRUE(b.tryFindLabel("LocalAddress"));
  EXPECT_EQ(b.getNextContextTypeName(), cAsciiString("ModuleAddress"));
  b.rewind();
  cComponentLocation fromLabelled(cComponentAddr(), "", "", 0);
  fromLabelled << b;
  EXPECT_EQ(fromLabelled, l);

  // Cut short: nothing changes.
  qstd::tArray<char> bytes(plain.ownData());
  qsa::cDeserializeBinary cut;
  cut.setData(bytes.data(), bytes.size() - 4);
  cComponentLocation kept = at(9, 9, 9, "k");
  EXPECT_THROW(kept << cut, qstd::cAbstractException);
  EXPECT_EQ(kept, at(9, 9, 9, "k"));
}
