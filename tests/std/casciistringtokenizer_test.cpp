#include "qelcore/std/casciistringtokenizer.h"

#include <gtest/gtest.h>

#include "qelcore/std/ttokenizer.h"

using qstd::cAsciiString;
using qstd::cAsciiStringTokenizer;

TEST(cAsciiStringTokenizer, SeparatorsAndKeyTokens) {
  cAsciiStringTokenizer tok(cAsciiString("10.0.0.1:80"), ".", ":");
  EXPECT_EQ(6u, tok.countTokens());
  const char* expected[] = {"10", "0", "0", "1", ":", "80"};
  for (const char* e : expected) {
    ASSERT_TRUE(tok.hasMoreTokens());
    EXPECT_STREQ(e, tok.nextToken().c_str());
    EXPECT_EQ(e[0] == ':', tok.lastWasKeyToken());
  }
  EXPECT_FALSE(tok.hasMoreTokens());
  EXPECT_STREQ("", tok.nextToken().c_str());  // a missing part reads as empty
  EXPECT_FALSE(tok.lastWasKeyToken());
  tok.reset();
  EXPECT_STREQ("10", tok.nextToken().c_str());

  // Runs of separators count once unless empty tokens are asked for.
  EXPECT_EQ(3u, cAsciiStringTokenizer("  a  b c ").countTokens());
  cAsciiStringTokenizer strict("1..2.", ".", "", true);
  qstd::tVector<cAsciiString> parts = strict.remainingTokens();
  ASSERT_EQ(4u, parts.size());
  EXPECT_STREQ("", parts[1].c_str());
  EXPECT_STREQ("", parts[3].c_str());
  cAsciiStringTokenizer keys("a:.:b", ".", ":", true);
  EXPECT_EQ(4u, keys.countTokens());  // a : : b: a key token fills its field

  // A copy goes on where the original stands, on its own text.
  cAsciiStringTokenizer first("x y z");
  first.nextToken();
  cAsciiStringTokenizer second(first);
  first = cAsciiStringTokenizer("other");
  EXPECT_STREQ("y", second.nextToken().c_str());
  EXPECT_STREQ("other", first.nextToken().c_str());

  const unsigned int wide[] = {'a', ' ', 'b'};
  const unsigned int blank = ' ';
  qstd::tTokenizer<unsigned int> tw(wide, 3, &blank, 1);
  unsigned int start = 0;
  unsigned int length = 0;
  ASSERT_TRUE(tw.next(start, length));
  ASSERT_TRUE(tw.next(start, length));
  EXPECT_EQ(2u, start);
  EXPECT_FALSE(tw.next(start, length));
}
