#include "qelcore/std/cnumberconversionexception.h"

#include <utility>

namespace qstd {

cNumberConversionException::cNumberConversionException() : miIndex(0) {}

cNumberConversionException::cNumberConversionException(const qucs::cString& number, unsigned int index)
    : mNumber(number), miIndex(index) {
  setMsg(qucs::cLIMessage("$QTR$Number conversion error. \"%string%\" contains invalid characters at index %index%!")
         << number << index);
}

cNumberConversionException::cNumberConversionException(const cNumberConversionException& other)
    : cRuntimeException(other), mNumber(other.mNumber), miIndex(other.miIndex) {}

cNumberConversionException& cNumberConversionException::operator=(const cNumberConversionException& other) {
  if (this != &other) {
    cNumberConversionException copy(other);
    swap(copy);
  }
  return *this;
}

cNumberConversionException::~cNumberConversionException() {}

void cNumberConversionException::swap(cNumberConversionException& other) {
  cRuntimeException::swap(other);
  mNumber.swap(other.mNumber);
  std::swap(miIndex, other.miIndex);
}

cAbstractException* cNumberConversionException::createObject() const { return new cNumberConversionException; }
cAbstractException* cNumberConversionException::clone() const { return new cNumberConversionException(*this); }
cAsciiString cNumberConversionException::typeName() const { return cAsciiString("cNumberConversionException"); }

}  // namespace qstd
