#include "qelcore/sa/cserializetotypestring.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"

using qeltest::textOf;

TEST(cSerializeToTypeString, TypeStringListsValuesNotLabels) {
  qsa::cSerializeToTypeString t;
  EXPECT_STREQ(t.typeString().c_str(), "");
  7 >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piInt32");
  qucs::cString("x") >> t.newLabel("ignored");
  true >> t;
  static_cast<short>(1) >> t;
  qstd::tArray<char>() >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piInt32, cString, piBool, piInt16, char*");
  t.rewind();
  EXPECT_STREQ(t.typeString().c_str(), "");
  1.0 >> t;
  qstd::tArray<char> out;
  t.swapData(out);
  EXPECT_EQ(std::string(out.data(), out.size()), "piDouble");
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { t.newContext("c"); }),
            "The operation \"cSerializeToTypeString::newContext(...)\" is not supported!");
  EXPECT_THROW(t.data(), qstd::cBugException);
}
