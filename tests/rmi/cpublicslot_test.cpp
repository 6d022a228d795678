#include "qelcore/rmi/cpublicslot.h"

#include <gtest/gtest.h>

#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/std/cbugexception.h"

#include "rmitestutil.h"

using qrmi::cConnectable;
using qrmi::cPublicSlot;
using qstd::cAsciiString;
using rmitest::cService;
using rmitest::textOf;

TEST(cPublicSlot, LookupsAreExactAndCreateNothing) {
  cConnectable plain;
  EXPECT_EQ(plain.tryFindSlot("add"), nullptr);
  EXPECT_EQ(plain.hasPublicSlots(), nullptr);
  EXPECT_EQ(plain.hasPublicSignals(), nullptr);

  cService svc;
  ASSERT_NE(svc.tryFindSlot("add"), nullptr);
  EXPECT_EQ(svc.tryFindSlot("Add"), nullptr);
  try {
    svc.findPublicSlot("Add");
    FAIL();
  } catch (const qrmi::cNoSuchSlotException& e) {
    EXPECT_EQ(textOf(e), "Slot \"Add((?))\" not found in interface!");
    EXPECT_STREQ(e.slotName().c_str(), "Add");
    EXPECT_STREQ(e.slotArgs().c_str(), "(?)");
  }
  const qrmi::cAbstractSlotCall& add = *svc.tryFindSlot("add");
  EXPECT_EQ(svc.tryFindPublicSlot(add), &svc.findPublicSlot("add"));
  EXPECT_STREQ(svc.publicSlotName(add).c_str(), "add");
  EXPECT_STREQ(add.publicSlotName().c_str(), "add");
  EXPECT_EQ(svc.findPublicSlot("add").slot(), &add);

  qrmi::cAbstractSlotCall loose(svc, nullptr);
  EXPECT_STREQ(svc.publicSlotName(loose).c_str(), "unknown");
  EXPECT_EQ(qeltest::thrownText<qstd::cBugException>([&] { loose.publicSlotName(); }), "Slot is not a public one!");
  // A second slot of the same name is kept, but the first one answers.
  qrmi::registerPublicSlot(svc, &cService::sltAdd, "hello");
  EXPECT_STREQ(svc.findPublicSlot("hello").returnTypeName().c_str(), "cAsciiString");
}

TEST(cPublicSlot, DescriptionsFollowTheCxxTypes) {
  cService svc;
  const cPublicSlot& add = svc.findPublicSlot("add");
  EXPECT_STREQ(add.returnTypeName().c_str(), "piInt32");
  EXPECT_STREQ(add.paramTypeNames().c_str(), "piInt32, piInt32");
  EXPECT_STREQ(add.description().c_str(), "adds two numbers");
  ASSERT_EQ(add.parameters().size(), 2u);
  EXPECT_STREQ(add.parameters()[0].typeName().c_str(), "piInt32");

  const cPublicSlot& rename = svc.findPublicSlot("rename");
  EXPECT_STREQ(rename.returnTypeName().c_str(), "");
  EXPECT_TRUE(rename.returnValue().isVoid());
  EXPECT_STREQ(rename.paramTypeNames().c_str(), "cAsciiString, cAsciiString");
  ASSERT_EQ(rename.parameters().size(), 2u);
  EXPECT_FALSE(rename.parameters()[0].isAlterable());
  EXPECT_TRUE(rename.parameters()[1].isAlterable());
  EXPECT_STREQ(svc.findPublicSlot("hello").paramTypeNames().c_str(), "");
}
