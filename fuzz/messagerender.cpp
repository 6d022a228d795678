// Fuzzes message binding and rendering: random templates, values and
// translations through untranslated() and translate().
#include <cstdint>
#include <cstdlib>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

using qstd::cAsciiString;
using qucs::cLIMessage;
using qucs::cString;

namespace {

// Splits the input at 0xFF bytes.
bool nextPart(const std::uint8_t*& p, const std::uint8_t* end, const char*& part, unsigned int& length) {
  if (p > end) return false;
  const std::uint8_t* start = p;
  while (p < end && *p != 0xFF) ++p;
  part = reinterpret_cast<const char*>(start);
  length = static_cast<unsigned int>(p - start);
  ++p;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t* p = data;
  const std::uint8_t* end = data + size;
  const char* part;
  unsigned int length;
  if (!nextPart(p, end, part, length)) return 0;
  cLIMessage msg;
  msg << cAsciiString(part, length);
  if (!nextPart(p, end, part, length)) return 0;
  cString translation;
  translation.appendC(part, length);

  unsigned int kind = 0;
  while (nextPart(p, end, part, length)) {
    switch (kind++ % 5) {
      case 0:
        msg << cAsciiString(part, length);
        break;
      case 1: {
        cString value;
        value.appendC(part, length);
        msg << value;
        break;
      }
      case 2:
        msg << static_cast<long long>(length * 977) - 5000;
        break;
      case 3:
        try {
          msg << static_cast<double>(length) / 7.0;
        } catch (const qstd::cRuntimeException&) {
        }
        break;
      default:
        msg << qstd::cNumberConversionFormat(2 + length % 35);
        break;
    }
  }

  cString plain;
  msg.untranslated(plain);
  cAsciiString ascii;
  msg.untranslated(ascii);
  if (ascii.size() != plain.size()) std::abort();
  cString translated;
  msg.translate(translation, translated);

  qucs::cLITrTable table;
  table.add(msg.key(), translation);
  qucs::cLILocale locale(cAsciiString("xx"), table);
  cString viaLocale;
  locale.translate(msg, viaLocale);
  if (!(viaLocale == translated)) std::abort();

  cLIMessage copy(msg);
  cString again;
  copy.untranslated(again);
  if (!(again == plain)) std::abort();
  return 0;
}
