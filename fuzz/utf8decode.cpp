// Fuzzes the UTF-8 decoder and checks it against a direct reading of its rules
// (one character at a time through a zero-padded eight-byte window): the
// block-wise fast paths must give the same characters, the same error and the
// same partial output.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace {

// Returns the error text, or "" on success; `out` gets the characters.
std::string reference(const std::uint8_t* data, std::size_t size, std::vector<unsigned int>& out) {
  static const unsigned int offsets[4] = {0, 0x3080u, 0xE2080u, 0x3C82080u};
  std::size_t p = 0;
  while (p < size) {
    unsigned char w[8] = {0, 0, 0, 0, 0, 0, 0, 0};
    std::memcpy(w, data + p, size - p < 8 ? size - p : 8);
    if (w[0] == 0) return "UTF8 decode error - unexpected end of data at index 0!";
    if (w[0] < 0x80) {
      out.push_back(w[0]);
      ++p;
      continue;
    }
    const unsigned char b = w[0];
    const unsigned int count = b < 0xC0    ? 0
                               : b < 0xE0  ? 1
                               : b < 0xF0  ? 2
                               : b < 0xF8  ? 3
                               : b < 0xFC  ? 4
                               : b < 0xFE  ? 5
                               : b == 0xFE ? 6
                                           : 7;
    if (count >= 4) return "UTF8 decode error - unsupported length of " + std::to_string(count) + "!";
    unsigned int value = 0;
    for (unsigned int j = 0; j <= count; ++j) {
      if (w[j] == 0) return "UTF8 decode error - unexpected end of data at index " + std::to_string(j) + "!";
      if (j > 0) value <<= 6;
      value += w[j];
    }
    out.push_back(value - offsets[count]);
    p += 1 + count;
  }
  return "";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // An exactly sized buffer, so that a read past the input is caught.
  qstd::tArray<char> bytes;
  bytes.setGrowStep(0);
  if (size > 0) bytes.append(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));

  std::vector<unsigned int> expected;
  const std::string expectedError = reference(data, size, expected);

  qucs::cString out;
  out.append(0x263Au);  // decoding appends behind what is there
  std::string error;
  try {
    qucs::cEnDecUTF8().decode(bytes, out);
  } catch (const qstd::cRuntimeException& e) {
    qstd::cAsciiString text;
    e.liMessage()->untranslated(text);
    error = text.c_str();
  }
  if (error != expectedError) std::abort();
  if (out.size() != expected.size() + 1 || out[0] != 0x263Au) std::abort();
  for (std::size_t i = 0; i < expected.size(); ++i)
    if (out[static_cast<unsigned int>(i + 1)] != expected[i]) std::abort();

  // fromUTF8 keeps the string as it was when decoding fails.
  qucs::cString s("unchanged");
  try {
    s.fromUTF8(bytes);
  } catch (const qstd::cRuntimeException&) {
    if (!(s == "unchanged")) std::abort();
  }
  return 0;
}
