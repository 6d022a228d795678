// The binary reader: round trips, exact type matching, transactional failures,
// contexts, labels, skipping and copying.
#include "qelcore/sa/cdeserializebinary.h"

#include <cmath>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/clabeledtypemissmatchexception.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/sa/ctypereference.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "archivetestutil.h"
#include "support/exceptiontext.h"

using namespace satest;
using qeltest::textOf;
using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

namespace {

// The reader keeps a pointer to the bytes: a temporary array must not compile.
template <class A, class = void>
struct tCanSetData : std::false_type {};
template <class A>
struct tCanSetData<A, decltype(std::declval<cDeserializeBinary&>().setData(std::declval<A>()))> : std::true_type {};

static_assert(std::is_constructible<cDeserializeBinary, const qstd::tArray<char>&>::value, "reads an array in place");
static_assert(!std::is_constructible<cDeserializeBinary, qstd::tArray<char>>::value, "refuses a temporary array");
static_assert(!std::is_constructible<cDeserializeBinary, const qstd::tArray<char>>::value, "refuses a temporary array");
static_assert(tCanSetData<qstd::tArray<char>&>::value, "reads an array in place");
static_assert(!tCanSetData<qstd::tArray<char>>::value, "refuses a temporary array");

}  // namespace

TEST(cDeserializeBinary, EveryTypeRoundTrips) {
  cSerializeBinary s;
  static_cast<unsigned char>(200) >> s;
  'c' >> s;
  static_cast<short>(-300) >> s;
  static_cast<unsigned short>(60000) >> s;
  -5 >> s;
  4000000000u >> s;
  -6000000000ll >> s;
  18000000000000000000ull >> s;
  0.25 >> s;
  true >> s;
  qstd::cAsciiString("label-ish") >> s;
  qucs::cString("wide \xFC") >> s;
  qstd::tArray<char>("\0\1\2", 3) >> s;

  cDeserializeBinary d(s.ownData());
  unsigned char uc;
  char c;
  short sh;
  unsigned short ush;
  int i;
  unsigned int ui;
  long long ll;
  unsigned long long ull;
  double db;
  bool b;
  qstd::cAsciiString as;
  qucs::cString cs;
  qstd::tArray<char> block;
  uc << d;
  c << d;
  sh << d;
  ush << d;
  i << d;
  ui << d;
  ll << d;
  ull << d;
  db << d;
  b << d;
  as << d;
  cs << d;
  block << d;
  EXPECT_EQ(uc, 200);
  EXPECT_EQ(c, 'c');
  EXPECT_EQ(sh, -300);
  EXPECT_EQ(ush, 60000);
  EXPECT_EQ(i, -5);
  EXPECT_EQ(ui, 4000000000u);
  EXPECT_EQ(ll, -6000000000ll);
  EXPECT_EQ(ull, 18000000000000000000ull);
  EXPECT_EQ(db, 0.25);
  EXPECT_TRUE(b);
  EXPECT_STREQ(as.c_str(), "label-ish");
  EXPECT_TRUE(cs == qucs::cString("wide \xFC"));
  ASSERT_EQ(block.size(), 3u);
  EXPECT_EQ(block[2], 2);
  EXPECT_TRUE(d.eoc());
}

TEST(cDeserializeBinary, BothStringFormsLoadWhateverTheWriterUsed) {
  const qucs::cString text("\xE4\xF6 \x7F");
  cSerializeBinary s;
  text >> s;
  s.setStringStoreMode(cSerializeBinary::StoreUTF8);
  text >> s;
  cDeserializeBinary d(s.ownData());
  qucs::cString a, b;
  a << d;
  b << d;
  EXPECT_TRUE(a == text);
  EXPECT_TRUE(b == text);
}

TEST(cDeserializeBinary, NonzeroBoolIsTrue) {
  qstd::tArray<char> data = arrayOf(words({8, 0x100}));
  cDeserializeBinary d(data);
  bool b = false;
  b << d;
  EXPECT_TRUE(b);
}

TEST(cDeserializeBinary, TypesMustMatchExactlyAndFailuresConsumeNothing) {
  cSerializeBinary s;
  1u >> s;
  cDeserializeBinary d(s.ownData());
  int wrong = 0;
  try {
    wrong << d;
    FAIL();
  } catch (const qsa::cLabeledTypeMissmatchException&) {
    FAIL() << "no label was read";
  } catch (const qstd::cTypeMissmatchException& e) {
    EXPECT_EQ(textOf(e), "Type mismatch: Expecting type \"piInt32\" but got object of type \"piUInt32\"!");
  }
  EXPECT_EQ(d.currentPos(), 0u);
  qucs::cString str;
  EXPECT_THROW(str << d, qstd::cTypeMissmatchException);
  qstd::tArray<char> block;
  EXPECT_THROW(block << d, qstd::cTypeMissmatchException);
  EXPECT_THROW(d.getContext(0), qstd::cTypeMissmatchException);
  EXPECT_EQ(d.currentPos(), 0u);
  unsigned int right = 0;
  right << d;
  EXPECT_EQ(right, 1u);
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { right << d; }),
            "Unable to deserialize - end of context!");
  EXPECT_EQ(d.currentPos(), 8u);
}

