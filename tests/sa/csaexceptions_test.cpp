#include "qelcore/sa/csaexceptions.h"

#include <functional>

#include <gtest/gtest.h>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

#include "support/exceptiontext.h"

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
  qeltest::expectThrownFromTheirLines(calls, __FILE__, first);
}
