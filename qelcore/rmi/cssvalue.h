/// \class qrmi::cSSValue
/// One parameter or the result of a public slot or signal: its type string,
/// a free description, and whether it is changed by the callee or absent.
#ifndef QELCORE_RMI_CSSVALUE_H
#define QELCORE_RMI_CSSVALUE_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qrmi {

class QEL_EXPORT cSSValue {
public:
  cSSValue();

  /// Describes a value of the type string `typeName`.
  void set(const qstd::cAsciiString& typeName, bool alterable, bool isVoid);
  /// The value's type string.
  const qstd::cAsciiString& typeName() const { return msTypeName; }
  /// Free text.
  const qstd::cAsciiString& description() const { return msDescription; }
  /// See description().
  void setDescription(const qstd::cAsciiString& description) { msDescription = description; }
  /// Passed by non-constant reference: the callee may change it.
  bool isAlterable() const { return mbAlterable; }
  /// piVoid: there is no value.
  bool isVoid() const { return mbVoid; }

  /// Any field differs.
  bool operator!=(const cSSValue& other) const;
  /// All fields equal.
  bool operator==(const cSSValue& other) const { return !(*this != other); }

  /// Type name, description, alterable, void. Loading changes nothing when it fails.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& out) const;
  /// Reads what operator>> wrote.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& in);

private:
  qstd::cAsciiString msTypeName;
  qstd::cAsciiString msDescription;
  bool mbAlterable;
  bool mbVoid;
};

}  // namespace qrmi

#endif
