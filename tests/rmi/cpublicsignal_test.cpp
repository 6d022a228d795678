#include "qelcore/rmi/cpublicsignal.h"

#include <gtest/gtest.h>

#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/std/cbugexception.h"

#include "rmitestutil.h"

using qrmi::cConnectable;
using qrmi::cPublicSignal;
using qsa::piVoid;
using qstd::cAsciiString;
using rmitest::chainOf;
using rmitest::cService;
using rmitest::textOf;

TEST(cPublicSignal, ExportFindAndNames) {
  cService svc;
  try {
    svc.sigChanged.publicSignalName();
    FAIL();
  } catch (const qstd::cBugException& e) {
    EXPECT_EQ(textOf(e), "Signal is not a public one!");
  }
  cPublicSignal& sig = svc.sigChanged.exportSignal(svc, "changed", qrmi::cAbstractSignal::eRequiredInterface, "d");
  EXPECT_EQ(&svc.findSignal("changed"), &sig);
  EXPECT_EQ(&sig.signal(), &svc.sigChanged);
  EXPECT_EQ(svc.sigChanged.isPublicSignal(), &sig);
  EXPECT_STREQ(svc.sigChanged.publicSignalName().c_str(), "changed");
  EXPECT_STREQ(sig.paramTypeNames().c_str(), "piInt32, cAsciiString");
  EXPECT_STREQ(sig.returnTypeName().c_str(), "");
  EXPECT_EQ(sig.type(), qrmi::cAbstractSignal::eRequiredInterface);
  EXPECT_EQ(sig.parameters().size(), 2u);
  ASSERT_NE(svc.hasPublicSignals(), nullptr);
  try {
    static_cast<const cService&>(svc).findPublicSignal("Changed");
    FAIL();
  } catch (const qrmi::cNoSuchSignalException& e) {
    EXPECT_EQ(textOf(e), "Signal \"Changed\" could not be found in interface!");
    EXPECT_STREQ(e.signalName().c_str(), "Changed");
  }
  svc.clear();
  EXPECT_EQ(svc.sigChanged.isPublicSignal(), nullptr);
  EXPECT_EQ(svc.tryFindSlot("add"), nullptr);
  EXPECT_THROW(svc.findSignal("changed"), qrmi::cNoSuchSignalException);
}
