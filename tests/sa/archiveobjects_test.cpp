// Objects in archives: exception chains, messages, build information, type
// strings, reference frames, the debug text and files.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/clabeledtypemissmatchexception.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/csaexceptionfactory.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializedebug.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/ctypemissmatchexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

#include "archivetestutil.h"

using namespace satest;
using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;

namespace {

std::string textOf(const qstd::cAbstractException& e) {
  qstd::cAsciiString text;
  if (e.liMessage()) e.liMessage()->untranslated(text);
  return text.c_str();
}

qstd::cRuntimeException runtime(const char* text) {
  qucs::cLIMessage msg;
  msg << text;
  return qstd::cRuntimeException(msg, "here.cpp", 1);
}

}  // namespace

TEST(ArchiveObjects, ExceptionChainRoundTripsThroughTheFactory) {
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
  try {
    qstd::cAbstractException::createFromStream(again, factory);
    FAIL();
  } catch (const qstd::cRuntimeException& err) {
    EXPECT_EQ(textOf(err), "Unknown exception type cLabeledTypeMissmatchException!");
  }
}

TEST(ArchiveObjects, ExceptionLayoutStartsWithFlagNameKindAndMemoryFlag) {
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

TEST(ArchiveObjects, EmptyChainAndBrokenKind) {
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

TEST(ArchiveObjects, MessageKeepsKeyParametersAndKinds) {
  qucs::cLIMessage msg;
  msg << "$QTR$%a% and %b% then %c%" << qucs::cString("t\\%") << 42 << 0.5;
  cSerializeBinary s;
  msg >> s;
  cDeserializeBinary d(s.ownData());
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
  Bytes torn = bytesOf(s);
  torn.resize(torn.size() - 3);
  qstd::tArray<char> data = arrayOf(torn);
  cDeserializeBinary t(data);
  qucs::cLIMessage keep;
  keep << "$QTR$keep";
  EXPECT_THROW(keep << t, qstd::cRuntimeException);
  EXPECT_STREQ(keep.key().c_str(), "keep");
  EXPECT_EQ(t.currentPos(), 0u);
}

TEST(ArchiveObjects, BuildInfoRoundTripsWithAFullThirtyTwoBitCount) {
  qstd::cBuildInfo defaults;
  qstd::cBuildInfo given("cmake", "g++", "12", "host", "2026-11-22", 0xFFFFFFFFu);
  cSerializeBinary s;
  defaults >> s;
  given >> s;
  cDeserializeBinary d(s.ownData());
  qstd::cBuildInfo a("x", "x", "x", "x", "x", 1), b;
  a << d;
  b << d;
  EXPECT_STREQ(a.compiler().c_str(), "unknown");
  EXPECT_STREQ(a.buildDate().c_str(), "unknown");
  EXPECT_EQ(a.buildCount(), 0u);
  EXPECT_STREQ(b.buildSystem().c_str(), "cmake");
  EXPECT_STREQ(b.buildHost().c_str(), "host");
  EXPECT_EQ(b.buildCount(), 0xFFFFFFFFull);

  qsa::cSerializeToTypeString types;
  given >> types;
  EXPECT_STREQ(types.typeString().c_str(),
               "cAsciiString, cAsciiString, cAsciiString, cAsciiString, cAsciiString, piUInt64");
}

TEST(ArchiveObjects, TypeStringListsValuesNotLabels) {
  qsa::cSerializeToTypeString t;
  EXPECT_STREQ(t.typeString().c_str(), "");
  7 >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piInt32");
  qucs::cString("x") >> t.newLabel("ignored");
  true >> t;
  static_cast<short>(1) >> t;
  qstd::tArray<char>() >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piInt32, cString, piBool, piInt16, char*");
  t.rewind();
  EXPECT_STREQ(t.typeString().c_str(), "");
  1.0 >> t;
  qstd::tArray<char> out;
  t.swapData(out);
  EXPECT_EQ(std::string(out.data(), out.size()), "piDouble");
  try {
    t.newContext("c");
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(textOf(e), "The operation \"cSerializeToTypeString::newContext(...)\" is not supported!");
  }
  EXPECT_THROW(t.data(), qstd::cBugException);
}

TEST(ArchiveObjects, ContextRefHandsItsDataOnOnce) {
  cSerializeBinary s;
  qsa::cContextRef a = s.newContext(0);
  qsa::cContextRef b(a);
  EXPECT_FALSE(a.isValid());
  try {
    a.unguardImpl();
    FAIL();
  } catch (const qstd::cRuntimeException& e) {
    EXPECT_EQ(textOf(e), "cContextRef::unguardImpl(): no valid reference!");
  }
  qsa::cContext guard(b);
  EXPECT_FALSE(b.isValid());
  guard.release();
  EXPECT_EQ(s.data().size(), 20u);
}

TEST(ArchiveObjects, ReferenceFrameChecksTypesOnEveryAccess) {
  int result = 0;
  const qstd::cAsciiString name("n");
  double ratio = 0.5;
  qsa::piVoid nothing;
  qsa::cReferenceFrame frame;
  frame.add(result).add(name).add(ratio).add(nothing);
  EXPECT_EQ(frame.count(), 4u);
  EXPECT_STREQ(frame.typeString().c_str(), "piInt32, cAsciiString, piDouble, piVoid");
  EXPECT_STREQ(frame.typeString(1).c_str(), "cAsciiString, piDouble, piVoid");

  frame.next<int>() = 3;
  EXPECT_EQ(result, 3);
  try {
    frame.next<qstd::cAsciiString>();  // constant entry, writable access
    FAIL();
  } catch (const qstd::cTypeMissmatchException& e) {
    EXPECT_EQ(textOf(e),
              "Type mismatch: Expecting type \"cAsciiString\" but got object of type \"const cAsciiString\"!");
  }
  EXPECT_EQ(frame.position(), 1u);
  EXPECT_STREQ(frame.next<const qstd::cAsciiString>().c_str(), "n");
  EXPECT_THROW(frame.next<float>(), qstd::cTypeMissmatchException);
  EXPECT_THROW(frame.next<unsigned int>(), qstd::cTypeMissmatchException);
  EXPECT_EQ(frame.next<double>(), 0.5);
  frame.next<qsa::piVoid>();
  EXPECT_TRUE(frame.atEnd());
  EXPECT_THROW(frame.next<int>(), qstd::cOutOfRangeException);
  frame.rewind();
  EXPECT_EQ(&frame.next<int>(), &result);
}

TEST(ArchiveObjects, ReferenceFrameStoresAndLoadsItsValues) {
  unsigned int a = 1;
  qucs::cString b("two");
  bool c = true;
  qsa::cReferenceFrame out;
  out.add(a).add(b).add(c);
  cSerializeBinary s;
  out >> s;
  qsa::cSerializeToTypeString t;
  out >> t;
  EXPECT_STREQ(t.typeString().c_str(), "piUInt32, cString, piBool");

  unsigned int a2 = 0;
  qucs::cString b2;
  bool c2 = false;
  qsa::cReferenceFrame in;
  in.add(a2).add(b2).add(c2);
  cDeserializeBinary d(s.ownData());
  in << d;
  EXPECT_EQ(a2, 1u);
  EXPECT_TRUE(b2 == b);
  EXPECT_TRUE(c2);

  struct sLocal {
    int x;
  } local = {1};
  qsa::cReferenceFrame bad;
  bad.add(local);
  try {
    bad >> s;
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(textOf(e).find("Attempt to serialize the local type "), 0u);
  }
}

TEST(ArchiveObjects, DebugTextShowsTypesLabelsAndContexts) {
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

TEST(ArchiveObjects, StoreToFileWritesTheArchive) {
  cSerializeBinary s;
  0x64636261u >> s;
  const std::string path = ::testing::TempDir() + "qelcore_sa_store.bin";
  s.storeToFile(qucs::cString(path.c_str()));
  std::ifstream in(path, std::ios::binary);
  std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(content, std::string("\x04\0\0\0abcd", 8));
  in.close();
  std::remove(path.c_str());
  EXPECT_THROW(s.storeToFile(qucs::cString((::testing::TempDir() + "no/such/dir/x.bin").c_str())),
               qstd::cRuntimeException);
}
