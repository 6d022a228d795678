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

cLabeledTypeMissmatchException::cLabeledTypeMissmatchException() {}

cLabeledTypeMissmatchException::cLabeledTypeMissmatchException(const qstd::cAsciiString& expected,
                                                               const qstd::cAsciiString& got,
                                                               const qstd::cAsciiString& label)
    : qstd::cTypeMissmatchException(labeledMessage(expected, got, label), expected, got), mLabel(label) {}

cLabeledTypeMissmatchException::cLabeledTypeMissmatchException(const cLabeledTypeMissmatchException& other)
    : qstd::cTypeMissmatchException(other), mLabel(other.mLabel) {}

cLabeledTypeMissmatchException& cLabeledTypeMissmatchException::operator=(const cLabeledTypeMissmatchException& other) {
  if (this != &other) {
    qstd::cTypeMissmatchException::operator=(other);
    mLabel = other.mLabel;
  }
  return *this;
}

cLabeledTypeMissmatchException::~cLabeledTypeMissmatchException() {}

void cLabeledTypeMissmatchException::swap(cLabeledTypeMissmatchException& other) {
  qstd::cTypeMissmatchException::swap(other);
  mLabel.swap(other.mLabel);
}

qstd::cAbstractException* cLabeledTypeMissmatchException::createObject() const {
  return new cLabeledTypeMissmatchException();
}

qstd::cAbstractException* cLabeledTypeMissmatchException::clone() const {
  return new cLabeledTypeMissmatchException(*this);
}

qstd::cAsciiString cLabeledTypeMissmatchException::typeName() const {
  return qstd::cAsciiString("cLabeledTypeMissmatchException");
}

}  // namespace qsa
