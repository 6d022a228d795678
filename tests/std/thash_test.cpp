#include "qelcore/std/thash.h"

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

#include "support/exceptiontext.h"

using qeltest::textOf;
using qstd::cAsciiString;

TEST(tHash, LookupPairsAndStringKeys) {
  qstd::tHash<cAsciiString, int> h;
  EXPECT_TRUE(h.set("one", 1));
  EXPECT_FALSE(h.set("one", 11));
  EXPECT_FALSE(h.insert("one", 111));
  h["two"] = 2;
  EXPECT_EQ(11, h.find("one"));
  EXPECT_EQ(2, h.get(cAsciiString("tw") + "o"));
  EXPECT_TRUE(h.has("two"));
  EXPECT_EQ(nullptr, h.tryFind("three"));
  try {
    h.find("three");
    ADD_FAILURE();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ("Element could not be found in \"tHash\" while operation \"find\"!", textOf(e));
  }
  EXPECT_EQ(2u, h.keys().size());
  EXPECT_TRUE(h.remove("one"));
  EXPECT_FALSE(h.remove("one"));
  EXPECT_EQ(1u, h.size());
}
