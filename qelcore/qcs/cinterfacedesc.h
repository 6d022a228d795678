/// \class qcs::cInterfaceDesc
/// The description of an interface: which side it is on, its name (the key by
/// which interfaces are found and matched), author, version and a free text.
///
/// \code
///   qcs::cInterfaceDesc clock(qcs::cInterfaceDesc::eProvidedInterface, "Clock", "me", 1, "wall time");
///   qcs::cInterfaceDesc wanted;  // the requiring side, name still empty
/// \endcode
///
/// Two descriptions are equal when type, name, author and version are; the
/// description text plays no part.
#ifndef QELCORE_QCS_CINTERFACEDESC_H
#define QELCORE_QCS_CINTERFACEDESC_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qcs {

class QEL_EXPORT cInterfaceDesc {
public:
  /// An interface and a dependency match only when their types differ. A
  /// provider describes its interfaces as provided; a dependency (and a
  /// default-constructed description) wants the requiring side.
  enum InterfaceType : unsigned int { eProvidedInterface = 0, eRequiredInterface = 1 };

  cInterfaceDesc();
  /// The fields, in this order.
  cInterfaceDesc(InterfaceType type, const qstd::cAsciiString& name, const qstd::cAsciiString& author,
                 unsigned int version, const qstd::cAsciiString& description);
  ///@{
  /// Plain copies; swap() exchanges two descriptions.
  cInterfaceDesc(const cInterfaceDesc& other) = default;
  cInterfaceDesc& operator=(const cInterfaceDesc& other) = default;
  void swap(cInterfaceDesc& other);
  ///@}

  /// The side: provided or required.
  InterfaceType type() const { return meType; }
  /// The name, by which interfaces are found and matched.
  const qstd::cAsciiString& name() const { return msName; }
  /// Free text.
  const qstd::cAsciiString& author() const { return msAuthor; }
  /// The interface's version; matching ignores it.
  unsigned int version() const { return miVersion; }
  /// Free text; equality ignores it.
  const qstd::cAsciiString& description() const { return msDescription; }

  /// Type, name, author and version; never the description text.
  bool operator==(const cInterfaceDesc& other) const;
  /// Not operator==.
  bool operator!=(const cInterfaceDesc& other) const { return !(*this == other); }

  /// Type (unsigned), name, author, version (unsigned), description.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  /// Reads the same five; a type other than 0 or 1 throws "Unable to
  /// deserialize interface description of ..." and, like any failure, leaves
  /// the description as it was.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);

private:
  InterfaceType meType;
  qstd::cAsciiString msName;
  qstd::cAsciiString msAuthor;
  unsigned int miVersion;
  qstd::cAsciiString msDescription;
};

}  // namespace qcs

#endif
