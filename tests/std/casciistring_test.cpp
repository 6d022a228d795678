#include "qelcore/std/casciistring.h"

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cconstcstringref.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/cruntimeexception.h"

using qstd::cAsciiString;

TEST(cAsciiString, LayoutPadsTrimsAndCuts) {
  EXPECT_STREQ("**ab***", cAsciiString("ab").adjust(7, '*').c_str());
  EXPECT_STREQ("ab..", cAsciiString("ab").leftAdjust(4, '.').c_str());  // the fill goes right
  EXPECT_STREQ("..ab", cAsciiString("ab").rightAdjust(4, '.').c_str());
  EXPECT_STREQ("abc~~", cAsciiString("abcdef").setFixedLength(5, "~~", ' ').c_str());
  EXPECT_STREQ("...", cAsciiString("abcdef").setFixedLength(1, "...", ' ').c_str());
  EXPECT_STREQ("ab---", cAsciiString("ab").setFixedLength(5, "~~", '-').c_str());
  cAsciiString same("abcd");
  EXPECT_STREQ("abcd", same.adjust(4, '*').leftAdjust(2, '*').rightAdjust(3, '*').c_str());
  EXPECT_STREQ("abcd", same.setFixedLength(4, "xx", '*').c_str());
  // The suffix may be the string itself.
  EXPECT_STREQ("abcd", same.setFixedLength(2, same, '*').c_str());

  EXPECT_STREQ("a b", cAsciiString("   a b  ").trim().c_str());
  EXPECT_STREQ("\ta \n", cAsciiString(" \ta \n ").trim().c_str());
  EXPECT_STREQ("x  ", cAsciiString("  x  ").ltrim().c_str());
  EXPECT_STREQ("", cAsciiString("    ").rtrim().c_str());
}

TEST(cAsciiString, CaseOnlyTouchesAsciiLetters) {
  cAsciiString s("Hello, World 9z{");
  EXPECT_STREQ("HELLO, WORLD 9Z{", s.upperCase().c_str());
  EXPECT_STREQ("Hello, World 9z{", s.c_str());
  EXPECT_STREQ("hello, world 9z{", s.toLower().c_str());
  EXPECT_EQ(static_cast<char>(200), cAsciiString::upperCase(static_cast<char>(200)));
  EXPECT_EQ('@', cAsciiString::lowerCase('@'));
  EXPECT_TRUE(cAsciiString::isPrintable(' '));
  EXPECT_TRUE(cAsciiString::isPrintable('~'));
  EXPECT_FALSE(cAsciiString::isPrintable(127));
  EXPECT_FALSE(cAsciiString::isPrintable('\t'));
}

TEST(cAsciiString, ConstructionAppendingAndComparison) {
  cAsciiString s("hello world");
  EXPECT_STREQ("world", cAsciiString(s, 6).c_str());
  EXPECT_STREQ("", cAsciiString(s, 11).c_str());
  EXPECT_THROW(cAsciiString(s, 12), qstd::cBugException);

  qstd::tArray<char> bytes("raw bytes");
  cAsciiString fromView(qstd::tConstArrayRef<char>(bytes, 4, 5));
  EXPECT_STREQ("bytes", fromView.c_str());

  cAsciiString t = s + "!" + cAsciiString("?");
  t += '.';
  t.addString("x");
  EXPECT_STREQ("hello world!?.x", t.c_str());
  EXPECT_STREQ(">hello world", (">" + s).c_str());
  EXPECT_TRUE(s == "hello world");
  EXPECT_TRUE(s < cAsciiString("hello worlds"));
  EXPECT_TRUE(cAsciiString() == "");

  cAsciiString moved(static_cast<cAsciiString&&>(t));
  EXPECT_STREQ("", t.c_str());  // still a valid C string
  t += "again";
  EXPECT_STREQ("again", t.c_str());
  EXPECT_STREQ("hello world!?.x", moved.c_str());

  qstd::cConstCStringRef ref("abc");
  EXPECT_EQ(3u, ref.length());
  EXPECT_EQ('c', ref[2]);
  EXPECT_THROW(ref.at(3), qstd::cBugException);
  EXPECT_THROW(qstd::cConstCStringRef().c_str(), qstd::cBugException);
  EXPECT_TRUE(ref == qstd::cConstCStringRef(cAsciiString("abc")));
}

TEST(cAsciiString, NumbersGoThroughNumberConversion) {
  cAsciiString s("old");
  EXPECT_STREQ("-42", s.setNum32(-42).c_str());
  EXPECT_STREQ("-42/7", s.addString("/").addUNum32(7).c_str());
  qstd::cNumberConversionFormat hex(16);
  hex.setFixedWidth(4);
  EXPECT_STREQ("00ff", s.setUNum(255, hex).c_str());
  qstd::cNumberConversionFormat width4;
  width4.setFixedWidth(4);
  EXPECT_STREQ("00ff:-005", s.addString(":").addNum(-5, width4).c_str());
  EXPECT_STREQ("1.5", s.setDouble(1.5).c_str());
  EXPECT_STREQ("1.5 2", s.addString(" ").addDouble(2.0).c_str());
  EXPECT_EQ(-31, cAsciiString("  -0x1F").toInt());
  EXPECT_EQ(255u, cAsciiString("ff").toUInt(qstd::cNumberConversionFormat(16)));
  EXPECT_DOUBLE_EQ(150.0, cAsciiString("1.5e2").toDouble());
  EXPECT_THROW(cAsciiString("12 ").toInt(), qstd::cRuntimeException);
  EXPECT_STREQ("123", cAsciiString::number(123).c_str());
}
