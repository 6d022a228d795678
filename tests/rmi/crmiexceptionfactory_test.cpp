#include "qelcore/rmi/crmiexceptionfactory.h"

#include <gtest/gtest.h>

#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cstdexceptionfactory.h"

#include "rmitestutil.h"

using qsa::cDeserializeBinary;
using qsa::cSerializeBinary;
using qstd::cAsciiString;
using rmitest::chainOf;
using rmitest::cService;

namespace {
// Knows the exceptions of the foundation and of the signals.
class cChainFactory : public qstd::cAbstractExceptionFactory {
public:
  qstd::cAbstractException* createException(const cAsciiString& typeName) const override {
    qstd::cAbstractException* e = mRmi.createException(typeName);
    return e ? e : mStd.createException(typeName);
  }
  qrmi::cRMIExceptionFactory mRmi;
  qstd::cSTDExceptionFactory mStd;
};
}  // namespace

TEST(cRMIExceptionFactory, ChainsTravelAndAreRebuiltAsTheirOwnClasses) {
  cService svc;
  cSerializeBinary bad;
  bad.store(true);
  cDeserializeBinary in(bad.ownData());
  cSerializeBinary out;
  cSerializeBinary stored;
  try {
    svc.invokeIndirectRemoteSlot("add", in, out);
    FAIL();
  } catch (const qrmi::cCallParameterMissmatchException& e) {
    e.storeRecursive(stored);
  }
  cDeserializeBinary back(stored.ownData());
  qstd::tAutoPtr<qstd::cAbstractException> rebuilt = qstd::cAbstractException::createFromStream(back, cChainFactory());
  ASSERT_NE(rebuilt.get(), nullptr);
  EXPECT_NE(dynamic_cast<qrmi::cCallParameterMissmatchException*>(rebuilt.get()), nullptr);
  EXPECT_EQ(chainOf(*rebuilt).size(), 3u);
  EXPECT_EQ(chainOf(*rebuilt).at(1), "Definition: \"piInt32 add(piInt32, piInt32)\"");

  qrmi::cRMIExceptionFactory factory;
  for (const char* name : {"cUnconnectedSignalException", "cNoSuchSlotException", "cNoSuchSignalException",
                           "cCallParameterMissmatchException"}) {
    qstd::tAutoPtr<qstd::cAbstractException> e(factory.createException(name));
    ASSERT_NE(e.get(), nullptr) << name;
    EXPECT_STREQ(e->typeName().c_str(), name);
    qstd::tAutoPtr<qstd::cAbstractException> copy(e->clone());
    EXPECT_STREQ(copy->typeName().c_str(), name);
  }
  EXPECT_EQ(factory.createException("cRuntimeException"), nullptr);
}
