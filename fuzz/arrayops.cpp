// Runs operations decoded from the input on a byte array and on an ASCII
// string side by side with a std::string model: contents must match after
// every step, failed operations must throw and change nothing, the string
// must stay terminated and the pool must never be smaller than the size.
// The final content is then split by the tokenizer, whose tokens must give
// the text back without its separators.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/casciistringtokenizer.h"
#include "qelcore/std/tarray.h"

using namespace qstd;

namespace {

struct cInput {
  const std::uint8_t* mpData;
  std::size_t miSize;
  std::size_t miPos;
  bool more() const { return miPos < miSize; }
  unsigned int byte() { return miPos < miSize ? mpData[miPos++] : 0; }
  // A run of input bytes as text (its length capped by the next byte).
  std::string text() {
    std::size_t n = byte() % 24;
    if (n > miSize - miPos) n = miSize - miPos;
    std::string s(reinterpret_cast<const char*>(mpData + miPos), n);
    miPos += n;
    return s;
  }
};

template <typename A>
void check(const A& a, const std::string& model, bool terminated) {
  if (a.size() != model.size() || a._poolSize() < a.size()) std::abort();
  if (a.size() > 0 && model.compare(0, model.size(), a.data(), a.size()) != 0) std::abort();
  if (terminated && a.data()[a.size()] != 0) std::abort();
}

// Applies one operation to `a` and to the model. Returns false when the
// operation threw, which must be exactly when the model calls it invalid.
template <typename A>
void step(A& a, std::string& model, unsigned int op, unsigned int x, unsigned int y, const std::string& t,
          const std::string& u) {
  const unsigned int size = static_cast<unsigned int>(model.size());
  const std::string before = model;
  bool invalid = false;
  try {
    switch (op) {
      case 0:
        a.append(static_cast<char>(x));
        model += static_cast<char>(x);
        break;
      case 1:
        a.append(t.data(), static_cast<unsigned int>(t.size()));
        model += t;
        break;
      case 2:
        invalid = x > size;
        a.insert(x, t.data(), static_cast<unsigned int>(t.size()));
        model.insert(x, t);
        break;
      case 3:
        invalid = x > size || y > size - x;
        a.erase(x, y);
        model.erase(x, y);
        break;
      case 4:
        invalid = x > size;
        a.erase(x);
        model.erase(size - x);
        break;
      case 5:
        invalid = x > size;
        a.truncate(x);
        model.resize(x);
        break;
      case 6: {
        invalid = x > size;
        bool found = false;
        const unsigned int at = a.find(t.data(), static_cast<unsigned int>(t.size()), found, x, y);
        const unsigned int end = (y == 0 || y > size - x) ? size : x + y;
        const std::size_t expect = model.substr(0, end).find(t, x);
        if (found != (expect != std::string::npos) || (found && at != expect)) std::abort();
        break;
      }
      case 7: {
        invalid = x > size;
        a.replace(t.data(), static_cast<unsigned int>(t.size()), u.data(), static_cast<unsigned int>(u.size()), x);
        if (!t.empty()) {
          for (std::size_t at = model.find(t, x); at != std::string::npos; at = model.find(t, at + u.size())) {
            model.replace(at, t.size(), u);
          }
        }
        break;
      }
      case 8: {
        invalid = x > size || y > size - x;
        A part = a.cut(x, y);
        if (std::string(part.data(true) ? part.data() : "", part.size()) != model.substr(x, y)) std::abort();
        break;
      }
      case 9:
        // Only the low five bits count; keep sectors small enough to allocate.
        a.setGrowStep((x % 12) + ((x & 16) ? 32 : 0));
        break;
      case 10:
        a.setFitOnErase(x & 1);
        break;
      case 11:
        if (x & 1) {
          a.optimizeMemory();
        } else {
          a.clear();
          model.clear();
        }
        break;
      case 12: {
        A copy(a);
        A other;
        other = copy;
        a.swap(other);
        break;
      }
      case 13:
        a.append(a.data(true), a.size());
        model += before;
        break;
      case 14: {
        const int r = a.relation(t.data(), static_cast<unsigned int>(t.size()));
        // Without a pool the array is less than any text, even an empty one.
        const int m = a.data(true) == nullptr ? -1 : model.compare(t);
        if ((r < 0) != (m < 0) || (r == 0) != (m == 0)) std::abort();
        break;
      }
      default:
        a.setSize(x % 64);
        a.fill(static_cast<char>(y));
        model.assign(x % 64, static_cast<char>(y));
        break;
    }
  } catch (const cAbstractException&) {
    if (!invalid) std::abort();
    model = before;
    return;
  }
  if (invalid) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  cInput in{data, size, 0};
  tArray<char> bytes;
  cAsciiString text;
  std::string bytesModel;
  std::string textModel;
  while (in.more()) {
    const unsigned int op = in.byte() % 16;
    // Small positions mostly, a few far out of range.
    unsigned int x = in.byte();
    unsigned int y = in.byte();
    if (x > 240) x = 0xFFFFFFF0u + (x & 15);
    if (y > 240) y = 0xFFFFFFF0u + (y & 15);
    const std::string t = in.text();
    const std::string u = in.text();
    step(bytes, bytesModel, op, x, y, t, u);
    check(bytes, bytesModel, false);
    step(text, textModel, op, x, y, t, u);
    check(text, textModel, true);
    if (bytes.size() > 4096) bytes.clear(), bytesModel.clear();
    if (text.size() > 4096) text.clear(), textModel.clear();
  }

  // Tokens, joined, give the text without separators; key tokens stand alone.
  for (bool empty : {false, true}) {
    const std::string plain(text.c_str());  // up to an embedded zero
    cAsciiStringTokenizer tok(cAsciiString(plain.c_str()), ".", ":", empty);
    std::string joined;
    cAsciiString token;
    while (tok.nextToken(token)) {
      if (token.contains(".")) std::abort();
      if (tok.lastWasKeyToken() != (token == ":")) std::abort();
      if (!tok.lastWasKeyToken() && token.contains(":")) std::abort();
      joined += token.c_str();
    }
    std::string expected;
    for (char c : plain) {
      if (c != '.') expected += c;
    }
    if (joined != expected) std::abort();
  }
  return 0;
}
