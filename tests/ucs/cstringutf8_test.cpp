#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

using qucs::cString;

namespace {

qstd::tArray<char> bytesOf(const char* s) { return qstd::tArray<char>(s, static_cast<unsigned int>(std::strlen(s))); }

std::string str(const qstd::tArray<char>& a) { return std::string(a.data(true) ? a.data(true) : "", a.size()); }

}  // namespace

TEST(StringUTF8, ConvertsThroughTheDefaultEncoder) {
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

TEST(StringUTF8, FailedDecodeLeavesTheStringUnchanged) {
  cString s("keep me");
  // Valid characters before the error must not leak into the string.
  const qstd::tArray<char> bad = bytesOf("abc\xC3");
  try {
    s.fromUTF8(bad);
    ADD_FAILURE() << "no exception";
  } catch (const qstd::cRuntimeException& e) {
    qstd::cAsciiString text;
    e.liMessage()->untranslated(text);
    EXPECT_STREQ(text.c_str(), "UTF8 decode error - unexpected end of data at index 1!");
  }
  EXPECT_TRUE(s == "keep me");
  // The string keeps its character layout after a successful decode.
  s.fromUTF8(bytesOf("x"));
  EXPECT_EQ(s.growStep(), 2u);
  EXPECT_FALSE(s.fitOnErase());
}
