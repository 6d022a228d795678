// The texts of exceptions as tests compare them: the message with its values
// filled in, untranslated.
#ifndef QELCORE_TESTS_SUPPORT_EXCEPTIONTEXT_H
#define QELCORE_TESTS_SUPPORT_EXCEPTIONTEXT_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"

namespace qeltest {

// The exception's own message; empty when it has none.
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

// Runs `f`, which must throw E, and returns the exception's message.
template <typename E, typename F>
std::string thrownText(F f) {
  try {
    f();
  } catch (const E& e) {
    return textOf(e);
  }
  return "<nothing thrown>";
}

// Runs `f`, which must throw E, and returns the exception; a test failure
// and a default E when nothing was thrown.
template <typename E, typename F>
E caught(F f) {
  try {
    f();
  } catch (const E& e) {
    return e;
  }
  ADD_FAILURE() << "nothing thrown";
  return E();
}

// Runs each of `calls`, written one per line from line `first` of `file`:
// each must throw a library exception that reports the line of its call.
template <std::size_t N>
void expectThrownFromTheirLines(const std::function<void()> (&calls)[N], const char* file, unsigned int first) {
  for (unsigned int i = 0; i < N; ++i) {
    try {
      calls[i]();
      ADD_FAILURE() << "nothing thrown by call " << i;
    } catch (const qstd::cAbstractException& e) {
      EXPECT_STREQ(e.sourceFileName(), file) << "call " << i;
      EXPECT_EQ(e.sourceFileLine(), first + i) << "call " << i;
    }
  }
}

}  // namespace qeltest

#endif
