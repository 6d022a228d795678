#include "qelcore/io/cfile.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

const unsigned int kBufferSize = 32u * 1024u;

void checkMode(unsigned int mode) {
  const bool writes = (mode & (cFile::Write | cFile::Append)) != 0;
  bool valid = (mode & (cFile::Read | cFile::Write | cFile::Append)) != 0;
  if ((mode & cFile::Truncate) && !writes) valid = false;
  if ((mode & cFile::Exclusive) && !(mode & cFile::Create)) valid = false;
  if ((mode & cFile::Atomic) &&
      ((mode & (cFile::Read | cFile::Append)) || !(mode & cFile::Write) || !(mode & cFile::Create)))
    valid = false;
  if (mode & ~0x7Fu) valid = false;
  if (!valid) cIOExceptions::throwInvalidOpenMode(mode);
}

}  // namespace

cFile::cFile() : miMode(0), mpBuffer(nullptr), miBufferPos(0), miBufferLength(0), mbBufferWrites(false) {}

cFile::cFile(const cPath& path, unsigned int mode) : cFile() { open(cFs::system(), path, mode); }

cFile::cFile(const cFs& fs, const cPath& path, unsigned int mode) : cFile() { open(fs, path, mode); }

cFile::cFile(cFile&& other) noexcept : cFile() { swap(other); }

cFile& cFile::operator=(cFile&& other) noexcept {
  if (this != &other) {
    cFile taken(std::move(other));
    swap(taken);
  }
  return *this;
}

cFile::~cFile() {
  if (mpImpl) {
    // An atomic save that was not closed is thrown away by the impl.
    if (!(miMode & Atomic)) {
      try {
        flushBuffer();
        mpImpl->close();
      } catch (const qstd::cAbstractException& e) {
        e.dump();  // a destructor reports what it cannot throw
      } catch (...) {
      }
    }
    mpImpl.reset();
  }
  std::free(mpBuffer);
}

void cFile::swap(cFile& other) noexcept {
  mpImpl.swap(other.mpImpl);
  mPath.swap(other.mPath);
  std::swap(miMode, other.miMode);
  std::swap(mpBuffer, other.mpBuffer);
  std::swap(miBufferPos, other.miBufferPos);
  std::swap(miBufferLength, other.miBufferLength);
  std::swap(mbBufferWrites, other.mbBufferWrites);
}

void cFile::open(const cPath& path, unsigned int mode) { open(cFs::system(), path, mode); }

void cFile::open(const cFs& fs, const cPath& path, unsigned int mode) {
  checkMode(mode);
  close();
  mpImpl = fs.impl().open(path, mode);
  mPath = path;
  miMode = mode;
}

bool cFile::isOpen() const { return mpImpl.get() != nullptr; }

void cFile::requireOpen(const char* operation) const {
  if (!mpImpl) cIOExceptions::throwNotOpen(operation, mPath);
}

char* cFile::buffer() const {
  if (!mpBuffer) {
    mpBuffer = static_cast<char*>(std::malloc(kBufferSize));
    if (!mpBuffer) qstd::cSTDExceptions::throwOutOfMemory();
  }
  return mpBuffer;
}

void cFile::flushBuffer() const {
  if (!mbBufferWrites) return;
  // Emptied first: after a failed write the bytes are not written twice.
  const unsigned int n = miBufferLength;
  miBufferLength = 0;
  mbBufferWrites = false;
  if (n) mpImpl->write(mpBuffer, n);
}

void cFile::dropReadBuffer() const {
  if (mbBufferWrites) return;
  const unsigned int unread = miBufferLength - miBufferPos;
  miBufferPos = miBufferLength = 0;
  // The system's position is behind what was read ahead.
  if (unread) mpImpl->seek(mpImpl->pos() - unread);
}

