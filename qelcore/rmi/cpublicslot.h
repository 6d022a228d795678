/// \class qrmi::cPublicSlot
/// The description of a public slot: its name, its signature as type
/// strings, and the slot call (owned) that carries out calls by name.
#ifndef QELCORE_RMI_CPUBLICSLOT_H
#define QELCORE_RMI_CPUBLICSLOT_H

#include <vector>

#include "qelcore/qelexport.h"
#include "qelcore/rmi/cssvalue.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tautoptr.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qrmi {

class cAbstractSlotCall;
class cConnectable;

class QEL_EXPORT cPublicSlot {
public:
  /// Descriptions of the parameters, in order.
  typedef std::vector<cSSValue> tParameters;

  cPublicSlot(const cPublicSlot&) = delete;
  cPublicSlot& operator=(const cPublicSlot&) = delete;
  ~cPublicSlot();

  /// The public name.
  const qstd::cAsciiString& name() const { return msName; }
  /// The type string of the result.
  const qstd::cAsciiString& returnTypeName() const { return msReturnTypeName; }
  /// The type string of the parameter list.
  const qstd::cAsciiString& paramTypeNames() const { return msParamTypeNames; }
  /// Free text.
  const qstd::cAsciiString& description() const { return msDescription; }
  /// Whether it is published under `name`.
  bool matchName(const qstd::cAsciiString& name) const { return msName == name; }

  /// The parameters' descriptions.
  const tParameters& parameters() const { return mvParameters; }
  /// Appends a default parameter description and returns it.
  cSSValue& addParameter();
  ///@{
  /// The result's description.
  cSSValue& returnValue() { return mReturnValue; }
  const cSSValue& returnValue() const { return mReturnValue; }
  ///@}
  /// The slot call that serves it.
  const cAbstractSlotCall* slot() const { return mpSlot; }

  /// Name, return type name, parameter type names, description, the
  /// parameters (count, then each), the return value. Loading replaces the
  /// parameters and changes nothing when it fails.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& out) const;
  /// Reads what operator>> wrote.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& in);

private:
  friend class cConnectable;
  cPublicSlot(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
              const qstd::cAsciiString& paramTypeNames, const qstd::cAsciiString& description,
              qstd::tAutoPtr<cAbstractSlotCall> slot);
  /// A peer's slot read from `in`; the slot call is given afterwards.
  explicit cPublicSlot(qsa::cAbstractDeserializer& in);
  void setSlot(qstd::tAutoPtr<cAbstractSlotCall> slot);

  qstd::cAsciiString msName;
  qstd::cAsciiString msReturnTypeName;
  qstd::cAsciiString msParamTypeNames;
  qstd::cAsciiString msDescription;
  tParameters mvParameters;
  cSSValue mReturnValue;
  cAbstractSlotCall* mpSlot;
};

}  // namespace qrmi

#endif
