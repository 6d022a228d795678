#include "qelcore/std/texception.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

using namespace qstd;
using qucs::cLIMessage;

namespace {

std::string text(const cAbstractException& e) {
  cAsciiString out;
  if (e.liMessage()) e.liMessage()->untranslated(out);
  return out.c_str();
}

// An exception class written the short way.
class cDiskFullException : public tException<cDiskFullException, cRuntimeException> {
public:
  static const char* staticTypeName() { return "cDiskFullException"; }
  cDiskFullException() : miFree(0) {}
  cDiskFullException(unsigned int freeBytes, const char* file, unsigned int line)
      : tException(cLIMessage("$QTR$Only %n% bytes free!") << freeBytes, file, line), miFree(freeBytes) {}
  unsigned int freeBytes() const { return miFree; }

private:
  unsigned int miFree;
};

// Classes written without tException, with only createObject() and
// typeName(): one on a concrete class, one on the abstract base.
class cQuotaException : public cDiskFullException {
public:
  cQuotaException() : miQuota(0) {}
  cQuotaException(unsigned int quota, const char* file, unsigned int line)
      : cDiskFullException(quota, file, line), miQuota(quota) {}
  cAbstractException* createObject() const override { return new cQuotaException; }
  cAsciiString typeName() const override { return cAsciiString("cQuotaException"); }
  unsigned int quota() const { return miQuota; }

private:
  unsigned int miQuota;
};

class cBareException : public cAbstractException {
public:
  cBareException(const char* what = "bare", const char* file = "unknown", unsigned int line = 0)
      : cAbstractException(what, TypeRuntime, file, line) {}
  cAbstractException* createObject() const override { return new cBareException; }
  cAsciiString typeName() const override { return cAsciiString("cBareException"); }
};

}  // namespace

TEST(TException, CopiesKeepClassAndFields) {
  cDiskFullException full(12, "disk.cpp", 3);
  EXPECT_STREQ(full.typeName().c_str(), "cDiskFullException");
  tAutoPtr<cAbstractException> empty(full.createObject());
  EXPECT_STREQ(empty->typeName().c_str(), "cDiskFullException");

  tAutoPtr<cAbstractException> copy(full.clone());
  const cDiskFullException& same = dynamic_cast<const cDiskFullException&>(*copy);
  EXPECT_EQ(same.freeBytes(), 12u);
  EXPECT_EQ(text(same), "Only 12 bytes free!");
  EXPECT_STREQ(same.sourceFileName(), "disk.cpp");

  cDiskFullException other(7, "other.cpp", 9);
  other.link(cBugException(cLIMessage("$QTR$cause"), "c.cpp", 1));
  full.swap(other);
  EXPECT_EQ(full.freeBytes(), 7u);
  EXPECT_EQ(text(full), "Only 7 bytes free!");
  ASSERT_NE(full.history(), nullptr);
  EXPECT_EQ(text(*full.history()), "cause");
  EXPECT_EQ(other.freeBytes(), 12u);
  EXPECT_EQ(other.history(), nullptr);

  cDiskFullException assigned;
  assigned = full;
  EXPECT_EQ(assigned.freeBytes(), 7u);
  EXPECT_NE(assigned.history(), full.history());
  EXPECT_EQ(text(*assigned.history()), "cause");
}

TEST(TException, ClassesWithOnlyCreateObjectAndTypeNameAreCopiedAsThemselves) {
  cBugException outer(cLIMessage("$QTR$outer"), "a.cpp", 1);
  outer.link(cQuotaException(5, "q.cpp", 7));
  outer.link(cBareException("bare text", "b.cpp", 2));

  // Through createObject() and assignment: the class, its base's fields and
  // the message survive; the fields of the class itself keep their defaults.
  const cAbstractException* quota = outer.history();
  ASSERT_NE(quota, nullptr);
  EXPECT_STREQ(quota->typeName().c_str(), "cQuotaException");
  const cQuotaException& q = dynamic_cast<const cQuotaException&>(*quota);
  EXPECT_EQ(q.freeBytes(), 5u);
  EXPECT_EQ(q.quota(), 0u);
  EXPECT_EQ(text(q), "Only 5 bytes free!");
  EXPECT_STREQ(q.sourceFileName(), "q.cpp");
  EXPECT_EQ(q.sourceFileLine(), 7u);

  const cAbstractException* bare = quota->history();
  ASSERT_NE(bare, nullptr);
  EXPECT_STREQ(bare->typeName().c_str(), "cBareException");
  EXPECT_STREQ(bare->what(), "bare text");
  EXPECT_STREQ(bare->sourceFileName(), "b.cpp");

  cBugException copy(outer);
  EXPECT_STREQ(copy.history()->typeName().c_str(), "cQuotaException");
  EXPECT_STREQ(copy.history()->history()->typeName().c_str(), "cBareException");
}

TEST(TException, FactoriesFindClassesByTheirStaticName) {
  tAutoPtr<cAbstractException> e(
      createExceptionNamed<cBugException, cDiskFullException>(cAsciiString("cDiskFullException")));
  ASSERT_NE(e.get(), nullptr);
  EXPECT_NE(dynamic_cast<cDiskFullException*>(e.get()), nullptr);
  tAutoPtr<cAbstractException> first(
      createExceptionNamed<cBugException, cDiskFullException>(cAsciiString("cBugException")));
  EXPECT_STREQ(first->typeName().c_str(), "cBugException");
  EXPECT_EQ((createExceptionNamed<cBugException, cDiskFullException>(cAsciiString("cDiskFull"))), nullptr);
}