TEST(cDeserializeBinary, BulkValuesAreTheSameElementsAsSingleOnes) {
  const unsigned int u[] = {0u, 7u, 0xFFFFFFFFu};
  const long long ll[] = {-1ll, 1ll << 40};
  const double dd[] = {-0.0, 1.5, 1e300};
  cSerializeBinary bulk, single;
  bulk.storeValues(u, 3);
  bulk.storeValues(ll, 2);
  bulk.storeValues(dd, 3);
  bulk.storeValues(u, 0);
  for (unsigned int v : u) v >> single;
  for (long long v : ll) v >> single;
  for (double v : dd) v >> single;
  EXPECT_EQ(bytesOf(bulk), bytesOf(single));

  // Loaded in bulk, also across a label that the fast pass cannot take.
  cSerializeBinary labeled;
  labeled.storeValues(u, 2);
  u[2] >> labeled.newLabel("Last");
  for (cSerializeBinary* s : {&bulk, &labeled}) {
    cDeserializeBinary d(s->ownData());
    unsigned int uu[3] = {};
    d.loadValues(uu, 3);
    EXPECT_EQ(std::vector<unsigned int>(uu, uu + 3), std::vector<unsigned int>(u, u + 3));
    EXPECT_EQ(d.currentPos(), s == &bulk ? 24u : s->currentPos());
  }
  cDeserializeBinary d(bulk.ownData());
  unsigned int uu[3];
  long long l2[2];
  double d3[3];
  d.loadValues(uu, 3);
  d.loadValues(l2, 2);
  d.loadValues(d3, 3);
  EXPECT_EQ(l2[1], 1ll << 40);
  EXPECT_TRUE(std::signbit(d3[0]));
  EXPECT_EQ(d3[2], 1e300);
  EXPECT_TRUE(d.eoc());
}

TEST(cDeserializeBinary, BulkLoadsFailLikeSingleOnesAndConsumeNothing) {
  cSerializeBinary s;
  1u >> s;
  2 >> s;
  cDeserializeBinary d(s.ownData());
  unsigned int two[2];
  EXPECT_THROW(d.loadValues(two, 2), qstd::cTypeMissmatchException);
  EXPECT_EQ(d.currentPos(), 0u);
  unsigned int three[3];
  try {
    d.loadValues(three, 3);
    FAIL();
  } catch (const qstd::cTypeMissmatchException&) {
    // the second element is checked before the missing third
  }
  EXPECT_EQ(d.currentPos(), 0u);
  d.loadValues(two, 1);
  int rest[2];
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { d.loadValues(rest, 2); }),
            "Unable to deserialize - end of context!");
  EXPECT_EQ(d.currentPos(), 8u);
  d.loadValues(rest, 1);
  EXPECT_EQ(rest[0], 2);
  EXPECT_THROW(d.loadValues(static_cast<int*>(nullptr), 1), qstd::cAbstractException);
  EXPECT_THROW(s.storeValues(static_cast<const int*>(nullptr), 1), qstd::cAbstractException);
  EXPECT_EQ(s.currentPos(), 16u);
}

TEST(cDeserializeBinary, MismatchAfterALabelNamesTheLabel) {
  cSerializeBinary s;
  1.5 >> s.newLabel("Ratio");
  cDeserializeBinary d(s.ownData());
  int i = 0;
  try {
    i << d;
    FAIL();
  } catch (const qsa::cLabeledTypeMissmatchException& e) {
    EXPECT_EQ(textOf(e),
              "Type mismatch: Expecting type \"piInt32\" but got object of type \"piDouble\" - last label was "
              "\"Ratio\"!");
    EXPECT_STREQ(e.label().c_str(), "Ratio");
  }
  EXPECT_EQ(d.currentPos(), 0u);
  double r = 0;
  r << d;
  EXPECT_EQ(r, 1.5);
}

