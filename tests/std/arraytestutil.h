// Helpers shared by the array and array reference tests.
#ifndef QELCORE_TESTS_STD_ARRAYTESTUTIL_H
#define QELCORE_TESTS_STD_ARRAYTESTUTIL_H

#include <string>

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/tarray.h"

#include "support/exceptiontext.h"

namespace arraytest {

inline std::string str(const qstd::tArray<char>& a) { return std::string(a.data(true) ? a.data() : "", a.size()); }

// Runs `f`, expects the out-of-range exception of that range type and returns its text.
template <typename F>
std::string rangeFailure(F f, qstd::OutOfRangeType type) {
  try {
    f();
  } catch (const qstd::cOutOfRangeException& e) {
    EXPECT_EQ(type, e.outOfRangeType());
    return qeltest::textOf(e);
  }
  ADD_FAILURE() << "no cOutOfRangeException";
  return "";
}

template <typename F>
std::string bugFailure(F f) {
  return qeltest::thrownText<qstd::cBugException>(f);
}

}  // namespace arraytest

#endif
