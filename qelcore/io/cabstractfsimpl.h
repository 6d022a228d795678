/// \class qio::cAbstractFsImpl
/// The interface of a file system: what cFs, cFile, cDir and the others need
/// from one. The platform provides the native one; cMemoryFs and cProxyFs are
/// others, and an application may write its own (a file system inside an
/// archive, say) and mount it into the system's file system.
///
/// Paths arrive as given to cFs (cProxyFs hands its file systems absolute,
/// normalised paths). Every failure throws cIOException through cIOExceptions
/// with the operation and the path. An implementation is shared by all cFs
/// handles that refer to it and must allow calls from several threads.
#ifndef QELCORE_IO_CABSTRACTFSIMPL_H
#define QELCORE_IO_CABSTRACTFSIMPL_H

#include "qelcore/io/cabstractdirimpl.h"
#include "qelcore/io/cabstractfileimpl.h"
#include "qelcore/io/cabstractwatchimpl.h"
#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qio {

class QEL_EXPORT cAbstractFsImpl {
public:
  cAbstractFsImpl();
  cAbstractFsImpl(const cAbstractFsImpl&) = delete;
  cAbstractFsImpl& operator=(const cAbstractFsImpl&) = delete;
  virtual ~cAbstractFsImpl();

  /// Fills `out` and returns true; false when nothing is at the path (a
  /// missing component or a dangling link, then `out` tells isSymLink()).
  virtual bool attributes(const cPath& path, cFileAttributes& out) = 0;
  /// `mode` is a combination of cFile's open flags, already checked.
  virtual qstd::tAutoPtr<cAbstractFileImpl> open(const cPath& path, unsigned int mode) = 0;
  virtual qstd::tAutoPtr<cAbstractDirImpl> openDir(const cPath& path) = 0;
  /// One directory; its parent must exist and the path must be free.
  virtual void createDir(const cPath& path) = 0;
  /// A file, a link or an empty directory.
  virtual void remove(const cPath& path) = 0;
  /// Within this file system. Without `replace` an existing target fails
  /// with AlreadyExists; with it a file replaces a file, and a directory an
  /// empty directory.
  virtual void rename(const cPath& from, const cPath& to, bool replace) = 0;
  virtual void setPermissions(const cPath& path, unsigned int permissions) = 0;
  virtual void setModificationTime(const cPath& path, const qstd::cTime& time) = 0;

  /// Copies the content of a file (and its permissions). The default streams
  /// it through open().
  virtual void copyFile(const cPath& from, const cPath& to, bool replace);
  /// Where relative paths start; "/" by default.
  virtual cPath currentDirectory();
  /// A directory for temporary files; the default says Unsupported.
  virtual cPath tempDirectory();
  /// A native change notification for `path`, or null when the file system
  /// has none (then cFileWatch polls). The default has none.
  virtual qstd::tAutoPtr<cAbstractWatchImpl> createWatch(const cPath& path);

private:
  /// Shared by cFs handles; the counts are atomic.
  friend class cFs;
  void addRef() const;
  /// True when that was the last reference.
  bool releaseRef() const;

  mutable unsigned int miRefs;
};

}  // namespace qio

#endif
