// Drives the binary archive reader through every operation on arbitrary
// bytes. The first byte tells how many of the following bytes are the
// operation script; the rest is the archive. Every operation either succeeds
// or throws one of the library's exceptions and leaves the position where it
// was; copying what can be read must be repeatable byte for byte.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializedebug.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/cstring.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

// Reads and copies everything readable from the start: the copy of a copy
// must be the copy.
void checkReserialize(const qstd::tArray<char>& archive) {
  qsa::cDeserializeBinary d(archive);
  qsa::cSerializeBinary first;
  try {
    d.reserialize(first);
  } catch (const qstd::cAbstractException&) {
    check(d.currentPos() == 0);
    return;
  }
  qsa::cDeserializeBinary again(first.ownData());
  qsa::cSerializeBinary second;
  again.reserialize(second);
  check(second.ownData() == first.ownData());
  qsa::cSerializeDebug text;
  qsa::cDeserializeBinary third(first.ownData());
  third.reserialize(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t scriptSize = data[0] < size - 1 ? data[0] : size - 1;
  const std::uint8_t* script = data + 1;
  qstd::tArray<char> archive(reinterpret_cast<const char*>(data + 1 + scriptSize),
                             static_cast<unsigned int>(size - 1 - scriptSize));
  qsa::cDeserializeBinary d(archive);
  std::vector<std::unique_ptr<qsa::cContext>> contexts;

  for (std::size_t i = 0; i < scriptSize; ++i) {
    const unsigned int before = d.currentPos();
    const unsigned int depth = d.contextDepth();
    const unsigned int op = script[i] % 32;
    try {
      switch (op) {
        case 0: {
          unsigned char v;
          v << d;
          break;
        }
        case 1: {
          char v;
          v << d;
          break;
        }
        case 2: {
          short v;
          v << d;
          break;
        }
        case 3: {
          unsigned short v;
          v << d;
          break;
        }
        case 4: {
          int v;
          v << d;
          break;
        }
        case 5: {
          unsigned int v;
          v << d;
          break;
        }
        case 6: {
          long long v;
          v << d;
          break;
        }
        case 7: {
          unsigned long long v;
          v << d;
          break;
        }
        case 8: {
          double v;
          v << d;
          break;
        }
        case 9: {
          bool v;
          v << d;
          break;
        }
        case 10: {
          qstd::cAsciiString v;
          v << d;
          break;
        }
        case 11: {
          qucs::cString v;
          v << d;
          break;
        }
        case 12: {
          qstd::tArray<char> v;
          v << d;
          break;
        }
        case 13:
          contexts.emplace_back(new qsa::cContext(d.getContext(0)));
          break;
        case 14:
          contexts.emplace_back(new qsa::cContext(d.getContext("a")));
          break;
        case 15:
          if (!contexts.empty()) {
            contexts.back()->release();
            contexts.pop_back();
          }
          break;
        case 16:
          if (!contexts.empty()) contexts.pop_back();  // abandoned
          break;
        case 17:
          // Without a guard of its own the innermost context is finished here.
          if (contexts.empty()) d.releaseCurrentContext();
          break;
        case 18:
          d.findLabel("a");
          break;
        case 19:
          d.tryFindLabel("");
          break;
        case 20:
          d.eoc();
          d.eocMayBeLabels();
          d.isLabel();
          d.isContext();
          break;
        case 21:
          d.getNextLabelName();
          break;
        case 22:
          d.getNextContextTypeName();
          break;
        case 23:
          d.rewind();
          break;
        case 24: {
          qsa::cSerializeBinary out;
          d.reserialize(out);
          break;
        }
        case 25: {
          qsa::cSerializeDebug out;
          d.reserialize(out);
          break;
        }
        case 26: {
          unsigned int p;
          unsigned long long n;
          d.getNextBlockInfo(p, n);
          check(p + n <= archive.size());
          break;
        }
        case 27:
          d.nextTypeId();
          break;
        case 28: {
          // Bulk loads, with a count taken from the script.
          unsigned int v[8];
          d.loadValues(v, i + 1 < scriptSize ? script[++i] % 9 : 2);
          break;
        }
        case 29: {
          double v[3];
          d.loadValues(v, 3);
          break;
        }
        default: {
          unsigned int v;
          v << d;
          break;
        }
      }
    } catch (const qstd::cAbstractException&) {
      check(d.currentPos() == before);
      check(d.contextDepth() == depth);
    }
    check(d.currentPos() <= d.limitPos() && d.limitPos() <= archive.size());
  }
  while (!contexts.empty()) contexts.pop_back();
  check(d.contextDepth() == 0);
  checkReserialize(archive);
  return 0;
}
