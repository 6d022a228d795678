#include "qelcore/rmi/cssvalue.h"

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"

using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

TEST(cSSValue, CompareAndTravelWithAllFields) {
  qrmi::cSSValue a, b;
  a.set("piInt32", true, false);
  a.setDescription("count");
  EXPECT_TRUE(a != b);
  cSerializeBinary out;
  a >> out;
  cDeserializeBinary in(out.ownData());
  b << in;
  EXPECT_FALSE(a != b);
  EXPECT_TRUE(b.isAlterable());
  EXPECT_FALSE(b.isVoid());
  qrmi::cSSValue c = b;
  c.set("piInt32", true, true);
  EXPECT_TRUE(c != b);
}
