#include "qelcore/sa/clabeledtypemissmatchexception.h"

#include "qelcore/ucs/climessage.h"

namespace qsa {

namespace {

qucs::cLIMessage labeledMessage(const qstd::cAsciiString& expected, const qstd::cAsciiString& got,
                                const qstd::cAsciiString& label) {
  qucs::cLIMessage msg;
  msg << "$QTR$Type mismatch: Expecting type \"%expected%\" but got object of type \"%got%\" - last label was "
         "\"%label%\"!"
      << expected << got << label;
  return msg;
}

}  // namespace

cLabeledTypeMissmatchException::cLabeledTypeMissmatchException(const qstd::cAsciiString& expected,
                                                               const qstd::cAsciiString& got,
                                                               const qstd::cAsciiString& label, const char* file,
                                                               unsigned int line)
    : tException(labeledMessage(expected, got, label), expected, got, file, line), mLabel(label) {}

}  // namespace qsa
