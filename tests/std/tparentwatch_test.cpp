#include "qelcore/std/tparentwatch.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/cwork.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/cstring.h"

#include "support/exceptiontext.h"

using qpi::cWork;

TEST(ParentWatch, BecomesNullWhenTheParentDiesAndAssertsOnUse) {
  qstd::tParentWatch<cWork> watch;
  {
    cWork parent;
    watch.set(&parent);
    EXPECT_EQ(watch.get(), &parent);
    EXPECT_EQ(&*watch, &parent);
  }
  EXPECT_EQ(watch.get(), nullptr);
  try {
    watch->stop();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_NE(qeltest::textOf(e).find("(mpObject != 0)"), std::string::npos);
  }
  // The watch may also die first.
  cWork parent;
  { qstd::tParentWatch<cWork> shortLived(&parent); }
  EXPECT_EQ(parent.sigDestroyed.slotCount(), 0u);
}
