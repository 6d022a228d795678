/// \class qrmi::cIndirectLazySlotCallN
/// A slot call that stands for a public slot known only by its name: every
/// call writes the arguments to a binary archive and hands it to the
/// receiver's invokeIndirectRemoteSlot, which finds the slot at that moment
/// (so the slot may be published, replaced or removed in the meantime), and
/// reads the result and the alterable arguments back. A cross-process
/// transport uses the same archives.
///
/// \code
///   door.sigOpened.connect(qstd::tAutoPtr<qrmi::cAbstractSlotCall1<piVoid, int>>(
///       new qrmi::cIndirectLazySlotCall1<piVoid, int>(bell, "ring", &door.sigOpened)));
/// \endcode
#ifndef QELCORE_RMI_CINDIRECTLAZYSLOTCALLN_H
#define QELCORE_RMI_CINDIRECTLAZYSLOTCALLN_H

#include <type_traits>

#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/rmi/ttypestring.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"

namespace qrmi {

template <class R, class... A>
class cIndirectLazySlotCallN : public cAbstractSlotCallN<R, A...> {
  static_assert(tIsArchivable<R>::value, "the result of an indirect slot must be archivable");
  static_assert(std::conjunction<tIsArchivable<A>...>::value, "the parameters of an indirect slot must be archivable");

public:
  /// Calls the public slot `slotName` of `object`, looked up at each call.
  cIndirectLazySlotCallN(cConnectable& object, const qstd::cAsciiString& slotName, cAbstractSignal* signal = nullptr)
      : cAbstractSlotCallN<R, A...>(object, signal), msSlotName(slotName) {}

  void invoke(R& result, A... args) const override {
    qsa::cSerializeBinary arguments;
    int stored[] = {0, ((static_cast<const tValueType<A>&>(args) >> arguments), 0)...};
    (void)stored;
    qsa::cDeserializeBinary in(arguments.ownData());
    qsa::cSerializeBinary results;
    this->assignedObject().invokeIndirectRemoteSlot(msSlotName, in, results);
    qsa::cDeserializeBinary back(results.ownData());
    tValueType<R> value{};
    try {
      value << back;
      int loaded[] = {0, (loadIfAlterable<A>(args, back), 0)...};
      (void)loaded;
    } catch (const qstd::cAbstractException& e) {
      cRMIExceptions::throwParameterMissmatch(this->isPublicSlot(), e);
    }
    result = value;
  }
  void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const override {
    this->assignedObject().invokeIndirectRemoteSlot(msSlotName, in, out);
  }
  void call(qsa::cReferenceFrame& frame) const override {
    this->assignedObject().invokeIndirectSlot(msSlotName, frame);
  }

  /// The public slot's name.
  const qstd::cAsciiString& slotName() const { return msSlotName; }

private:
  template <class P, class V>
  static void loadIfAlterable(V& value, qsa::cAbstractDeserializer& in) {
    if constexpr (tIsAlterable<P>::value) value << in;
  }

  qstd::cAsciiString msSlotName;
};

template <class R>
using cIndirectLazySlotCall0 = cIndirectLazySlotCallN<R>;
template <class R, class A1>
using cIndirectLazySlotCall1 = cIndirectLazySlotCallN<R, A1>;
template <class R, class A1, class A2>
using cIndirectLazySlotCall2 = cIndirectLazySlotCallN<R, A1, A2>;
template <class R, class A1, class A2, class A3>
using cIndirectLazySlotCall3 = cIndirectLazySlotCallN<R, A1, A2, A3>;
template <class R, class A1, class A2, class A3, class A4>
using cIndirectLazySlotCall4 = cIndirectLazySlotCallN<R, A1, A2, A3, A4>;

}  // namespace qrmi

#endif
