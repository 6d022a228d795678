#include "qelcore/ucs/cstring.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/cruntimeexception.h"

using qstd::cAsciiString;
using qucs::cString;

namespace {
std::string str(const cString& s) { return s.ascii('#').c_str(); }
}  // namespace

TEST(CString, ConstructionAndConversion) {
  cString wide(L"\u00e9");
  ASSERT_EQ(wide.size(), 1u);
  EXPECT_EQ(wide[0], 0xE9u);
  EXPECT_STREQ(wide.ascii('?').c_str(), "?");

  cString latin("a\xe9");  // bytes above 127 become the characters of that value
  ASSERT_EQ(latin.size(), 2u);
  EXPECT_EQ(latin[1], 0xE9u);

  cString fromAscii(cAsciiString("x\xffy"), '_');
  EXPECT_EQ(str(fromAscii), "x_y");
  fromAscii.fromAscii(cAsciiString("\x80"), 0x2022);
  ASSERT_EQ(fromAscii.size(), 1u);
  EXPECT_EQ(fromAscii[0], 0x2022u);

  cAsciiString out("pre:");
  cString("ab").toAscii(out, '?');
  EXPECT_STREQ(out.c_str(), "pre:ab");

  EXPECT_TRUE(cString() == "");
  EXPECT_TRUE(cString(static_cast<const char*>(nullptr)).empty());
}

TEST(CString, LayoutKeepsCapacityWhenShrinking) {
  cString s("abc");
  EXPECT_EQ(s.growStep(), 2u);
  EXPECT_FALSE(s.fitOnErase());
  EXPECT_EQ(s._poolSize(), 4u);
  s.appendC("de");
  EXPECT_EQ(s._poolSize(), 8u);
  s.truncate(1);
  EXPECT_EQ(s._poolSize(), 8u);
  cString copy(s);
  EXPECT_EQ(copy.growStep(), 2u);
  cString::tBase plain;
  plain.append(65u);
  cString assigned;
  assigned = plain;
  EXPECT_EQ(assigned.growStep(), 2u);
  EXPECT_TRUE(assigned == "A");
}

TEST(CString, Comparison) {
  cString abc("abc");
  EXPECT_FALSE(abc.ccs("ab"));
  EXPECT_TRUE(cString("ab").ccs("ab"));
  EXPECT_FALSE(cString("a").ccs("ab"));
  EXPECT_TRUE(abc == cAsciiString("abc"));
  EXPECT_FALSE(abc == cAsciiString("abd"));
  EXPECT_TRUE(abc == L"abc");
  EXPECT_FALSE(abc == L"abcd");
  EXPECT_TRUE(abc == cString("abc"));
  EXPECT_TRUE(abc != cString("ab"));
  EXPECT_TRUE(cString("ab") < abc);
}

TEST(CString, Editing) {
  cString s("ab");
  s.append('c').append(L'd').append(0x1F600u);
  EXPECT_EQ(s.size(), 5u);
  EXPECT_EQ(s[4], 0x1F600u);
  s.truncate(4);
  s.addString(s);
  EXPECT_EQ(str(s), "abcdabcd");
  EXPECT_EQ(str(L"<" + cString("x") + ">"), "<x>");
  s.replace('a', 'A');
  EXPECT_EQ(str(s), "AbcdAbcd");

  EXPECT_EQ(str(cString("abc").adjust(6, '*')), "*abc**");
  EXPECT_EQ(str(cString("abc").leftAdjust(5, '.')), "abc..");
  EXPECT_EQ(str(cString("abc").rightAdjust(5, '.')), "..abc");
  EXPECT_EQ(str(cString("abc").adjust(2, '*')), "abc");

  EXPECT_EQ(str(cString("abcdefgh").setFixedLength(5, cString("..."), ' ')), "ab...");
  EXPECT_EQ(str(cString("ab").setFixedLength(5, cString("..."), ' ')), "ab   ");
  EXPECT_EQ(str(cString("abcde").setFixedLength(5, cString("..."), ' ')), "abcde");
  EXPECT_EQ(str(cString("abcdef").setFixedLength(1, cString("..."), ' ')), "...");

  EXPECT_EQ(str(cString("\tab ").trim()), "\tab");
  EXPECT_EQ(str(cString("  a b  ").ltrim()), "a b  ");
  EXPECT_EQ(str(cString("  a b  ").rtrim()), "  a b");
  EXPECT_EQ(str(cString("   ").trim()), "");

  cString mixed(L"a\u00e4Z");
  mixed.upperCase();
  EXPECT_EQ(mixed[0], static_cast<unsigned int>('A'));
  EXPECT_EQ(mixed[1], 0xE4u);
  mixed.lowerCase();
  EXPECT_EQ(mixed[2], static_cast<unsigned int>('z'));
}

TEST(CString, Numbers) {
  cString s;
  s.setNum(-42);
  EXPECT_EQ(str(s), "-42");
  s.addUNum32(7).addDouble(0.5);
  EXPECT_EQ(str(s), "-4270.5");
  qstd::cNumberConversionFormat hex(16);
  s.setUNum(255, hex);
  EXPECT_EQ(str(s), "ff");
  EXPECT_EQ(s.toInt(hex), 255);
  EXPECT_EQ(cString(" 12").toInt(), 12);
  EXPECT_EQ(cString("1.25").toDouble(), 1.25);
  cString before("keep");
  EXPECT_THROW(before.addDouble(1e300), qstd::cRuntimeException);
  EXPECT_EQ(str(before), "keep");
  EXPECT_THROW(cString("1a").toInt(), qstd::cRuntimeException);
}
