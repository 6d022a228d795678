#include "qelcore/pi/cunsupportedplatformexception.h"

#include <gtest/gtest.h>

#include "qelcore/pi/cpiexceptionfactory.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/ucs/cstring.h"

TEST(UnsupportedPlatformException, IsABugNamingTheOperationAndTravels) {
  qpi::cUnsupportedPlatformException e("fork", __FILE__, __LINE__);
  qucs::cString text;
  e.createMessage(text, qucs::cString(""), 0, nullptr);
  EXPECT_EQ(text, "Operation (\"fork\") not supported for this platform!");
  EXPECT_EQ(e.type(), qstd::cAbstractException::TypeBug);
  qpi::cPIExceptionFactory factory;
  qstd::tAutoPtr<qstd::cAbstractException> made(factory.createException(e.typeName()));
  ASSERT_TRUE(made.get() != nullptr);
  EXPECT_EQ(made->typeName(), "cUnsupportedPlatformException");
  EXPECT_EQ(factory.createException("cBugException"), nullptr);
}