unsigned int cFile::read(char* p, unsigned int n) {
  requireOpen("read");
  if (!(miMode & Read)) cIOExceptions::throwError(cIOException::NotOpen, "read", mPath, "File not opened for reading");
  flushBuffer();
  unsigned int done = 0;
  if (miBufferPos < miBufferLength) {
    done = miBufferLength - miBufferPos < n ? miBufferLength - miBufferPos : n;
    std::memcpy(p, mpBuffer + miBufferPos, done);
    miBufferPos += done;
    if (done == n) return n;
  }
  miBufferPos = miBufferLength = 0;
  const unsigned int rest = n - done;
  if (rest >= kBufferSize) return done + mpImpl->read(p + done, rest);
  const unsigned int got = mpImpl->read(buffer(), kBufferSize);
  const unsigned int take = got < rest ? got : rest;
  std::memcpy(p + done, mpBuffer, take);
  miBufferLength = got;
  miBufferPos = take;
  return done + take;
}

void cFile::write(const char* p, unsigned int n) {
  if (!mpImpl) cIOExceptions::throwWriteNotOpen(mPath);
  if (!(miMode & (Write | Append)))
    cIOExceptions::throwError(cIOException::NotOpen, "write", mPath, "File not opened for writing");
  dropReadBuffer();
  if (n >= kBufferSize) {
    flushBuffer();
    mpImpl->write(p, n);
    return;
  }
  if (n == 0) return;
  if (miBufferLength + n > kBufferSize) flushBuffer();
  std::memcpy(buffer() + miBufferLength, p, n);
  miBufferLength += n;
  mbBufferWrites = true;
}

void cFile::seek(unsigned long long pos) {
  requireOpen("seek");
  flushBuffer();
  miBufferPos = miBufferLength = 0;
  mpImpl->seek(pos);
}

unsigned long long cFile::pos() const {
  requireOpen("pos");
  if (mbBufferWrites) {
    // Appended bytes land at the end, wherever the position was.
    if (miMode & Append) {
      flushBuffer();
      return mpImpl->pos();
    }
    return mpImpl->pos() + miBufferLength;
  }
  return mpImpl->pos() - (miBufferLength - miBufferPos);
}

unsigned long long cFile::size() const {
  requireOpen("size");
  flushBuffer();
  return mpImpl->size();
}

bool cFile::atEnd() const {
  requireOpen("atEnd");
  if (!mbBufferWrites && miBufferPos < miBufferLength) return false;
  return pos() >= size();
}

void cFile::readAll(qstd::tArray<char>& out) {
  requireOpen("read");
  const unsigned long long at = pos();
  const unsigned long long end = size();
  if (end > at) {
    const unsigned long long rest = end - at;
    if (rest > 0xFFFFFFFFull - out.size())
      cIOExceptions::throwError(cIOException::Unsupported, "read", mPath, "Too large for one buffer");
    // One allocation for what the size promises, then the generic reader
    // for anything the file grew by meanwhile.
    const unsigned int before = out.size();
    const unsigned int start = out.appendElements(static_cast<unsigned int>(rest));
    unsigned int got = 0;
    try {
      got = read(out.data() + start, static_cast<unsigned int>(rest));
    } catch (...) {
      out.truncate(before);
      throw;
    }
    out.truncate(start + got);
    if (got < rest) return;
  }
  cAbstractIODevice::readAll(out);
}

void cFile::resize(unsigned long long size) {
  requireOpen("resize");
  flushBuffer();
  dropReadBuffer();
  mpImpl->resize(size);
}

void cFile::flush() {
  if (mpImpl) flushBuffer();
}

void cFile::sync() {
  requireOpen("sync");
  flushBuffer();
  mpImpl->sync();
}

void cFile::close() {
  if (!mpImpl) return;
  try {
    flushBuffer();
    mpImpl->close();
  } catch (...) {
    release();
    throw;
  }
  release();
}

void cFile::discard() {
  if (!mpImpl) return;
  miBufferLength = miBufferPos = 0;
  mbBufferWrites = false;
  release();
}

void cFile::release() {
  // The impl's destructor releases what close() did not (and throws an
  // unfinished atomic save away).
  mpImpl.reset();
  miBufferPos = miBufferLength = 0;
  mbBufferWrites = false;
  miMode = 0;
}

}  // namespace qio
