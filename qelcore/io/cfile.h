/// \class qio::cFile
/// A file of a file system, opened for reading and/or writing, closed by its
/// destructor.
///
/// \code
///   qio::cFile log("app.log", qio::cFile::AppendOrCreate);
///   log.writeText("started\n");
/// \endcode
///
/// \code
///   qio::cFile in("data.bin", qio::cFile::Read);
///   qstd::tArray<char> all;
///   in.readAll(all);
/// \endcode
///
/// Small reads and writes go through a buffer of 32 KiB; larger ones go to
/// the system directly. flush() hands the buffer to the system, sync() asks
/// the system to put the file on the disk as well. Offsets and sizes are
/// 64-bit on every platform.
///
/// Atomic save: a file opened with Atomic is written to a temporary file
/// beside the target; close() flushes it, puts it on the disk and renames it
/// over the target in one step, so the target always holds either the old or
/// the new content in full, even after a crash. Only close() saves: a file
/// destroyed without it (an exception passed, an early return) or closed with
/// discard() leaves the target untouched. The new file keeps the old file's
/// permissions.
///
/// \code
///   qio::cFile f("settings.ini", qio::cFile::Overwrite | qio::cFile::Atomic);
///   f.write(text);
///   f.close();                     // now the new settings are in place
/// \endcode
///
/// Without a file system the system's file system is used (qpi::system()).
/// The destructor closes the file and swallows errors (they go to the debug
/// output): call close() where a failed final write matters.
#ifndef QELCORE_IO_CFILE_H
#define QELCORE_IO_CFILE_H

#include "qelcore/io/cabstractiodevice.h"
#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qio {

class cAbstractFileImpl;

class QEL_EXPORT cFile : public cAbstractIODevice {
public:
  /// How a file is opened; or-ed together into a mode.
  enum OpenFlag : unsigned int {
    Read = 0x01,       ///< reading
    Write = 0x02,      ///< writing at the position
    Append = 0x04,     ///< every write goes to the end (implies Write)
    Create = 0x08,     ///< create the file when it is missing
    Truncate = 0x10,   ///< cut an existing file to nothing
    Exclusive = 0x20,  ///< with Create: fail when the file exists
    Atomic = 0x40,     ///< atomic save (see above); with Write and Create
    /// The usual combinations.
    ReadWrite = Read | Write,
    Overwrite = Write | Create | Truncate,  ///< a new or emptied file
    AppendOrCreate = Append | Create,
    CreateNew = Write | Create | Exclusive
  };

  cFile();
  /// Opens on the system's file system.
  cFile(const cPath& path, unsigned int mode);
  /// Opens on `fs`, which must outlive the object.
  cFile(const cFs& fs, const cPath& path, unsigned int mode);
  ///@{
  /// Takes the open file over; `other` is left closed.
  cFile(cFile&& other) noexcept;
  cFile& operator=(cFile&& other) noexcept;
  ///@}
  ~cFile() override;

  /// Opens another file (closing this one first, reporting its errors). A
  /// mode without Read, Write or Append, Truncate without writing, or Atomic
  /// with Read, Append or without Create is a bug (cBugException).
  void open(const cPath& path, unsigned int mode);
  /// The same on `fs`.
  void open(const cFs& fs, const cPath& path, unsigned int mode);
  bool isOpen() const override;
  /// The file's path; empty when none was opened.
  const cPath& path() const { return mPath; }
  /// The OpenFlag values it was opened with.
  unsigned int mode() const { return miMode; }

  using cAbstractIODevice::write;
  unsigned int read(char* p, unsigned int n) override;
  void write(const char* p, unsigned int n) override;
  void seek(unsigned long long pos) override;
  unsigned long long pos() const override;
  unsigned long long size() const override;
  bool atEnd() const override;
  void readAll(qstd::tArray<char>& out) override;
  /// Cuts or extends the file (with zero bytes); the position stays.
  void resize(unsigned long long size);
  void flush() override;
  /// flush() and the disk.
  void sync();
  /// Flushes and closes; completes an atomic save. The file is closed
  /// afterwards even when this throws (an atomic save then did not happen).
  void close() override;
  /// Closes without writing what is buffered; an atomic save does not happen.
  void discard();

  /// Exchanges the open files.
  void swap(cFile& other) noexcept;

protected:
  cPath devicePath() const override { return mPath; }

private:
  void requireOpen(const char* operation) const;
  void flushBuffer() const;
  void dropReadBuffer() const;
  char* buffer() const;
  void release();

  qstd::tAutoPtr<cAbstractFileImpl> mpImpl;
  cPath mPath;
  unsigned int miMode;
  /// One buffer for either direction: bytes read ahead, or bytes not yet
  /// written. The impl's position is the buffer's start (written) or end (read).
  mutable char* mpBuffer;
  mutable unsigned int miBufferPos;
  mutable unsigned int miBufferLength;
  mutable bool mbBufferWrites;
};

}  // namespace qio

#endif