TEST(cDeserializeBinary, TruncatedInputIsEndOfContextAndNothingIsConsumed) {
  cSerializeBinary s;
  qstd::cAsciiString("hello") >> s;
  12345ull >> s;
  const Bytes full = bytesOf(s);
  for (size_t cut = 1; cut < full.size(); ++cut) {
    Bytes part(full.begin(), full.begin() + cut);
    qstd::tArray<char> data = arrayOf(part);
    cDeserializeBinary d(data);
    qstd::cAsciiString str;
    unsigned long long n = 0;
    try {
      str << d;
      n << d;
      FAIL() << cut;
    } catch (const qstd::cRuntimeException& e) {
      EXPECT_EQ(textOf(e), "Unable to deserialize - end of context!");
      EXPECT_TRUE(d.currentPos() == 0 || d.currentPos() == 13) << cut;
    }
  }
}

TEST(cDeserializeBinary, LengthsBeyondTheDataAreEndOfContext) {
  // A string, a block, a 32-bit-character string and a 64-bit block that
  // claim far more than there is.
  const Bytes cases[] = {words({10, 0xFFFFFFF0u}), words({1, 0x7FFFFFFFu}), words({11, 0x40000000u}),
                         cat(words({14}), words({0xFFFFFFFFu, 0xFFFFFFFFu}))};
  for (const Bytes& b : cases) {
    qstd::tArray<char> data = arrayOf(b);
    cDeserializeBinary d(data);
    qstd::cAsciiString as;
    qucs::cString cs;
    qstd::tArray<char> block;
    const unsigned int id = d.nextTypeId();
    if (id == 10) {
      EXPECT_THROW(as << d, qstd::cRuntimeException);
    } else if (id == 11) {
      EXPECT_THROW(cs << d, qstd::cRuntimeException);
    } else {
      EXPECT_THROW(block << d, qstd::cRuntimeException);
    }
    EXPECT_EQ(d.currentPos(), 0u);
  }
}

TEST(cDeserializeBinary, ContextsNestAndSkipWhatWasNotRead) {
  cSerializeBinary s;
  {
    qsa::cContext outer(s.newContext("outer"));
    1 >> s;
    {
      qsa::cContext inner(s.newContext("inner"));
      2 >> s;
      3 >> s;
      inner.release();
    }
    4 >> s;
    outer.release();
  }
  5 >> s;
  cDeserializeBinary d(s.ownData());
  EXPECT_TRUE(d.isContext());
  EXPECT_STREQ(d.getNextContextTypeName().c_str(), "outer");
  EXPECT_EQ(d.currentPos(), 0u);
  int v = 0;
  {
    qsa::cContext outer(d.getContext("outer"));
    v << d;
    EXPECT_EQ(v, 1);
    {
      qsa::cContext inner(d.getContext("inner"));
      v << d;  // 3 is left unread
      inner.release();
    }
    v << d;
    EXPECT_EQ(v, 4);
    EXPECT_TRUE(d.eoc());
    EXPECT_THROW(v << d, qstd::cRuntimeException);
    outer.release();
  }
  v << d;
  EXPECT_EQ(v, 5);
}

TEST(cDeserializeBinary, AbandonedAndMisnamedContextsGoBack) {
  cSerializeBinary s;
  {
    qsa::cContext c(s.newContext("name"));
    1 >> s;
    c.release();
  }
  cDeserializeBinary d(s.ownData());
  EXPECT_EQ(qeltest::thrownText<qstd::cTypeMissmatchException>([&] { d.getContext("other"); }),
            "Type mismatch: Expecting type \"context other\" but got object of type \"context name\"!");
  EXPECT_EQ(d.currentPos(), 0u);
  {
    qsa::cContext c(d.getContext(0));
    int v;
    v << d;
  }
  EXPECT_EQ(d.currentPos(), 0u);
  EXPECT_EQ(d.contextDepth(), 0u);
}

TEST(cDeserializeBinary, ContextSizesThatDoNotFitAreRejected) {
  // Size larger than the data, and a size that ends inside the header.
  const Bytes cases[] = {words({12, 4, 1000, 8, 0}), words({12, 4, 4, 8, 0})};
  for (const Bytes& b : cases) {
    qstd::tArray<char> data = arrayOf(b);
    cDeserializeBinary d(data);
    EXPECT_THROW(d.getContext(0), qstd::cRuntimeException);
    EXPECT_EQ(d.currentPos(), 0u);
  }
}

TEST(cDeserializeBinary, SixtyFourBitContextsAndBlocksAreRead) {
  Bytes b = words({15, 6});
  u64(b, 12 + 8 + 17);
  b = cat(b, words({8, 0, 14}));
  u64(b, 5);
  b.push_back('h');
  b.push_back('e');
  b.push_back('l');
  b.push_back('l');
  b.push_back('o');
  b = cat(b, words({4, 9}));
  qstd::tArray<char> data = arrayOf(b);
  cDeserializeBinary d(data);
  {
    qsa::cContext c(d.getContext(0));
    unsigned int position = 0;
    unsigned long long size = 0;
    d.getNextBlockInfo(position, size);
    EXPECT_EQ(size, 5u);
    EXPECT_EQ(d.rawData()[position], 'h');
    qstd::tArray<char> block;
    block << d;
    EXPECT_EQ(block.size(), 5u);
    c.release();
  }
  unsigned int v = 0;
  v << d;
  EXPECT_EQ(v, 9u);
}

