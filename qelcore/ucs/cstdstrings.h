/// \class qucs::cStdStrings
/// Conversions between cString and the standard library's strings, straight
/// from and into their memory (no library array in between):
///
/// \code
///   qucs::cString name = qucs::cStdStrings::fromUTF8(std::string_view("Zoë"));
///   std::string bytes = qucs::cStdStrings::toUTF8(name);
///   std::u16string units = qucs::cStdStrings::toUTF16(name);
///   unsigned int n = qucs::cStdStrings::toUTF8(name, buffer, sizeof buffer);  // or the length it needs
/// \endcode
///
/// UTF-8 follows the library's UTF-8 endec (cEnDecUTF8), UTF-16 the UTF-16
/// endec in the machine's order without a mark; their errors are theirs.
/// Kept apart from cstring.h, which does not need `<string>` or these forms.
#ifndef QELCORE_UCS_CSTDSTRINGS_H
#define QELCORE_UCS_CSTDSTRINGS_H

#include <string>
#include <string_view>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tconstmemoryproxy.h"
#include "qelcore/ucs/cabstractendec.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

namespace qucs {

class cStdStrings {
public:
  /// Any bytes in memory, such as `{pointer, length}`, are a string_view.
  static cString fromUTF8(std::string_view bytes) {
    const qstd::tConstMemoryProxy<char> memory(bytes.data(), lengthOf(bytes.size()));
    cString text;
    text.fromUTF8(qstd::tConstArrayRef<char>(memory));
    return text;
  }
  /// UTF-8 as a std::string.
  static std::string toUTF8(const cString& text) {
    std::string bytes;
    const unsigned int n = toUTF8(text, nullptr, 0);
    bytes.resize(n);
    if (n) toUTF8(text, &bytes[0], n);
    return bytes;
  }
  /// UTF-8 into `buffer`, memory of the caller's (no terminating zero).
  /// Returns the length of the encoding; when that is more than `size`,
  /// nothing is written and the caller can try again with that much room.
  static unsigned int toUTF8(const cString& text, char* buffer, unsigned int size) {
    return cEnDecUTF8::encode(text.data(true), text.size(), buffer, size);
  }
  /// Units in the machine's order; a leading 0xFEFF is a character like any other.
  static cString fromUTF16(std::u16string_view units) {
    cString text;
    nativeUTF16().decodeUnits(reinterpret_cast<const unsigned short*>(units.data()), lengthOf(units.size()), text);
    return text;
  }
  /// UTF-16 in the machine's order, without a mark.
  static std::u16string toUTF16(const cString& text) {
    std::u16string units;
    const cEnDecUTF16 endec = nativeUTF16();
    const unsigned int n = endec.encode(text.data(true), text.size(), nullptr, 0);
    units.resize(n);
    if (n) endec.encode(text.data(), text.size(), reinterpret_cast<unsigned short*>(&units[0]), n);
    return units;
  }
  ///@{
  /// Appends what any endec decodes from the bytes or 16-bit units.
  static void decode(const cAbstractEnDec& endec, std::string_view bytes, cString& out) {
    endec.decode(bytes.data(), lengthOf(bytes.size()), out);
  }
  static void decode(const cAbstractEnDec& endec, std::u16string_view units, cString& out) {
    endec.decode(reinterpret_cast<const unsigned short*>(units.data()), lengthOf(units.size()), out);
  }
  ///@}
  /// Any endec's bytes of the text (the endec writes them into an array of
  /// its own, which is copied once).
  static std::string encode(const cAbstractEnDec& endec, const cString& text) {
    qstd::tArray<char> bytes;
    endec.encode(text, bytes);
    return std::string(bytes.data(true), bytes.size());
  }

private:
  /// Units (not bytes) of a known order are in the machine's order unless
  /// FlagBigEndian swaps them.
  static cEnDecUTF16 nativeUTF16() { return cEnDecUTF16(cEnDecUTF16::FlagLittleEndian); }
  static unsigned int lengthOf(std::size_t n) {
    if (n > 0x7FFFFFFFu) qstd::cSTDExceptions::throwOutOfBounds("cStdStrings", "length");
    return static_cast<unsigned int>(n);
  }
};

}  // namespace qucs

#endif
