#include "qelcore/qcs/cinterfacedesc.h"

#include <gtest/gtest.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cruntimeexception.h"

#include "qcstestutil.h"

using qcs::cInterfaceDesc;

TEST(InterfaceDesc, DefaultsToTheRequiringSideAndEqualityIgnoresTheDescriptionText) {
  EXPECT_EQ(cInterfaceDesc().type(), 1u);
  const cInterfaceDesc a(cInterfaceDesc::eProvidedInterface, "Clock", "me", 2, "one text");
  EXPECT_EQ(a, cInterfaceDesc(cInterfaceDesc::eProvidedInterface, "Clock", "me", 2, "another text"));
  EXPECT_NE(a, cInterfaceDesc(cInterfaceDesc::eRequiredInterface, "Clock", "me", 2, "one text"));
  EXPECT_NE(a, cInterfaceDesc(cInterfaceDesc::eProvidedInterface, "Clock", "you", 2, "one text"));
  EXPECT_NE(a, cInterfaceDesc(cInterfaceDesc::eProvidedInterface, "Clock", "me", 3, "one text"));
  EXPECT_NE(a, cInterfaceDesc(cInterfaceDesc::eProvidedInterface, "Watch", "me", 2, "one text"));
}

TEST(InterfaceDesc, ArchiveRoundTripKeepsAllFiveFields) {
  const cInterfaceDesc a(cInterfaceDesc::eProvidedInterface, "Clock", "me", 2, "wall time");
  qsa::cSerializeBinary s;
  a >> s;
  qsa::cDeserializeBinary d(s.ownData());
  unsigned int type = 9;
  type << d;
  EXPECT_EQ(type, 0u);  // the type first, as an unsigned value
  d.rewind();
  cInterfaceDesc b;
  b << d;
  EXPECT_EQ(b, a);
  EXPECT_EQ(b.description(), qstd::cAsciiString("wall time"));
}

TEST(InterfaceDesc, AnUnknownTypeOrShortInputLeavesTheDescriptionUnchanged) {
  qsa::cSerializeBinary s;
  2u >> s;
  qstd::cAsciiString("Clock") >> s;
  qstd::cAsciiString("me") >> s;
  1u >> s;
  qstd::cAsciiString("text") >> s;
  qsa::cDeserializeBinary d(s.ownData());
  const cInterfaceDesc before(cInterfaceDesc::eProvidedInterface, "Old", "a", 1, "b");
  cInterfaceDesc desc(before);
  EXPECT_EQ(qcstest::thrown<qstd::cRuntimeException>([&] { desc << d; }),
            "Unable to deserialize interface description of \"Clock\"!");
  EXPECT_EQ(desc, before);
  EXPECT_EQ(desc.description(), qstd::cAsciiString("b"));

  qsa::cSerializeBinary shortArchive;
  0u >> shortArchive;
  qstd::cAsciiString("Clock") >> shortArchive;
  qsa::cDeserializeBinary cut(shortArchive.ownData());
  EXPECT_THROW(desc << cut, qstd::cAbstractException);
  EXPECT_EQ(desc, before);
}
