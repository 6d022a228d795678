// Helpers shared by the signal and slot tests.
#ifndef QELCORE_TESTS_RMI_RMITESTUTIL_H
#define QELCORE_TESTS_RMI_RMITESTUTIL_H

#include <string>
#include <vector>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"

namespace rmitest {

// The exception's message with its values filled in.
inline std::string textOf(const qstd::cAbstractException& e) {
  qstd::cAsciiString text;
  if (e.liMessage()) e.liMessage()->untranslated(text);
  return text.c_str();
}

// The messages of the whole chain, outermost first.
inline std::vector<std::string> chainOf(const qstd::cAbstractException& e) {
  std::vector<std::string> texts;
  for (const qstd::cAbstractException* p = &e; p; p = p->history()) texts.push_back(textOf(*p));
  return texts;
}

}  // namespace rmitest

#endif
