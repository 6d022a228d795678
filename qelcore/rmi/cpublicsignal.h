// The description of a public signal: its name, its signature as type
// strings, the interface side it belongs to, and the signal itself.
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
  typedef std::vector<cSSValue> tParameters;

  cPublicSignal(const cPublicSignal&) = delete;
  cPublicSignal& operator=(const cPublicSignal&) = delete;
  ~cPublicSignal();

  const qstd::cAsciiString& name() const { return msName; }
  const qstd::cAsciiString& returnTypeName() const { return msReturnTypeName; }
  const qstd::cAsciiString& paramTypeNames() const { return msParamTypeNames; }
  const qstd::cAsciiString& description() const { return msDescription; }
  cAbstractSignal::InterfaceType type() const { return meType; }
  cAbstractSignal& signal() const { return *mpSignal; }
  bool matchName(const qstd::cAsciiString& name) const { return msName == name; }

  const tParameters& parameters() const { return mvParameters; }
  cSSValue& addParameter();
  cSSValue& returnValue() { return mReturnValue; }
  const cSSValue& returnValue() const { return mReturnValue; }

  // The four strings, the interface type as unsigned int, the parameters
  // (count, then each), the return value; the signal itself is not written.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& out) const;
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& in);

private:
  friend class cConnectable;
  cPublicSignal(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
                const qstd::cAsciiString& paramTypeNames, const qstd::cAsciiString& description,
                cAbstractSignal::InterfaceType type, cAbstractSignal& signal);
  // A peer's signal read from `in`; its stand-in is adopted afterwards.
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
  // The stand-in of a peer's signal; null for a signal of the owner.
  cAbstractSignal* mpOwnedSignal;
  // The connectable whose interface lists this description.
  cConnectable* mpOwner;
};

}  // namespace qrmi

#endif
