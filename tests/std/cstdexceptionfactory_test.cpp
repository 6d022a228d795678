#include "qelcore/std/cstdexceptionfactory.h"

#include <gtest/gtest.h>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"

using namespace qstd;

TEST(cSTDExceptionFactory, FactoryKnowsTheFoundationClasses) {
  const char* names[] = {"cBugException",        "cRuntimeException",       "cOutOfBoundsException",
                         "cOutOfRangeException", "cOSErrorException",       "cTextParseException",
                         "cTypeErrorException",  "cTypeMissmatchException", "cNumberConversionException"};
  cSTDExceptionFactory factory;
  for (const char* name : names) {
    cAbstractException* e = factory.createException(cAsciiString(name));
    ASSERT_NE(e, nullptr) << name;
    EXPECT_STREQ(e->typeName().c_str(), name);
    cAbstractException* again = e->createObject();
    EXPECT_STREQ(again->typeName().c_str(), name);
    delete again;
    delete e;
  }
  EXPECT_EQ(factory.createException(cAsciiString("cNoSuchException")), nullptr);
  EXPECT_EQ(factory.createException(cAsciiString("cBugExceptionX")), nullptr);
}
