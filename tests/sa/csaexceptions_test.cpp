#include "qelcore/sa/csaexceptions.h"

#include <functional>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

using qsa::cSAExceptions;
using qstd::cAsciiString;

TEST(cSAExceptions, ExceptionsCarryTheCallersFileAndLine) {
  const qstd::cRuntimeException cause(qucs::cLIMessage("$QTR$inner"), "x.cpp", 3);
  const unsigned int first = __LINE__ + 2;
  const std::function<void()> calls[] = {
      [] { cSAExceptions::throwEndOfContext(); },
      [] { cSAExceptions::throwLabelNotFound(cAsciiString("name")); },
      [&] { cSAExceptions::throwSerializationError(cause, cAsciiString("cFoo")); },
      [&] { cSAExceptions::throwDeserializationError(cause, cAsciiString("cFoo")); },
      [] { cSAExceptions::throwContextRefNoImpl(); },
      [] { cSAExceptions::throwUnserializable("cFoo"); },
      [] { cSAExceptions::throwSerializerClearWithOpenContexts(); },
      [] { cSAExceptions::throwSerializerDataWithOpenContexts(); },
      [] { cSAExceptions::throwInvalidTypeId(99); },
      [] { cSAExceptions::throwPatchSizeMissmatch(0, 8, 4); },
      [] { cSAExceptions::throwTypeMissmatch(cAsciiString("piInt32"), cAsciiString("double"), cAsciiString()); },
      [] { cSAExceptions::throwTypeMissmatch(cAsciiString("piInt32"), cAsciiString("double"), cAsciiString("x")); },
  };
  for (unsigned int i = 0; i < sizeof calls / sizeof calls[0]; ++i) {
    try {
      calls[i]();
      ADD_FAILURE() << "nothing thrown by call " << i;
    } catch (const qstd::cAbstractException& e) {
      EXPECT_STREQ(e.sourceFileName(), __FILE__) << "call " << i;
      EXPECT_EQ(e.sourceFileLine(), first + i) << "call " << i;
    }
  }
}
