#include "qelcore/ucs/cucsexceptions.h"

#include <gtest/gtest.h>

#include "qelcore/std/cruntimeexception.h"

#include "endectestutil.h"

using namespace endectest;

TEST(cUCSExceptions, WrappersLinkTheirCause) {
  qstd::cRuntimeException cause(qucs::cLIMessage("$QTR$inner"), "x.cpp", 3);
  try {
    qucs::cUCSExceptions::throwUCSDecodeError(cause);
    FAIL() << "nothing thrown";
  } catch (const qstd::cRuntimeException& e) {
    EXPECT_EQ(messageOf(e), "Unicode decode error!");
    ASSERT_NE(e.history(), nullptr);
    EXPECT_EQ(messageOf(*e.history()), "inner");
  }
  try {
    qucs::cUCSExceptions::throwUSCEncodeError(cause);
    FAIL() << "nothing thrown";
  } catch (const qstd::cRuntimeException& e) {
    EXPECT_EQ(messageOf(e), "Unicode encoding error!");
    ASSERT_NE(e.history(), nullptr);
    EXPECT_EQ(messageOf(*e.history()), "inner");
  }
}
