// Helpers shared by the component system tests.
#ifndef QELCORE_TESTS_QCS_QCSTESTUTIL_H
#define QELCORE_TESTS_QCS_QCSTESTUTIL_H

#include <string>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"

namespace qcstest {

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

}  // namespace qcstest

#endif
