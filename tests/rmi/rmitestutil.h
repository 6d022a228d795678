// Helpers shared by the signal and slot tests.
#ifndef QELCORE_TESTS_RMI_RMITESTUTIL_H
#define QELCORE_TESTS_RMI_RMITESTUTIL_H

#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/signal0.h"
#include "qelcore/std/casciistring.h"

#include "support/exceptiontext.h"

namespace rmitest {

using qeltest::chainOf;
using qeltest::textOf;

// A connectable with three public slots and a signal, as a service would publish them.
class cService : public qrmi::cConnectable {
public:
  cService() {
    qrmi::registerPublicSlot(*this, &cService::sltAdd, "add", "adds two numbers");
    qrmi::registerPublicSlot(*this, &cService::sltRename, "rename");
    qrmi::registerPublicSlot(*this, &cService::sltHello, "hello");
  }
  int sltAdd(int a, int b) {
    ++miCalls;
    return a + b;
  }
  qsa::piVoid sltRename(const qstd::cAsciiString& prefix, qstd::cAsciiString& name) {
    ++miCalls;
    name = prefix + name;
    return qsa::piVoid();
  }
  qstd::cAsciiString sltHello() {
    ++miCalls;
    return qstd::cAsciiString("hello");
  }
  int miCalls = 0;
  qrmi::localSignal2<qsa::piVoid, int, const qstd::cAsciiString&> sigChanged;
};

}  // namespace rmitest

#endif
