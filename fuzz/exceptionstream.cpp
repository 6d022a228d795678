// Rebuilds exception chains from arbitrary bytes. A chain that could be
// rebuilt must store and rebuild again to the same classes and messages; one
// that could not must leave the reader where it began.
#include <cstdint>
#include <cstdlib>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/csaexceptionfactory.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace {

class cAllFactory : public qstd::cAbstractExceptionFactory {
public:
  qstd::cAbstractException* createException(const qstd::cAsciiString& name) const override {
    qstd::cAbstractException* e = qsa::cSAExceptionFactory().createException(name);
    return e ? e : qstd::cSTDExceptionFactory().createException(name);
  }
};

void check(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qstd::tArray<char> archive(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));
  qsa::cDeserializeBinary d(archive);
  cAllFactory factory;
  qstd::tAutoPtr<qstd::cAbstractException> chain;
  try {
    chain = qstd::cAbstractException::createFromStream(d, factory);
  } catch (const qstd::cAbstractException&) {
    check(d.currentPos() == 0);  // a chain that fails reads nothing
    return 0;
  }
  if (chain.get() == nullptr) return 0;
  qsa::cSerializeBinary s;
  chain->storeRecursive(s);
  qsa::cDeserializeBinary again(s.ownData());
  qstd::tAutoPtr<qstd::cAbstractException> copy = qstd::cAbstractException::createFromStream(again, factory);
  const qstd::cAbstractException* a = chain.get();
  const qstd::cAbstractException* b = copy.get();
  for (; a && b; a = a->history(), b = b->history()) {
    check(a->typeName() == b->typeName());
    check(a->type() == b->type());
    qucs::cString ta, tb;
    if (a->liMessage()) a->liMessage()->untranslated(ta);
    if (b->liMessage()) b->liMessage()->untranslated(tb);
    check(ta == tb);
  }
  check(a == nullptr && b == nullptr);
  return 0;
}
