// Helpers shared by the component system tests: a provider and a user of one
// interface.
#ifndef QELCORE_TESTS_QCS_QCSTESTUTIL_H
#define QELCORE_TESTS_QCS_QCSTESTUTIL_H

#include <string>

#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"

namespace qcstest {

using qcs::cInterfaceDesc;
using qsa::piVoid;

inline std::string textOf(const qstd::cAbstractException& e) {
  qstd::cAsciiString text;
  if (e.liMessage()) e.liMessage()->untranslated(text);
  return text.c_str();
}

// The messages of the whole chain, outermost first, joined by " / ".
inline std::string chainOf(const qstd::cAbstractException& e) {
  std::string all;
  for (const qstd::cAbstractException* p = &e; p; p = p->history()) {
    if (!all.empty()) all += " / ";
    all += textOf(*p);
  }
  return all;
}

// Runs `f`, which must throw E; returns the chain's texts.
template <class E, class F>
std::string thrown(F f) {
  try {
    f();
  } catch (const E& e) {
    return chainOf(e);
  }
  return "nothing thrown";
}

inline cInterfaceDesc provided(const char* name) {
  return cInterfaceDesc(cInterfaceDesc::eProvidedInterface, name, "test", 1, "provided");
}
inline cInterfaceDesc wanted(const char* name) {
  return cInterfaceDesc(cInterfaceDesc::eRequiredInterface, name, "test", 1, "wanted");
}

// A provided interface with one public slot "add".
class cCounterApi : public qcs::cAbstractInterface {
public:
  explicit cCounterApi(const char* name = "Counter") : cAbstractInterface(provided(name)), miTotal(0) {
    qrmi::registerPublicSlot(*this, &cCounterApi::sltAdd, "add");
  }
  int sltAdd(int n) { return miTotal += n; }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  int miTotal;
};

// The requiring side: calls "add" through its signal once bound.
class cCounterUse : public qcs::cAbstractInterface {
public:
  explicit cCounterUse(const char* name = "Counter") : cAbstractInterface(wanted(name)), mpBound(nullptr) {
    add.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  }
  qrmi::localSignal1<int, int> add;
  void connectInterface(cAbstractInterface& provider) override {
    mpBound = &provider;
    bindSlot(add, provider, "add");
  }
  void disconnectInterface() override {
    mpBound = nullptr;
    unbindSlots();
  }
  cAbstractInterface* mpBound;
};

}  // namespace qcstest

#endif
