#include "qelcore/ucs/cucsexceptions.h"

#include <functional>

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

TEST(cUCSExceptions, ExceptionsCarryTheCallersFileAndLine) {
  const qstd::cRuntimeException cause(qucs::cLIMessage("$QTR$inner"), "x.cpp", 3);
  const qstd::cAsciiString name("cEndec");
  const unsigned int first = __LINE__ + 2;
  const std::function<void()> calls[] = {
      [&] { qucs::cUCSExceptions::throwNotImplementedEncode8(name); },
      [&] { qucs::cUCSExceptions::throwNotImplementedDecode16(name); },
      [] { qucs::cUCSExceptions::throwUTF8UnexpectedEnd(2); },
      [] { qucs::cUCSExceptions::throwUTF16Corrupt(); },
      [&] { qucs::cUCSExceptions::throwUCSDecodeError(cause); },
      [&] { qucs::cUCSExceptions::throwUSCEncodeError(cause); },
  };
  for (unsigned int i = 0; i < sizeof calls / sizeof calls[0]; ++i) {
    try {
      calls[i]();
      ADD_FAILURE() << "nothing thrown by call " << i;
    } catch (const cAbstractException& e) {
      EXPECT_STREQ(e.sourceFileName(), __FILE__) << "call " << i;
      EXPECT_EQ(e.sourceFileLine(), first + i) << "call " << i;
    }
  }
}
