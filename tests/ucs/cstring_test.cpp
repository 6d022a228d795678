#include "qelcore/ucs/cstring.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

#include "support/exceptiontext.h"

using qeltest::textOf;
using qstd::cAsciiString;
using qucs::cString;

namespace {

std::string str(const cString& s) { return s.ascii('#').c_str(); }

qstd::tArray<char> bytesOf(const char* s) { return qstd::tArray<char>(s, static_cast<unsigned int>(std::strlen(s))); }

std::string str(const qstd::tArray<char>& a) { return std::string(a.data(true) ? a.data(true) : "", a.size()); }

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

TEST(CString, ConvertsThroughTheDefaultEncoder) {
  cString s;
  s.append(0x41u).append(0xE9u).append(0x20ACu).append(0x1F600u);
  EXPECT_EQ(str(s.toUTF8()), "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");

  qstd::tArray<char> out = bytesOf(">");
  s.toUTF8(out);
  EXPECT_EQ(str(out), ">A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");

  cString back("old content");
  back.fromUTF8(s.toUTF8());
  EXPECT_TRUE(back == s);
  EXPECT_EQ(cString().toUTF8().size(), 0u);
  back.fromUTF8(qstd::tArray<char>());
  EXPECT_EQ(back.size(), 0u);
}

TEST(CString, FailedDecodeLeavesTheStringUnchanged) {
  cString s("keep me");
  // Valid characters before the error must not leak into the string.
  const qstd::tArray<char> bad = bytesOf("abc\xC3");
  try {
    s.fromUTF8(bad);
    ADD_FAILURE() << "no exception";
  } catch (const qstd::cRuntimeException& e) {
    EXPECT_EQ(textOf(e), "UTF8 decode error - unexpected end of data at index 1!");
  }
  EXPECT_TRUE(s == "keep me");
  // The string keeps its character layout after a successful decode.
  s.fromUTF8(bytesOf("x"));
  EXPECT_EQ(s.growStep(), 2u);
  EXPECT_FALSE(s.fitOnErase());
}
