#include "qelcore/rmi/cpublicsignal.h"

#include <gtest/gtest.h>

#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/std/cbugexception.h"

#include "rmitestutil.h"

using qrmi::cPublicSignal;
using qsa::piVoid;
using qstd::cAsciiString;
using rmitest::cService;
using rmitest::textOf;

TEST(cPublicSignal, ExportFindAndNames) {
  cService svc;
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { svc.sigChanged.publicSignalName(); }),
            "Signal is not a public one!");
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

TEST(cPublicSignal, TheSignalAndItsRecordDetachInEitherOrder) {
  typedef qrmi::localSignal1<piVoid, int> tSignal;
  // The signal dies first: the owner forgets its description, and clearing
  // or destroying the owner no longer reaches the signal.
  {
    cService owner;
    tSignal* sig = new tSignal;
    sig->exportSignal(owner, "gone", qrmi::cAbstractSignal::eProvidedInterface, "");
    owner.sigChanged.exportSignal(owner, "changed", qrmi::cAbstractSignal::eProvidedInterface, "");
    delete sig;
    EXPECT_THROW(owner.findSignal("gone"), qrmi::cNoSuchSignalException);
    ASSERT_NE(owner.hasPublicSignals(), nullptr);
    EXPECT_EQ(owner.hasPublicSignals()->size(), 1u);
    EXPECT_EQ(&owner.findSignal("changed").signal(), &owner.sigChanged);
    owner.clear();
    EXPECT_EQ(owner.sigChanged.isPublicSignal(), nullptr);
  }
  {
    cService owner;
    tSignal* sig = new tSignal;
    sig->exportSignal(owner, "gone", qrmi::cAbstractSignal::eProvidedInterface, "");
    delete sig;
  }
  // The owner dies first: the signal is no public one any more and can be
  // published again.
  tSignal sig;
  {
    cService owner;
    sig.exportSignal(owner, "early", qrmi::cAbstractSignal::eProvidedInterface, "");
  }
  EXPECT_EQ(sig.isPublicSignal(), nullptr);
  EXPECT_THROW(sig.publicSignalName(), qstd::cBugException);
  cService next;
  sig.exportSignal(next, "again", qrmi::cAbstractSignal::eProvidedInterface, "");
  EXPECT_STREQ(sig.publicSignalName().c_str(), "again");
  // One description per signal: a second one could not be kept in step.
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>(
                [&] { sig.exportSignal(next, "twice", qrmi::cAbstractSignal::eProvidedInterface, ""); }),
            "Signal is already a public one!");
  EXPECT_THROW(next.findSignal("twice"), qrmi::cNoSuchSignalException);
}
