// Objects of the component system loaded from arbitrary archive bytes: an
// interface description, an interface (a proxy built through a factory),
// module information and cRMIException. The first byte picks the object.
// What loads must store and load again to the same value; what fails must
// leave the object as it was (an interface: empty, with its description).
#include <cstdint>
#include <cstdlib>

#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/cinterfacedesc.h"
#include "qelcore/qcs/cmoduleinfo.h"
#include "qelcore/qcs/cqcsexceptionfactory.h"
#include "qelcore/qcs/crmiexception.h"
#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

class cProxy : public qcs::cAbstractInterface {
public:
  cProxy() : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "kept", "", 0, "")) {}
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
};

class cFactory : public qrmi::cAbstractRMIFactory {
public:
  qstd::tAutoPtr<qrmi::cAbstractSlotCall> createSlotCall(qrmi::cConnectable& owner, const qrmi::cPublicSlot&) override {
    return qstd::tAutoPtr<qrmi::cAbstractSlotCall>(new qrmi::cAbstractSlotCall(owner, nullptr));
  }
  qstd::tAutoPtr<qrmi::cAbstractSignal> createSignal(qrmi::cConnectable&, const qrmi::cPublicSignal&) override {
    return qstd::tAutoPtr<qrmi::cAbstractSignal>(new qrmi::localSignal0<qsa::piVoid>);
  }
};

unsigned int count(const qcs::cAbstractInterface& i) {
  return (i.hasPublicSlots() ? static_cast<unsigned int>(i.hasPublicSlots()->size()) : 0u) +
         (i.hasPublicSignals() ? static_cast<unsigned int>(i.hasPublicSignals()->size()) : 0u);
}

// Loads a value over `kept`; a failure must leave it equal to `kept` (by
// `same`), a success must store and load again to an equal value.
template <class T, class Same>
void roundTrip(qsa::cDeserializeBinary& d, const T& kept, Same same) {
  T value(kept);
  try {
    value << d;
  } catch (const qstd::cAbstractException&) {
    check(same(value, kept));
    return;
  }
  qsa::cSerializeBinary s;
  value >> s;
  qsa::cDeserializeBinary again(s.ownData());
  T copy;
  copy << again;
  check(same(copy, value));
}

void description(qsa::cDeserializeBinary& d) {
  roundTrip(d, qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "kept", "k", 1, "k"),
            [](const qcs::cInterfaceDesc& a, const qcs::cInterfaceDesc& b) {
              return a == b && a.description() == b.description();
            });
}

void iface(qsa::cDeserializeBinary& d) {
  cFactory factory;
  cProxy proxy;
  const qcs::cInterfaceDesc before = proxy.desc();
  try {
    proxy.load(d, factory);
  } catch (const qstd::cAbstractException&) {
    check(proxy.desc() == before && count(proxy) == 0);
    return;
  }
  qsa::cSerializeBinary s;
  proxy.store(s);
  qsa::cDeserializeBinary again(s.ownData());
  cProxy copy;
  copy.load(again, factory);
  check(copy.desc() == proxy.desc() && count(copy) == count(proxy));
}

void moduleInfo(qsa::cDeserializeBinary& d) {
  qcs::cModuleInfo kept;
  kept.setName("kept");
  roundTrip(d, kept, [](const qcs::cModuleInfo& a, const qcs::cModuleInfo& b) {
    return a.toString() == b.toString() && a.context() == b.context() && a.description() == b.description();
  });
}

void rmiException(qsa::cDeserializeBinary& d) {
  qstd::tAutoPtr<qstd::cAbstractException> e;
  try {
    e = qstd::cAbstractException::createFromStream(d, qcs::cQCSExceptionFactory());
  } catch (const qstd::cAbstractException&) {
    return;
  }
  if (!e.get()) return;
  qsa::cSerializeBinary s;
  e->storeRecursive(s);
  qsa::cDeserializeBinary again(s.ownData());
  qstd::tAutoPtr<qstd::cAbstractException> copy =
      qstd::cAbstractException::createFromStream(again, qcs::cQCSExceptionFactory());
  check(copy->typeName() == e->typeName());
  if (const qcs::cRMIException* r = dynamic_cast<const qcs::cRMIException*>(e.get())) {
    const qcs::cRMIException& c = dynamic_cast<const qcs::cRMIException&>(*copy);
    check(c.location() == r->location() && c.interfaceIndex() == r->interfaceIndex() &&
          c.interfaceKey() == r->interfaceKey() && c.operation() == r->operation() &&
          c.signalSlotName() == r->signalSlotName());
  }
  qucs::cString a, b;
  if (e->liMessage()) e->liMessage()->untranslated(a);
  if (copy->liMessage()) copy->liMessage()->untranslated(b);
  check(a == b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  qstd::tArray<char> archive(reinterpret_cast<const char*>(data) + 1, static_cast<unsigned int>(size - 1));
  qsa::cDeserializeBinary d(archive);
  switch (data[0] % 4) {
    case 0:
      description(d);
      break;
    case 1:
      iface(d);
      break;
    case 2:
      moduleInfo(d);
      break;
    default:
      rmiException(d);
      break;
  }
  return 0;
}
