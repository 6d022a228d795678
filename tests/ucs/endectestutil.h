// Byte and character helpers shared by the encoder tests.
#ifndef QELCORE_TESTS_UCS_ENDECTESTUTIL_H
#define QELCORE_TESTS_UCS_ENDECTESTUTIL_H

#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace endectest {

using qstd::cAbstractException;
using qstd::tArray;
using qucs::cEnDecUTF16;
using qucs::cEnDecUTF8;
using qucs::cString;

typedef tArray<char> tBytes;

inline tBytes bytes(std::initializer_list<unsigned int> list) {
  tBytes b;
  for (unsigned int v : list) b.append(static_cast<char>(v));
  return b;
}

inline std::vector<unsigned int> units(const tBytes& b) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < b.size(); ++i) v.push_back(static_cast<unsigned char>(b[i]));
  return v;
}

inline std::vector<unsigned int> units(const tArray<unsigned short>& a) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < a.size(); ++i) v.push_back(a[i]);
  return v;
}

inline std::vector<unsigned int> chars(const cString& s) {
  std::vector<unsigned int> v;
  for (unsigned int i = 0; i < s.size(); ++i) v.push_back(s[i]);
  return v;
}

inline cString text(std::initializer_list<unsigned int> list) {
  cString s;
  for (unsigned int c : list) s.append(c);
  return s;
}

inline std::string messageOf(const cAbstractException& e) {
  if (e.liMessage() == nullptr) return "<no message>";
  qstd::cAsciiString s;
  e.liMessage()->untranslated(s);
  return s.c_str();
}

// Runs `f`, which must throw an exception of the library with that kind and text.
template <typename F>
inline void expectFailure(F f, cAbstractException::Type type, const std::string& message) {
  try {
    f();
    ADD_FAILURE() << "no exception, expected: " << message;
  } catch (const cAbstractException& e) {
    EXPECT_EQ(messageOf(e), message);
    EXPECT_EQ(e.type(), type) << message;
  }
}

template <typename F>
inline void expectRuntime(F f, const std::string& message) {
  expectFailure(f, cAbstractException::TypeRuntime, message);
}

inline std::vector<unsigned int> utf8(const cString& s) {
  tBytes out;
  cEnDecUTF8().encode(s, out);
  return units(out);
}

inline cString fromUtf8(const tBytes& b) {
  cString out;
  cEnDecUTF8().decode(b, out);
  return out;
}

inline std::vector<unsigned int> utf16(unsigned int flags, const cString& s) {
  tBytes out;
  cEnDecUTF16(flags).encode(s, out);
  return units(out);
}

inline cString fromUtf16(unsigned int flags, const tBytes& b) {
  cString out;
  cEnDecUTF16(flags).decode(b, out);
  return out;
}

typedef std::vector<unsigned int> V;

}  // namespace endectest

#endif
