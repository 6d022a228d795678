#include "qelcore/qcs/cinterfacedesc.h"

#include <utility>

#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qcs {

cInterfaceDesc::cInterfaceDesc() : meType(eRequiredInterface), miVersion(0) {}

cInterfaceDesc::cInterfaceDesc(InterfaceType type, const qstd::cAsciiString& name, const qstd::cAsciiString& author,
                               unsigned int version, const qstd::cAsciiString& description)
    : meType(type), msName(name), msAuthor(author), miVersion(version), msDescription(description) {}

void cInterfaceDesc::swap(cInterfaceDesc& other) {
  std::swap(meType, other.meType);
  msName.swap(other.msName);
  msAuthor.swap(other.msAuthor);
  std::swap(miVersion, other.miVersion);
  msDescription.swap(other.msDescription);
}

bool cInterfaceDesc::operator==(const cInterfaceDesc& other) const {
  return meType == other.meType && miVersion == other.miVersion && msName == other.msName && msAuthor == other.msAuthor;
}

qsa::cAbstractSerializer& cInterfaceDesc::operator>>(qsa::cAbstractSerializer& s) const {
  static_cast<unsigned int>(meType) >> s;
  msName >> s;
  msAuthor >> s;
  miVersion >> s;
  msDescription >> s;
  return s;
}

qsa::cAbstractDeserializer& cInterfaceDesc::operator<<(qsa::cAbstractDeserializer& d) {
  unsigned int type = 0;
  cInterfaceDesc read;
  type << d;
  read.msName << d;
  read.msAuthor << d;
  read.miVersion << d;
  read.msDescription << d;
  if (type != eProvidedInterface && type != eRequiredInterface) cQCSExceptions::throwInterfaceLoadError(read.msName);
  read.meType = static_cast<InterfaceType>(type);
  swap(read);
  return d;
}

}  // namespace qcs
