// Dumps a binary archive as readable text: one line per element with its
// offset, type, label and value, nested contexts indented. Malformed input is
// reported with the offset and the reason where it stops being readable.
//
//   qelarchivedump [file]      (no file or "-": standard input)
//
// Exit status: 0 when everything was read, 1 on a usage or I/O error, 2 when
// the archive is malformed.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/sa/cserializebinaryshared.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace {

typedef qsa::cSerializeBinaryShared Ids;

bool readAll(std::FILE* f, std::vector<char>& out) {
  char buf[65536];
  for (;;) {
    const std::size_t n = std::fread(buf, 1, sizeof buf, f);
    out.insert(out.end(), buf, buf + n);
    if (n < sizeof buf) return !std::ferror(f);
  }
}

std::string quoted(const char* p, unsigned int n) {
  std::string s = "\"";
  for (unsigned int i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(p[i]);
    if (c == '"' || c == '\\') {
      s += '\\';
      s += static_cast<char>(c);
    } else if (c < 32 || c >= 127) {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      s += hex;
    } else {
      s += static_cast<char>(c);
    }
  }
  return s + "\"";
}

std::string messageOf(const qstd::cAbstractException& e) {
  qstd::cAsciiString text;
  if (e.liMessage()) e.liMessage()->untranslated(text);
  return text.empty() ? std::string(e.what()) : std::string(text.c_str());
}

class cDumper {
public:
  explicit cDumper(const qstd::tArray<char>& data) : mData(data), mReader(data) {}

  int run() {
    try {
      for (;;) {
        if (mReader.eocMayBeLabels()) {
          if (mOpen.empty()) break;
          line(mReader.currentPos(), mOpen.size() - 1, "}");
          mReader.releaseCurrentContext();
          mOpen.pop_back();
          continue;
        }
        element();
      }
    } catch (const qstd::cAbstractException& e) {
      std::printf("error at offset 0x%08X (%u): %s\n", mReader.currentPos(), mReader.currentPos(),
                  messageOf(e).c_str());
      return 2;
    }
    std::printf("%u bytes, end of archive\n", mData.size());
    return 0;
  }

private:
  void line(unsigned int offset, std::size_t depth, const std::string& text) {
    std::printf("%08X  %s%s\n", offset, std::string(2 * depth, ' ').c_str(), text.c_str());
  }

  template <class T>
  T value() {
    T v;
    v << mReader;
    return v;
  }

  void element() {
    const unsigned int offset = mReader.currentPos();
    const unsigned int id = mReader.nextTypeId();
    const std::string type = Ids::idToString(id);
    char buf[64];
    std::string text;
    switch (id) {
      case Ids::idUChar:
        std::snprintf(buf, sizeof buf, "%u", static_cast<unsigned int>(value<unsigned char>()));
        text = buf;
        break;
      case Ids::idChar: {
        const char c = value<char>();
        std::snprintf(buf, sizeof buf, "%d", static_cast<int>(c));
        text = quoted(&c, 1) + " (" + buf + ")";
        break;
      }
      case Ids::idUInt32:
        std::snprintf(buf, sizeof buf, "%u", value<unsigned int>());
        text = buf;
        break;
      case Ids::idInt32:
        std::snprintf(buf, sizeof buf, "%d", value<int>());
        text = buf;
        break;
      case Ids::idUInt64:
        std::snprintf(buf, sizeof buf, "%llu", value<unsigned long long>());
        text = buf;
        break;
      case Ids::idInt64:
        std::snprintf(buf, sizeof buf, "%lld", value<long long>());
        text = buf;
        break;
      case Ids::idBool:
        text = value<bool>() ? "true" : "false";
        break;
      case Ids::idDouble:
        std::snprintf(buf, sizeof buf, "%.17g", value<double>());
        text = buf;
        break;
      case Ids::idUInt16:
        std::snprintf(buf, sizeof buf, "%u", static_cast<unsigned int>(value<unsigned short>()));
        text = buf;
        break;
      case Ids::idInt16:
        std::snprintf(buf, sizeof buf, "%d", static_cast<int>(value<short>()));
        text = buf;
        break;
      case Ids::idAsciiString: {
        const qstd::cAsciiString s = value<qstd::cAsciiString>();
        text = quoted(s.c_str(), s.size());
        break;
      }
      case Ids::idString:
      case Ids::idStringUTF8: {
        const qucs::cString s = value<qucs::cString>();
        qstd::tArray<char> bytes;
        qucs::cEnDecUTF8::defaultEnDec().encode(s, bytes);
        text = (id == Ids::idString ? "(32-bit) " : "(UTF-8) ") + quoted(bytes.data(true), bytes.size());
        break;
      }
      case Ids::idRawBytes:
      case Ids::idRawBytes64: {
        const qstd::tArray<char> block = value<qstd::tArray<char>>();
        std::snprintf(buf, sizeof buf, "%u bytes:", block.size());
        text = buf;
        for (unsigned int i = 0; i < block.size() && i < 16; ++i) {
          std::snprintf(buf, sizeof buf, " %02X", static_cast<unsigned char>(block[i]));
          text += buf;
        }
        if (block.size() > 16) text += " ...";
        break;
      }
      case Ids::idLabel: {
        const qstd::cAsciiString name = mReader.getNextLabelName();
        text = quoted(name.c_str(), name.size());
        break;
      }
      case Ids::idContext:
      case Ids::idContext64: {
        const qstd::cAsciiString name = mReader.getNextContextTypeName();
        // The name flag and the size sit at fixed places after the id.
        const char* p = mReader.rawData() + offset;
        const bool wide = id == Ids::idContext64;
        const bool named = p[wide ? 20 : 16] != 0;
        unsigned long long size = 0;
        for (int i = (wide ? 7 : 3); i >= 0; --i) size = (size << 8) | static_cast<unsigned char>(p[8 + i]);
        mOpen.push_back(mReader.getContext(0));
        std::snprintf(buf, sizeof buf, " (size %llu) {", size);
        text = (named ? quoted(name.c_str(), name.size()) : std::string("unnamed")) + buf;
        break;
      }
      default:
        qsa::cSAExceptions::throwInvalidTypeId(id);
    }
    line(offset, mOpen.size() - ((id == Ids::idContext || id == Ids::idContext64) ? 1 : 0), type + " " + text);
  }

  const qstd::tArray<char>& mData;
  qsa::cDeserializeBinary mReader;
  std::vector<qsa::cContextRef> mOpen;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2 || (argc == 2 && (!std::strcmp(argv[1], "-h") || !std::strcmp(argv[1], "--help")))) {
    std::fprintf(stderr, "usage: %s [archive file | -]\n", argv[0]);
    return 1;
  }
  std::vector<char> bytes;
  const bool stdinInput = argc < 2 || !std::strcmp(argv[1], "-");
  std::FILE* f = stdinInput ? stdin : std::fopen(argv[1], "rb");
  if (!f) {
    std::fprintf(stderr, "%s: cannot open %s\n", argv[0], argv[1]);
    return 1;
  }
  const bool ok = readAll(f, bytes);
  if (!stdinInput) std::fclose(f);
  if (!ok || bytes.size() > 0xFFFFFFFFu) {
    std::fprintf(stderr, "%s: cannot read the archive\n", argv[0]);
    return 1;
  }
  const qstd::tArray<char> data(bytes.data(), static_cast<unsigned int>(bytes.size()));
  return cDumper(data).run();
}
