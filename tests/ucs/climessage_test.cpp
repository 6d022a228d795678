#include "qelcore/ucs/climessage.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/clitrtable.h"
#include "qelcore/ucs/cstring.h"

#include "sa/archivetestutil.h"

using qstd::cAsciiString;
using qucs::cLIMessage;
using qucs::cString;

namespace {

std::string plain(const cLIMessage& m) {
  cAsciiString out;
  m.untranslated(out);
  return out.c_str();
}

std::string translated(const cLIMessage& m, const char* translation) {
  cString out;
  m.translate(cString(translation), out);
  return out.ascii('?').c_str();
}

}  // namespace

TEST(LIMessage, TemplateAndMarkers) {
  cLIMessage m;
  m << "$QTR$File %file% exists!"
    << "a.txt";
  EXPECT_STREQ(m.key().c_str(), "File %file% exists!");
  EXPECT_TRUE(m.isTranslatable());
  EXPECT_EQ(plain(m), "File a.txt exists!");
  ASSERT_EQ(m.paramCount(), 1u);
  EXPECT_STREQ(m.paramName(0).c_str(), "%file");
  EXPECT_EQ(m.paramKind(0), cLIMessage::ParamText);
  EXPECT_EQ(m.scanPosition(), 11u);

  cLIMessage fixed("$QNTR$Always %x%");
  fixed << 1;
  EXPECT_FALSE(fixed.isTranslatable());
  EXPECT_EQ(translated(fixed, "Immer %x%"), "Always 1");

  cLIMessage bare("no marker");
  EXPECT_TRUE(bare.isTranslatable());
  EXPECT_STREQ(bare.key().c_str(), "no marker");

  // A cString is always a value, never the template.
  cLIMessage valueFirst;
  valueFirst << cString("v") << "T %a%"
             << "x";
  EXPECT_STREQ(valueFirst.key().c_str(), "T %a%");
  EXPECT_EQ(plain(valueFirst), "T x");
}

TEST(LIMessage, BindingAndRendering) {
  cLIMessage swapped("$QTR$%first% before %second%");
  swapped << "A"
          << "B";
  EXPECT_EQ(translated(swapped, "%second% after %first%, %first% again"), "B after A, A again");
  EXPECT_EQ(translated(swapped, "%unknown%"), "???");

  cLIMessage surplus("$QTR$%a%-%b%");
  surplus << 1 << 2 << 3;
  EXPECT_EQ(plain(surplus), "1-2");
  EXPECT_EQ(surplus.paramCount(), 2u);
  cLIMessage missing("$QTR$%a%-%b%");
  missing << 1;
  EXPECT_EQ(plain(missing), "1-???");

  // Blank-ended and unterminated placeholders, and "%%" (name "%").
  cLIMessage shapes("$QTR$%a b %c %%!");
  shapes << "1"
         << "2"
         << "3";
  EXPECT_STREQ(shapes.paramName(0).c_str(), "%a");
  EXPECT_STREQ(shapes.paramName(2).c_str(), "%");
  EXPECT_EQ(plain(shapes), "1 b 2 3!");
  cLIMessage open("$QTR$x %tail");
  open << "T";
  EXPECT_EQ(plain(open), "x T");

  // Values are literal; template escapes are resolved.
  cLIMessage literal("$QTR$\\%%v% and \\\\ %w%");
  literal << "50% \\n"
          << "%v%";
  EXPECT_EQ(plain(literal), "%50% \\n and \\ %v%");
  EXPECT_STREQ(literal.paramName(0).c_str(), "%v");

  // Same names bind in template order and the first one wins.
  cLIMessage twice("$QTR$%n% %n%");
  twice << "one"
        << "two";
  EXPECT_EQ(plain(twice), "one one");

  // Non-ASCII in the key renders as '?', names included.
  cLIMessage wide("$QTR$\xe9 %\xe9%");
  wide << "v";
  EXPECT_EQ(plain(wide), "? v");
}

TEST(LIMessage, NumbersAndFormat) {
  cLIMessage m("$QTR$%a% %b% %c% %d% %e%");
  m << -5 << 255u;
  qstd::cNumberConversionFormat hex(16);
  hex.setFixedWidth(4);
  m << hex << 255LL << 0.5;
  ASSERT_NE(m.numberConversionFormat(), nullptr);
  EXPECT_EQ(m.numberConversionFormat()->base(), 16u);
  hex.setBase(2);
  m << hex << 5ULL;
  EXPECT_EQ(plain(m), "-5 255 00ff 0.5 0101");
  EXPECT_EQ(m.paramKind(0), cLIMessage::ParamInteger);
  EXPECT_EQ(m.paramKind(3), cLIMessage::ParamDouble);
}

TEST(LIMessage, CopiesAreIndependent) {
  cLIMessage a("$QTR$%x% %y%");
  a << "1";
  cLIMessage b(a);
  b << "2";
  EXPECT_EQ(plain(a), "1 ???");
  EXPECT_EQ(plain(b), "1 2");
  a = b;
  b << qstd::cNumberConversionFormat(8);
  EXPECT_EQ(a.numberConversionFormat(), nullptr);
  a.swap(b);
  EXPECT_NE(a.numberConversionFormat(), nullptr);
}

