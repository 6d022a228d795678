/// \class qio::cAbstractIODevice
/// Something bytes are read from and written to: a file, and whatever else
/// behaves like one. Sizes and positions are 64-bit.
///
/// \code
///   void copy(qio::cAbstractIODevice& from, qio::cAbstractIODevice& to) {
///     char block[65536];
///     while (unsigned int n = from.read(block, sizeof block)) to.write(block, n);
///     to.flush();
///   }
/// \endcode
///
/// A device that has no position (a pipe, a socket) keeps the defaults of
/// seek(), pos() and size(), which report the operation as unsupported.
/// Every failure is an exception; a read returns fewer bytes than asked for
/// only at the end.
#ifndef QELCORE_IO_CABSTRACTIODEVICE_H
#define QELCORE_IO_CABSTRACTIODEVICE_H

#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tarray.h"

namespace qio {

class QEL_EXPORT cAbstractIODevice {
public:
  cAbstractIODevice() {}
  cAbstractIODevice(const cAbstractIODevice&) = delete;
  cAbstractIODevice& operator=(const cAbstractIODevice&) = delete;
  virtual ~cAbstractIODevice();

  /// Whether the device can be read or written.
  virtual bool isOpen() const = 0;
  /// Up to `n` bytes; fewer only at the end, 0 there.
  virtual unsigned int read(char* p, unsigned int n) = 0;
  /// All `n` bytes, or throws.
  virtual void write(const char* p, unsigned int n) = 0;
  /// Moves the position; devices without positions throw "not supported" (the default).
  virtual void seek(unsigned long long pos);
  /// The position from the start; "not supported" by default.
  virtual unsigned long long pos() const;
  /// The size in bytes; "not supported" by default.
  virtual unsigned long long size() const;
  /// Hands buffered bytes on; nothing by default.
  virtual void flush();
  /// Flushes and releases the device; errors are reported. Closing a closed
  /// device does nothing.
  virtual void close() = 0;

  /// Exactly `n` bytes, or the exception UnexpectedEnd (the position is then
  /// behind what could be read).
  void readExactly(char* p, unsigned int n);
  /// Appends everything from the position to the end to `out`.
  virtual void readAll(qstd::tArray<char>& out);
  /// All of `bytes`, or throws.
  void write(const qstd::tArray<char>& bytes);
  /// A NUL-terminated text without its terminator.
  void writeText(const char* text);
  /// The position is at the end; by default pos() >= size().
  virtual bool atEnd() const;

protected:
  /// The path shown in exceptions (a file's path); empty by default.
  virtual cPath devicePath() const;
};

}  // namespace qio

#endif
