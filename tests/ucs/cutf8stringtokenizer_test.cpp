#include "qelcore/ucs/cutf8stringtokenizer.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"

using qucs::cString;
using qucs::cUTF8StringTokenizer;

namespace {
std::vector<std::string> all(cUTF8StringTokenizer& tok) {
  std::vector<std::string> out;
  cString t;
  while (tok.nextToken(t)) out.push_back(t.ascii('?').c_str());
  return out;
}
}  // namespace

TEST(UTF8StringTokenizer, SeparatorsKeyTokensAndEmptyFields) {
  cUTF8StringTokenizer addr(cString("10.0.0.1:80"), cString("."), cString(":"));
  EXPECT_EQ(addr.countTokens(), 6u);
  EXPECT_EQ(all(addr), (std::vector<std::string>{"10", "0", "0", "1", ":", "80"}));
  EXPECT_THROW(addr.nextToken(), qstd::cBugException);

  // Non-ASCII separators work on whole code points.
  cUTF8StringTokenizer wide(cString(L"a\u2022b\u2022\u2022c"), cString(L"\u2022"));
  EXPECT_EQ(all(wide), (std::vector<std::string>{"a", "b", "c"}));
  cUTF8StringTokenizer empty(cString(L"a\u2022\u2022c"), cString(L"\u2022"), cString(), true);
  EXPECT_EQ(all(empty), (std::vector<std::string>{"a", "", "c"}));

  cUTF8StringTokenizer keys(cString("x=1"), cString(" "), cString("="));
  keys.nextToken();
  EXPECT_TRUE(keys.nextToken() == "=");
  EXPECT_TRUE(keys.lastWasKeyToken());
  EXPECT_EQ(keys.lastTokenStart(), 1u);
  cUTF8StringTokenizer copy(keys);
  keys.reset();
  EXPECT_TRUE(copy.nextToken() == "1");
  EXPECT_TRUE(keys.nextToken() == "x");

  cUTF8StringTokenizer none{cString()};
  EXPECT_FALSE(none.hasMoreTokens());
}