TEST(cDeserializeBinary, EocIgnoresTrailingLabels) {
  cSerializeBinary s;
  {
    qsa::cContext c(s.newContext(0));
    1 >> s;
    s.newLabel("dangling");
    s.newLabel("another");
    c.release();
  }
  cDeserializeBinary d(s.ownData());
  qsa::cContext c(d.getContext(0));
  EXPECT_FALSE(d.eoc());
  int v;
  v << d;
  EXPECT_TRUE(d.eoc());
  EXPECT_FALSE(d.eocMayBeLabels());
  EXPECT_TRUE(d.isLabel());
  EXPECT_FALSE(d.isContext());
}

TEST(cDeserializeBinary, LabelsAreFoundInTwoPassesWithinTheContext) {
  cSerializeBinary s;
  "x"[0] >> s.newLabel("First");
  {
    qsa::cContext c(s.newContext(0));
    10 >> s.newLabel("A");
    qstd::cAsciiString("skip me") >> s;
    {
      qsa::cContext inner(s.newContext(0));
      30 >> s.newLabel("Hidden");
      inner.release();
    }
    20 >> s.newLabel("B");
    c.release();
  }
  cDeserializeBinary d(s.ownData());
  char first;
  first << d;
  qsa::cContext c(d.getContext(0));
  int v = 0;
  d.findLabel("B");
  v << d;
  EXPECT_EQ(v, 20);
  const unsigned int atEnd = d.currentPos();
  v << d.findLabel("A");  // behind the position: second pass
  EXPECT_EQ(v, 10);
  EXPECT_STREQ(d.lastLabel().c_str(), "A");
  const unsigned int before = d.currentPos();
  EXPECT_FALSE(d.tryFindLabel("Hidden"));  // inside a nested context
  EXPECT_FALSE(d.tryFindLabel("First"));   // outside this context
  EXPECT_EQ(d.currentPos(), before);
  EXPECT_STREQ(d.lastLabel().c_str(), "A");
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { d.findLabel("Missing"); }),
            "Unable to deserialize - label (\"Missing\") not found in current context!");
  EXPECT_EQ(d.currentPos(), before);
  EXPECT_GT(atEnd, before);
}

TEST(cDeserializeBinary, LabelSearchStopsAtInvalidTypeIds) {
  qstd::tArray<char> data = arrayOf(words({4, 1, 19, 0}));
  cDeserializeBinary d(data);
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { d.tryFindLabel("x"); }),
            "Invalid type id (19) while deserializing!");
  EXPECT_EQ(d.currentPos(), 0u);
}

TEST(cDeserializeBinary, NextLabelNameConsumesTheLabel) {
  cSerializeBinary s;
  7u >> s.newLabel("Seven");
  cDeserializeBinary d(s.ownData());
  EXPECT_TRUE(d.isLabel());
  EXPECT_STREQ(d.getNextLabelName().c_str(), "Seven");
  EXPECT_FALSE(d.isLabel());
  unsigned int v;
  v << d;
  EXPECT_EQ(v, 7u);
}

TEST(cDeserializeBinary, ReserializeCopiesTheRestOfTheContextExactly) {
  cSerializeBinary s;
  1 >> s;
  {
    qsa::cContext c(s.newContext("outer"));
    qstd::cAsciiString("a") >> s.newLabel("Name");
    {
      qsa::cContext inner(s.newContext(0));
      2.5 >> s;
      qstd::tArray<char>("xy", 2) >> s;
      static_cast<short>(3) >> s;
      inner.release();
    }
    {
      qsa::cContext empty(s.newContext(""));
      empty.release();
    }
    qucs::cString("u") >> s;
    c.release();
  }
  const Bytes original = bytesOf(s);
  cDeserializeBinary d(s.ownData());
  int first;
  first << d;
  cSerializeBinary copy;
  d.reserialize(copy);
  EXPECT_TRUE(d.eoc());
  Bytes rest(original.begin() + 8, original.end());
  EXPECT_EQ(bytesOf(copy), rest);

  cDeserializeBinary again(s.ownData());
  qsa::cSerializeToTypeString types;
  EXPECT_THROW(again.reserialize(types), qstd::cBugException);  // contexts have no type name
  EXPECT_EQ(again.currentPos(), 0u);
}
