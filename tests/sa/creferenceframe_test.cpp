#include "qelcore/sa/creferenceframe.h"

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"

using qeltest::textOf;
using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

TEST(cReferenceFrame, ReferenceFrameChecksTypesOnEveryAccess) {
  int result = 0;
  const qstd::cAsciiString name("n");
  double ratio = 0.5;
  qsa::piVoid nothing;
  qsa::cReferenceFrame frame;
  frame.add(result).add(name).add(ratio).add(nothing);
  EXPECT_EQ(frame.count(), 4u);
  EXPECT_STREQ(frame.typeString().c_str(), "piInt32, cAsciiString, piDouble, piVoid");
  EXPECT_STREQ(frame.typeString(1).c_str(), "cAsciiString, piDouble, piVoid");

  frame.next<int>() = 3;
  EXPECT_EQ(result, 3);
  // A constant entry refuses writable access.
  EXPECT_EQ(qeltest::thrownText<qstd::cTypeMissmatchException>([&] { frame.next<qstd::cAsciiString>(); }),
            "Type mismatch: Expecting type \"cAsciiString\" but got object of type \"const cAsciiString\"!");
  EXPECT_EQ(frame.position(), 1u);
  EXPECT_STREQ(frame.next<const qstd::cAsciiString>().c_str(), "n");
  EXPECT_THROW(frame.next<float>(), qstd::cTypeMissmatchException);
  EXPECT_THROW(frame.next<unsigned int>(), qstd::cTypeMissmatchException);
  EXPECT_EQ(frame.next<double>(), 0.5);
  frame.next<qsa::piVoid>();
  EXPECT_TRUE(frame.atEnd());
  EXPECT_THROW(frame.next<int>(), qstd::cOutOfRangeException);
  frame.rewind();
  EXPECT_EQ(&frame.next<int>(), &result);
}

TEST(cReferenceFrame, ReferenceFrameStoresAndLoadsItsValues) {
  unsigned int a = 1;
  qucs::cString b("two");
  bool c = true;
  qsa::cReferenceFrame out;
  out.add(a).add(b).add(c);
  cSerializeBinary s;
  out >> s;
  qsa::cSerializeToTypeString t;
  out >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piUInt32, cString, piBool");

  unsigned int a2 = 0;
  qucs::cString b2;
  bool c2 = false;
  qsa::cReferenceFrame in;
  in.add(a2).add(b2).add(c2);
  cDeserializeBinary d(s.ownData());
  in << d;
  EXPECT_EQ(a2, 1u);
  EXPECT_TRUE(b2 == b);
  EXPECT_TRUE(c2);

  struct sLocal {
    int x;
  } local = {1};
  qsa::cReferenceFrame bad;
  bad.add(local);
  try {
    bad >> s;
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(textOf(e).find("Attempt to serialize the local type "), 0u);
  }
}