TEST(LIMessage, LocaleTranslatesThroughItsTable) {
  qucs::cLITrTable table;
  table.add(cAsciiString("Hello %who%!"), cString("Hallo %who%!"));
  EXPECT_NE(table.has(cAsciiString("Hello %who%!")), nullptr);
  EXPECT_EQ(table.has(cAsciiString("Bye")), nullptr);
  EXPECT_THROW(table.find(cAsciiString("Bye")), qstd::cBugException);
  qucs::cLILocale de(cAsciiString("de_DE"), table);
  EXPECT_STREQ(de.name().c_str(), "de_DE");

  cLIMessage hello("$QTR$Hello %who%!");
  hello << "Welt";
  cString out;
  EXPECT_TRUE(de.translate(hello, out));
  EXPECT_TRUE(out == "Hallo Welt!");
  cLIMessage other("$QTR$Bye %who%");
  other << "x";
  EXPECT_FALSE(de.translate(other, out));
  EXPECT_TRUE(out == "Bye x");
  cLIMessage fixed("$QNTR$Hello %who%!");
  fixed << "Welt";
  EXPECT_TRUE(de.translate(fixed, out));
  EXPECT_TRUE(out == "Hello Welt!");
}

TEST(LIMessage, MessageKeepsKeyParametersAndKinds) {
  qucs::cLIMessage msg;
  msg << "$QTR$%a% and %b% then %c%" << qucs::cString("t\\%") << 42 << 0.5;
  qsa::cSerializeBinary s;
  msg >> s;
  qsa::cDeserializeBinary d(s.ownData());
  qucs::cLIMessage back;
  back << "$QTR$old";
  back << d;
  EXPECT_STREQ(back.key().c_str(), msg.key().c_str());
  EXPECT_EQ(back.scanPosition(), msg.scanPosition());
  ASSERT_EQ(back.paramCount(), 3u);
  EXPECT_EQ(back.paramKind(1), qucs::cLIMessage::ParamInteger);
  EXPECT_EQ(back.paramKind(2), qucs::cLIMessage::ParamDouble);
  qucs::cString a, b;
  msg.untranslated(a);
  back.untranslated(b);
  EXPECT_TRUE(a == b);

  // A torn message leaves the old one in place.
  satest::Bytes torn = satest::bytesOf(s);
  torn.resize(torn.size() - 3);
  qstd::tArray<char> data = satest::arrayOf(torn);
  qsa::cDeserializeBinary t(data);
  qucs::cLIMessage keep;
  keep << "$QTR$keep";
  EXPECT_THROW(keep << t, qstd::cRuntimeException);
  EXPECT_STREQ(keep.key().c_str(), "keep");
  EXPECT_EQ(t.currentPos(), 0u);
}

TEST(LIMessage, ManyValuesFindTheirPlaceholdersAsFewDo) {
  // Twenty values and more: looked up by name, with the same rules.
  std::string key = "$QTR$";
  std::string expected;
  cLIMessage m;
  for (int i = 0; i < 20; ++i) key += "%v" + std::to_string(i) + "% ";
  key += "%\xe9% %v3% %none%";
  m << key.c_str();
  for (int i = 0; i < 20; ++i) {
    m << i * 10;
    expected += std::to_string(i * 10) + " ";
  }
  m << "wide";
  m.addParam(cAsciiString("%v3"), cString("later"), cLIMessage::ParamText);  // the first of a name wins
  expected += "wide 30 ???";
  EXPECT_EQ(plain(m), expected);
  EXPECT_EQ(translated(m, "%v19%-%v0%-%?%-%v20%"), "190-0-wide-???");
}

TEST(LIMessage, LoadedMessagesAreHeldToTheirLimits) {
  // Archives a message made of `key` and `values` values of `valueLength`
  // characters, then loads it: whether it was taken, and the reader did not
  // move when it was not.
  auto loads = [](const std::string& key, unsigned int values, unsigned int valueLength) {
    cLIMessage m;
    m.restore(cAsciiString(key.c_str()), 0, true);
    for (unsigned int i = 0; i < values; ++i)
      m.addParam(cAsciiString("%p"), cString(std::string(valueLength, 'x').c_str()), cLIMessage::ParamText);
    qsa::cSerializeBinary s;
    m >> s;
    qsa::cDeserializeBinary d(s.ownData());
    cLIMessage back("$QTR$kept");
    try {
      back << d;
    } catch (const qstd::cOutOfRangeException&) {
      EXPECT_EQ(d.currentPos(), 0u);
      EXPECT_STREQ(back.key().c_str(), "kept");
      return false;
    }
    return true;
  };
  std::string many;
  for (unsigned int i = 0; i < cLIMessage::MaxLoadedPlaceholders; ++i) many += "%p ";
  EXPECT_TRUE(loads(many, cLIMessage::MaxLoadedPlaceholders, cLIMessage::MaxLoadedValueLength));
  EXPECT_FALSE(loads(many + "%p", 1, 1));                              // one placeholder too many
  EXPECT_FALSE(loads("%p", 2, 1));                                     // more values than placeholders
  EXPECT_FALSE(loads("%p", 1, cLIMessage::MaxLoadedValueLength + 1));  // a value too long
  EXPECT_FALSE(loads(std::string(cLIMessage::MaxLoadedKeyLength + 1, 'k'), 0, 0));
  EXPECT_TRUE(loads(std::string(cLIMessage::MaxLoadedKeyLength, 'k'), 0, 0));
}
