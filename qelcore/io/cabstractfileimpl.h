/// \class qio::cAbstractFileImpl
/// An open file as a file system implementation provides it: unbuffered
/// reads and writes at a position, 64-bit offsets. cFile buffers on top.
///
/// Implementations throw cIOException (through cIOExceptions) with the path
/// they were opened for. The destructor releases the file without reporting
/// errors; a file opened for an atomic save (cFile::Atomic) that is destroyed
/// without close() is thrown away and leaves the target as it was.
#ifndef QELCORE_IO_CABSTRACTFILEIMPL_H
#define QELCORE_IO_CABSTRACTFILEIMPL_H

#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"

namespace qio {

class QEL_EXPORT cAbstractFileImpl {
public:
  explicit cAbstractFileImpl(const cPath& path);
  cAbstractFileImpl(const cAbstractFileImpl&) = delete;
  cAbstractFileImpl& operator=(const cAbstractFileImpl&) = delete;
  virtual ~cAbstractFileImpl();

  /// Up to `n` bytes from the position; fewer only at the end of the file,
  /// 0 there.
  virtual unsigned int read(char* p, unsigned int n) = 0;
  /// All `n` bytes at the position (at the end in append mode), or throws.
  virtual void write(const char* p, unsigned int n) = 0;
  virtual void seek(unsigned long long pos) = 0;
  virtual unsigned long long pos() = 0;
  virtual unsigned long long size() = 0;
  /// Cuts or extends (with zero bytes) the file; the position stays.
  virtual void resize(unsigned long long size) = 0;
  /// Asks the system to put what was written on the disk.
  virtual void sync() = 0;
  /// Releases the file, reporting what fails; an atomic save is put in
  /// place here. Called at most once.
  virtual void close() = 0;

  /// The path the file was opened for (the target of an atomic save).
  const cPath& path() const { return mPath; }

private:
  cPath mPath;
};

}  // namespace qio

#endif
