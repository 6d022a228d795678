#include "qelcore/rmi/cssvalue.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qrmi {

cSSValue::cSSValue() : mbAlterable(false), mbVoid(false) {}

void cSSValue::set(const qstd::cAsciiString& typeName, bool alterable, bool isVoid) {
  msTypeName = typeName;
  mbAlterable = alterable;
  mbVoid = isVoid;
}

bool cSSValue::operator!=(const cSSValue& other) const {
  return msTypeName != other.msTypeName || msDescription != other.msDescription || mbAlterable != other.mbAlterable ||
         mbVoid != other.mbVoid;
}

qsa::cAbstractSerializer& cSSValue::operator>>(qsa::cAbstractSerializer& out) const {
  qsa::cPositionGuard guard(out);
  out.store(msTypeName);
  out.store(msDescription);
  out.store(mbAlterable);
  out.store(mbVoid);
  guard.commit();
  return out;
}

qsa::cAbstractDeserializer& cSSValue::operator<<(qsa::cAbstractDeserializer& in) {
  qsa::cPositionGuard guard(in);
  cSSValue loaded;
  in.load(loaded.msTypeName);
  in.load(loaded.msDescription);
  in.load(loaded.mbAlterable);
  in.load(loaded.mbVoid);
  guard.commit();
  msTypeName.swap(loaded.msTypeName);
  msDescription.swap(loaded.msDescription);
  mbAlterable = loaded.mbAlterable;
  mbVoid = loaded.mbVoid;
  return in;
}

}  // namespace qrmi
