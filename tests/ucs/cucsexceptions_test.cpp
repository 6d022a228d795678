#include "qelcore/ucs/cucsexceptions.h"

#include <functional>

#include <gtest/gtest.h>

#include "qelcore/std/cruntimeexception.h"

#include "endectestutil.h"
#include "support/exceptiontext.h"

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
  qeltest::expectThrownFromTheirLines(calls, __FILE__, first);
}
