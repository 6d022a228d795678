#include "qelcore/ucs/cabstractendec.h"

#include <gtest/gtest.h>

#include "qelcore/std/tsharedobject.h"

#include "endectestutil.h"

using namespace endectest;
using qstd::tConstArrayRef;
using qucs::cAbstractEnDec;

namespace {
class cNamedOnly : public cAbstractEnDec {
public:
  qstd::cAsciiString name() const override { return qstd::cAsciiString("Endec-Test"); }
};
}  // namespace

TEST(cAbstractEnDec, BaseReportsMissingConversionsAsBugsAndEndsCStringsWithFourZeros) {
  const cNamedOnly endec;
  const auto bug = cAbstractException::TypeBug;
  tBytes b;
  tArray<unsigned short> u;
  cString s = text({0x41});
  expectFailure([&] { endec.encode(s, b); }, bug, "Not implemented: Endec-Test::encode (ucs32 -> ascii)");
  expectFailure([&] { endec.encode(s, u); }, bug, "Not implemented: Endec-Test::encode (ucs32 -> ucs16)");
  expectFailure([&] { endec.decode(tConstArrayRef<char>(b), s); }, bug,
                "Not implemented: Endec-Test::decode (ucs16 -> ascii)");
  expectFailure([&] { endec.decode(tConstArrayRef<unsigned short>(u), s); }, bug,
                "Not implemented: Endec-Test::decode (ucs16 -> ucs32)");
  expectFailure([&] { cEnDecUTF8().encode(s, u); }, bug, "Not implemented: Endec-UTF8::encode (ucs32 -> ucs16)");
  expectFailure([&] { cEnDecUTF16(1).decode(tConstArrayRef<unsigned short>(u), s); }, bug,
                "Not implemented: Endec-UTF16::decode (ucs16 -> ucs32)");

  cString out = text({0x42});
  endec.reEncode(s, out);
  endec.reDecode(s, out);
  EXPECT_EQ(chars(out), V({0x42}));

  tBytes c8, c16;
  cEnDecUTF8().encodeCString(text({0xE9}), c8);
  EXPECT_EQ(units(c8), V({0xC3, 0xA9, 0, 0, 0, 0}));
  cEnDecUTF16(6).encodeCString(text({0x41}), c16);
  EXPECT_EQ(units(c16), V({0xFE, 0xFF, 0x00, 0x41, 0, 0, 0, 0}));
}

TEST(cAbstractEnDec, HandedAroundAsSharedConstObjects) {
  qstd::tSharedObject<const cAbstractEnDec> endec(new qucs::cEnDecUTF8);
  qstd::tSharedObject<const cAbstractEnDec> copy(endec);
  EXPECT_EQ(2u, endec.refCount());
  qucs::cString text;
  copy->decode(tArray<char>("h\xc3\xa9", 3), text);
  EXPECT_EQ(2u, text.size());
  EXPECT_EQ(0xE9u, text[1]);
}
