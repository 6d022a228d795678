/// \class qrmi::cPublicSignal
/// The description of a public signal: its name, its signature as type
/// strings, the interface side it belongs to, and the signal itself.
#ifndef QELCORE_RMI_CPUBLICSIGNAL_H
#define QELCORE_RMI_CPUBLICSIGNAL_H

#include <vector>

#include "qelcore/qelexport.h"
#include "qelcore/rmi/cabstractsignal.h"
#include "qelcore/rmi/cssvalue.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tautoptr.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qrmi {

class QEL_EXPORT cPublicSignal {
public:
  /// Descriptions of the parameters, in order.
  typedef std::vector<cSSValue> tParameters;

  cPublicSignal(const cPublicSignal&) = delete;
  cPublicSignal& operator=(const cPublicSignal&) = delete;
  ~cPublicSignal();

  /// The public name.
  const qstd::cAsciiString& name() const { return msName; }
  /// The type string of the result.
  const qstd::cAsciiString& returnTypeName() const { return msReturnTypeName; }
  /// The type string of the parameter list.
  const qstd::cAsciiString& paramTypeNames() const { return msParamTypeNames; }
  /// Free text.
  const qstd::cAsciiString& description() const { return msDescription; }
  /// Which side of an interface it belongs to.
  cAbstractSignal::InterfaceType type() const { return meType; }
  /// The signal published.
  cAbstractSignal& signal() const { return *mpSignal; }
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

  /// The four strings, the interface type as unsigned int, the parameters
  /// (count, then each), the return value; the signal itself is not written.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& out) const;
  /// Reads what operator>> wrote.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& in);

private:
  friend class cConnectable;
  cPublicSignal(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
                const qstd::cAsciiString& paramTypeNames, const qstd::cAsciiString& description,
                cAbstractSignal::InterfaceType type, cAbstractSignal& signal);
  /// A peer's signal read from `in`; its stand-in is adopted afterwards.
  explicit cPublicSignal(qsa::cAbstractDeserializer& in);
  void adoptSignal(qstd::tAutoPtr<cAbstractSignal> signal);

  qstd::cAsciiString msName;
  qstd::cAsciiString msReturnTypeName;
  qstd::cAsciiString msParamTypeNames;
  qstd::cAsciiString msDescription;
  cAbstractSignal::InterfaceType meType;
  cAbstractSignal* mpSignal;
  tParameters mvParameters;
  cSSValue mReturnValue;
  /// The stand-in of a peer's signal; null for a signal of the owner.
  cAbstractSignal* mpOwnedSignal;
  /// The connectable whose interface lists this description.
  cConnectable* mpOwner;
};

}  // namespace qrmi

#endif
