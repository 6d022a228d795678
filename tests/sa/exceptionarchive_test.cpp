// Exception chains in archives: their layout, and how a factory rebuilds them.
#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/clabeledtypemissmatchexception.h"
#include "qelcore/sa/csaexceptionfactory.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/ucs/climessage.h"

#include "support/exceptiontext.h"

using qeltest::textOf;
using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

namespace {

qstd::cRuntimeException runtime(const char* text) {
  qucs::cLIMessage msg;
  msg << text;
  return qstd::cRuntimeException(msg, "here.cpp", 1);
}

}  // namespace

TEST(ExceptionArchive, ExceptionChainRoundTripsThroughTheFactory) {
  qstd::cOutOfRangeException outer("tArray", "at", qstd::OutOfRangeIndex, 7, 0, 5);
  outer.link(runtime("$QNTR$middle %n%"));
  qsa::cLabeledTypeMissmatchException labeled("piInt32", "piBool", "Flag");
  outer.link(labeled);

  cSerializeBinary s;
  outer.storeRecursive(s);
  cDeserializeBinary d(s.ownData());
  qstd::cSTDExceptionFactory factory;
  // The archive subsystem's factory knows its own class only.
  struct cBoth : qstd::cAbstractExceptionFactory {
    qstd::cAbstractException* createException(const qstd::cAsciiString& name) const override {
      qstd::cAbstractException* e = qsa::cSAExceptionFactory().createException(name);
      return e ? e : qstd::cSTDExceptionFactory().createException(name);
    }
  } both;
  qstd::tAutoPtr<qstd::cAbstractException> back = qstd::cAbstractException::createFromStream(d, both);
  ASSERT_TRUE(back.get() != nullptr);
  EXPECT_TRUE(d.eoc());

  const qstd::cAbstractException* e = back.get();
  EXPECT_STREQ(e->typeName().c_str(), "cOutOfRangeException");
  EXPECT_EQ(e->type(), qstd::cAbstractException::TypeBug);
  EXPECT_EQ(textOf(*e), textOf(outer));
  e = e->history();
  ASSERT_TRUE(e != nullptr);
  EXPECT_STREQ(e->typeName().c_str(), "cRuntimeException");
  EXPECT_EQ(e->type(), qstd::cAbstractException::TypeRuntime);
  EXPECT_EQ(textOf(*e), "middle ???");
  EXPECT_FALSE(e->liMessage()->isTranslatable());
  e = e->history();
  ASSERT_TRUE(e != nullptr);
  EXPECT_STREQ(e->typeName().c_str(), "cLabeledTypeMissmatchException");
  EXPECT_EQ(textOf(*e), textOf(labeled));
  EXPECT_TRUE(e->history() == nullptr);

  // Unknown classes stop the rebuild with the runtime error.
  cDeserializeBinary again(s.ownData());
  EXPECT_EQ(
      qeltest::thrownText<qstd::cRuntimeException>([&] { qstd::cAbstractException::createFromStream(again, factory); }),
      "Unknown exception type cLabeledTypeMissmatchException!");
}

TEST(ExceptionArchive, ExceptionLayoutStartsWithFlagNameKindAndMemoryFlag) {
  cSerializeBinary s;
  runtime("$QTR$x").storeRecursive(s);
  cDeserializeBinary d(s.ownData());
  bool more = false;
  qstd::cAsciiString name;
  int kind = -1;
  bool oom = true;
  more << d;
  name << d;
  kind << d;
  oom << d;
  EXPECT_TRUE(more);
  EXPECT_STREQ(name.c_str(), "cRuntimeException");
  EXPECT_EQ(kind, 1);
  EXPECT_FALSE(oom);
  qucs::cLIMessage msg;
  msg << d;
  EXPECT_STREQ(msg.key().c_str(), "x");
  more << d;
  EXPECT_FALSE(more);
  EXPECT_TRUE(d.eoc());
}

TEST(ExceptionArchive, EmptyChainAndBrokenKind) {
  cSerializeBinary s;
  false >> s;
  cDeserializeBinary d(s.ownData());
  qstd::cSTDExceptionFactory factory;
  EXPECT_TRUE(qstd::cAbstractException::createFromStream(d, factory).get() == nullptr);

  cSerializeBinary bad;
  true >> bad;
  qstd::cAsciiString("cBugException") >> bad;
  5 >> bad;
  false >> bad;
  cDeserializeBinary b(bad.ownData());
  EXPECT_THROW(qstd::cAbstractException::createFromStream(b, factory), qstd::cOutOfRangeException);
}
