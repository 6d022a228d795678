#include "qelcore/io/cabstractiodevice.h"

#include <cstring>

#include "qelcore/io/cioexceptions.h"

namespace qio {

cAbstractIODevice::~cAbstractIODevice() {}

void cAbstractIODevice::seek(unsigned long long) {
  cIOExceptions::throwError(cIOException::Unsupported, "seek", devicePath());
}

unsigned long long cAbstractIODevice::pos() const {
  cIOExceptions::throwError(cIOException::Unsupported, "pos", devicePath());
}

unsigned long long cAbstractIODevice::size() const {
  cIOExceptions::throwError(cIOException::Unsupported, "size", devicePath());
}

void cAbstractIODevice::flush() {}

void cAbstractIODevice::readExactly(char* p, unsigned int n) {
  if (read(p, n) != n) cIOExceptions::throwUnexpectedEnd(devicePath());
}

void cAbstractIODevice::readAll(qstd::tArray<char>& out) {
  // Chunks that grow with what was read: linear however long the input.
  // A failure leaves `out` as it was.
  const unsigned int before = out.size();
  unsigned int chunk = 64u * 1024u;
  try {
    for (;;) {
      if (out.size() > 0xFFFFFFFFu - chunk)
        cIOExceptions::throwError(cIOException::Unsupported, "read", devicePath(), "Too large for one buffer");
      const unsigned int at = out.appendElements(chunk);
      const unsigned int got = read(out.data() + at, chunk);
      out.truncate(at + got);
      if (got < chunk) return;
      if (out.size() - before > chunk) chunk = out.size() - before < (1u << 30) ? out.size() - before : (1u << 30);
    }
  } catch (...) {
    out.truncate(before);
    throw;
  }
}

void cAbstractIODevice::write(const qstd::tArray<char>& bytes) { write(bytes.data(true), bytes.size()); }

void cAbstractIODevice::writeText(const char* text) {
  if (text) write(text, static_cast<unsigned int>(std::strlen(text)));
}

bool cAbstractIODevice::atEnd() const { return pos() >= size(); }

cPath cAbstractIODevice::devicePath() const { return cPath(); }

}  // namespace qio
