#include "qelcore/sa/ccontextref.h"

#include <gtest/gtest.h>

#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/exceptiontext.h"

using qeltest::textOf;
using qsa::cSerializeBinary;

TEST(cContextRef, ContextRefHandsItsDataOnOnce) {
  cSerializeBinary s;
  qsa::cContextRef a = s.newContext(0);
  qsa::cContextRef b(a);
  EXPECT_FALSE(a.isValid());
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { a.unguardImpl(); }),
            "cContextRef::unguardImpl(): no valid reference!");
  qsa::cContext guard(b);
  EXPECT_FALSE(b.isValid());
  guard.release();
  EXPECT_EQ(s.data().size(), 20u);
}
