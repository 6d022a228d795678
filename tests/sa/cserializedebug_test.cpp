#include "qelcore/sa/cserializedebug.h"

#include <gtest/gtest.h>

#include "qelcore/sa/ccontext.h"

TEST(cSerializeDebug, DebugTextShowsTypesLabelsAndContexts) {
  qsa::cSerializeDebug s;
  42u >> s;
  {
    qsa::cContext c(s.newContext("msg"));
    qstd::cAsciiString("a\"b") >> s.newLabel("Key");
    -1 >> s;
    c.release();
  }
  try {
    qsa::cContext dropped(s.newContext("dropped"));
    1 >> s;
    throw 1;
  } catch (int) {
  }
  qstd::tArray<char>("\x01\x02", 2) >> s;
  EXPECT_STREQ(s.text(),
               "piUInt32 42\n"
               "context \"msg\" {\n"
               "  label \"Key\" cAsciiString \"a\\\"b\"\n"
               "  piInt32 -1\n"
               "}\n"
               "rawBytes 2: 01 02\n");
}
