// Feeds arbitrary bytes as the archived arguments of public slots of several
// signatures, and as serialized slot and signal descriptions. Every outcome
// must be a result or an exception of the library's own families.
#include <cstdint>
#include <cstdlib>

#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/signal0.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cstring.h"

namespace {

using qsa::piVoid;
using qstd::cAsciiString;

class cTarget : public qrmi::cConnectable {
public:
  cTarget() {
    qrmi::registerPublicSlot(*this, &cTarget::sltAdd, "add");
    qrmi::registerPublicSlot(*this, &cTarget::sltRename, "rename");
    qrmi::registerPublicSlot(*this, &cTarget::sltHello, "hello");
    qrmi::registerPublicSlot(*this, &cTarget::sltMix, "mix");
    qrmi::registerPublicSlot(*this, &cTarget::sltSmall, "small");
    qrmi::registerPublicSlot(*this, &cTarget::sltBlock, "block");
  }
  int sltAdd(int a, int b) { return static_cast<int>(static_cast<unsigned int>(a) + static_cast<unsigned int>(b)); }
  piVoid sltRename(const cAsciiString& prefix, cAsciiString& name) {
    name = prefix + name;
    return piVoid();
  }
  cAsciiString sltHello() { return cAsciiString("hello"); }
  unsigned int sltMix(double d, bool b, long long l, const qucs::cString& s) {
    return static_cast<unsigned int>(s.size()) + (b ? 1u : 0u) + static_cast<unsigned int>(l & 0xff) +
           (d > 0 ? 1u : 0u);
  }
  bool sltSmall(unsigned char uc, char c, short& s, unsigned short us) {
    s = static_cast<short>(s ^ us);
    return uc == static_cast<unsigned char>(c);
  }
  qstd::tArray<char> sltBlock(const qstd::tArray<char>& block, unsigned long long n) {
    qstd::tArray<char> copy(block);
    if (n % 2 && copy.size()) copy.setSize(copy.size() - 1);
    return copy;
  }
};

class cNullFactory : public qrmi::cAbstractRMIFactory {
public:
  qstd::tAutoPtr<qrmi::cAbstractSlotCall> createSlotCall(qrmi::cConnectable& owner, const qrmi::cPublicSlot&) override {
    return qstd::tAutoPtr<qrmi::cAbstractSlotCall>(new qrmi::cAbstractSlotCall(owner, nullptr));
  }
  qstd::tAutoPtr<qrmi::cAbstractSignal> createSignal(qrmi::cConnectable&, const qrmi::cPublicSignal&) override {
    return qstd::tAutoPtr<qrmi::cAbstractSignal>(new qrmi::localSignal0<piVoid>);
  }
};

const char* const kSlots[] = {"add", "rename", "hello", "mix", "small", "block", "missing"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static cTarget target;
  if (size > (1u << 20)) return 0;
  const char* bytes = reinterpret_cast<const char*>(data);
  qstd::tArray<char> input(bytes, static_cast<unsigned int>(size));
  for (const char* name : kSlots) {
    try {
      qsa::cDeserializeBinary in(input);
      qsa::cSerializeBinary out;
      target.invokeIndirectRemoteSlot(name, in, out);
      // A call that succeeded wrote a result that reads back.
      qsa::cDeserializeBinary back(out.ownData());
      (void)back.eoc();
    } catch (const qstd::cAbstractException&) {
    } catch (...) {
      std::abort();
    }
  }
  qrmi::cConnectable proxy;
  cNullFactory factory;
  try {
    qsa::cDeserializeBinary in(input);
    proxy.registerRemoteSlot(in, factory);
    proxy.registerRemoteSignal(in, factory);
  } catch (const qstd::cAbstractException&) {
  } catch (...) {
    std::abort();
  }
  return 0;
}
