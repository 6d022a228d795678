// Fuzzes number parsing and formatting with formats taken from the input:
// no input may crash, hang or break the integer round trip, and signed and
// unsigned reading agree where both ranges meet.
#include <cstdint>
#include <cstdlib>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

using namespace qstd;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 7) return 0;
  cNumberConversionFormat format(2 + data[0] % 35);
  format.setFixedWidth(data[1]);
  format.setLeadingDigit(static_cast<char>(data[2]));
  const std::uint8_t flags = data[3];
  format.setDigitCase((flags & 1) ? cNumberConversionFormat::LowerCase : cNumberConversionFormat::UpperCase);
  format.setIgnoreLeadingSpaces(flags & 2);
  format.setBaseDetectionEnabled(flags & 4);
  format.setRemoveTrailingZeros(flags & 8);
  format.addIntegerPart(flags & 16);
  format.addFractionalPart(flags & 32);
  format.setPrecision(data[4] % 64);
  if (data[5] & 0x80) format.setDigitSymbol(data[5] % 36, static_cast<char>(data[6]));

  const char* text = reinterpret_cast<const char*>(data + 7);
  const unsigned int length = static_cast<unsigned int>(size - 7);

  try {
    long long value = cNumberConversion::fromString(text, length, format);
    cAsciiString written = cNumberConversion::toString(value, format);
    cNumberConversionFormat reader(format);
    reader.setBaseDetectionEnabled(false);
    reader.setIgnoreLeadingSpaces(false);
    // With the plain symbols and a zero as padding, what is written reads back.
    if (format.hasStandardSymbols() && format.leadingDigit() == format.digitChar(0) &&
        cNumberConversion::fromString(written, reader) != value)
      std::abort();
  } catch (const cRuntimeException&) {
  }

  try {
    double value = cNumberConversion::fromStringToDouble(text, length, format);
    cAsciiString written = cNumberConversion::toStringFromDouble(value, format);
    qucs::cString wide;
    cNumberConversion::toStringFromDouble(value, wide, format);
    if (wide.size() != written.size()) std::abort();
  } catch (const cRuntimeException&) {
  }

  // The same text as Unicode must parse the same way.
  qucs::cString unicode;
  unicode.appendC(text, length);
  long long a = 0, b = 0;
  bool aThrew = false, bThrew = false;
  try {
    a = cNumberConversion::fromString(text, length, format);
  } catch (const cRuntimeException&) {
    aThrew = true;
  }
  try {
    b = cNumberConversion::fromString(unicode, format);
  } catch (const cRuntimeException&) {
    bThrew = true;
  }
  if (aThrew != bThrew || a != b) std::abort();

  // Signed and unsigned reading agree on the values both can hold.
  try {
    const unsigned long long u = cNumberConversion::fromStringToUnsigned(cAsciiString(text, length), format);
    if (u <= 0x7FFFFFFFFFFFFFFFull && (aThrew || static_cast<unsigned long long>(a) != u)) std::abort();
  } catch (const cRuntimeException&) {
    if (!aThrew && a > 0) std::abort();
  }
  return 0;
}
