/// \file
/// std::string in archives: stored as the ASCII string element, exactly as a
/// cAsciiString with the same bytes (so either can load what the other
/// stored), and loaded from it.
///
/// \code
///   std::string name = "door";
///   name >> serializer;
///   name << deserializer;
/// \endcode
///
/// A binary archive writes the characters straight from the std::string and
/// reads them straight into it; other archives go through a cAsciiString.
/// Kept apart from the archive headers, which do not need `<string>`.
#ifndef QELCORE_SA_STDSTRINGS_H
#define QELCORE_SA_STDSTRINGS_H

#include <string>
#include <string_view>

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qsa {

namespace stdstrings {

/// The length as the archive counts it.
inline unsigned int lengthOf(std::string_view text) {
  if (text.size() > 0xFFFFFFF7u)
    qstd::cSTDExceptions::throwOutOfRange("std::string", "store", qstd::OutOfRangeSize,
                                          static_cast<long long>(text.size()), 0, 0xFFFFFFF7ll);
  return static_cast<unsigned int>(text.size());
}

}  // namespace stdstrings

///@{
/// Stores the characters as one ASCII string element.
inline cSerializeBinary& operator>>(std::string_view v, cSerializeBinary& s) {
  s.storeAsciiChars(v.data(), stdstrings::lengthOf(v));
  return s;
}
inline cAbstractSerializer& operator>>(std::string_view v, cAbstractSerializer& s) {
  if (cSerializeBinary* binary = dynamic_cast<cSerializeBinary*>(&s)) return v >> *binary;
  s.store(qstd::cAsciiString(v.data(), stdstrings::lengthOf(v)));
  return s;
}
inline cSerializeBinary& operator>>(const std::string& v, cSerializeBinary& s) { return std::string_view(v) >> s; }
inline cAbstractSerializer& operator>>(const std::string& v, cAbstractSerializer& s) {
  return std::string_view(v) >> s;
}
///@}

///@{
/// Loads an ASCII string element; the string changes only when it was read.
inline cDeserializeBinary& operator<<(std::string& v, cDeserializeBinary& d) {
  const char* chars = nullptr;
  unsigned int length = 0;
  d.loadAsciiChars(chars, length);
  v.assign(chars, length);
  return d;
}
inline cAbstractDeserializer& operator<<(std::string& v, cAbstractDeserializer& d) {
  if (cDeserializeBinary* binary = dynamic_cast<cDeserializeBinary*>(&d)) return v << *binary;
  qstd::cAsciiString text;
  d.load(text);
  v.assign(text.c_str(), text.size());
  return d;
}
///@}

}  // namespace qsa

#endif
