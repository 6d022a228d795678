#include "qelcore/std/coutofrangeexception.h"

#include <utility>

namespace qstd {

namespace {

const char* templateFor(OutOfRangeType type) {
  switch (type) {
    case OutOfRangeValue:
      return "$QTR$Value out of range in %container% / %operation%. The value should be between %min% and %max% "
             "but is %index%!";
    case OutOfRangeSize:
      return "$QTR$Size is out of range in %container% / %operation%. The size must be a value %min% and %max% "
             "but is %size%!";
    case OutOfRangeIndexOrSize:
      return "$QTR$Index or size is out of range in %container% / %operation%. The value must be between %min% "
             "and %max% but is %value%!";
    case OutOfRangeEndValue:
      return "$QTR$End-value is out of range in %container% / %operation%. The value must be between %min% and "
             "%max% but is %value%!";
    default:
      break;
  }
  return nullptr;
}

const char* const kIndexTemplate =
    "$QTR$Index out of range in %container% / %operation%. The index should be between %min% - %max% but is "
    "%index%!";

}  // namespace

cOutOfRangeException::cOutOfRangeException() : meType(OutOfRangeIndex), miValue(0), miMin(0), miMax(0) {}

cOutOfRangeException::cOutOfRangeException(const char* container, const char* operation, OutOfRangeType type,
                                           long long value, long long min, long long max)
    : mContainer(container ? container : "unknown"),
      mOperation(operation ? operation : "unknown"),
      meType(type),
      miValue(value),
      miMin(min),
      miMax(max) {
  const char* tmpl = templateFor(type);
  // Every kind is reported with the index wording; existing translations
  // depend on it. The kind itself stays available through outOfRangeType().
  tmpl = kIndexTemplate;
  qucs::cLIMessage msg;
  msg << tmpl << mContainer << mOperation << min << max << value;
  setMsg(msg);
}

cOutOfRangeException::cOutOfRangeException(const cOutOfRangeException& other)
    : cBugException(other),
      mContainer(other.mContainer),
      mOperation(other.mOperation),
      meType(other.meType),
      miValue(other.miValue),
      miMin(other.miMin),
      miMax(other.miMax) {}

cOutOfRangeException& cOutOfRangeException::operator=(const cOutOfRangeException& other) {
  if (this != &other) {
    cOutOfRangeException copy(other);
    swap(copy);
  }
  return *this;
}

cOutOfRangeException::~cOutOfRangeException() {}

void cOutOfRangeException::swap(cOutOfRangeException& other) {
  cBugException::swap(other);
  mContainer.swap(other.mContainer);
  mOperation.swap(other.mOperation);
  std::swap(meType, other.meType);
  std::swap(miValue, other.miValue);
  std::swap(miMin, other.miMin);
  std::swap(miMax, other.miMax);
}

cAbstractException* cOutOfRangeException::createObject() const { return new cOutOfRangeException; }
cAbstractException* cOutOfRangeException::clone() const { return new cOutOfRangeException(*this); }
cAsciiString cOutOfRangeException::typeName() const { return cAsciiString("cOutOfRangeException"); }

}  // namespace qstd
