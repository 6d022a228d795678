#include "qelcore/std/cnumberconversionformat.h"

#include <gtest/gtest.h>

#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/exceptiontext.h"

using namespace qstd;
using qeltest::textOf;

TEST(cNumberConversionFormat, Format) {
  cNumberConversionFormat f;
  EXPECT_EQ(f.base(), 10u);
  EXPECT_EQ(f.precision(), 14u);
  EXPECT_STREQ(f.getDigitSymbolSet(), "0123456789abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(f.digitChar(36), '\0');
  EXPECT_THROW(f.digitChar(37), cOutOfRangeException);
  EXPECT_THROW(cNumberConversionFormat(1), cRuntimeException);
  EXPECT_EQ(qeltest::thrownText<cRuntimeException>([&] { f.setBase(37); }),
            "Invalid base for a decimal. The base must be between 2 and 36 but is 37!");
  EXPECT_EQ(f.base(), 10u);
  f.setDigitSymbol(10, 'X');
  f.setDigitCase(cNumberConversionFormat::UpperCase);
  EXPECT_EQ(f.digitChar(10), 'A');

  // The system default is the process-wide format until one is installed.
  EXPECT_EQ(&cNumberConversionFormat::systemDefault(),
            &cNumberConversionFormat::getGlobalDefaultNumberConversionFormat());
  cNumberConversionFormat hex(16);
  const cNumberConversionFormat* previous = cNumberConversionFormat::installSystemDefault(&hex);
  EXPECT_STREQ(cNumberConversion::toString(255).c_str(), "ff");
  cNumberConversionFormat::installSystemDefault(previous);
  EXPECT_STREQ(cNumberConversion::toString(255).c_str(), "255");
}
