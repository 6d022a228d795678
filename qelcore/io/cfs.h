/// \class qio::cFs
/// A file system: the native one of the platform, an in-memory one
/// (cMemoryFs), or several bound into one tree (cProxyFs, which is what the
/// system object holds: the native file system at "/" and whatever an
/// application mounts elsewhere).
///
/// cFs is a handle: copies refer to the same file system, which lives as long
/// as a handle, a mount, a cDir, cFileInfo or watch refers to it. Open files
/// do not need it. All functions may be called from several threads.
///
/// \code
///   qio::cFs fs = qio::cFs::system();
///   fs.createDirs("out/reports");
///   fs.writeAll("out/reports/today.txt", text);          // an atomic save
///   if (fs.exists("out/old")) fs.removeAll("out/old");
///   fs.rename("out/reports", "out/archive");
/// \endcode
///
/// Failures throw cIOException with the operation, the path and the
/// system's error text.
#ifndef QELCORE_IO_CFS_H
#define QELCORE_IO_CFS_H

#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qio {

class cAbstractFsImpl;

class QEL_EXPORT cFs {
public:
  /// The platform's native file system (relative paths start at the
  /// process's current directory).
  cFs();
  /// A file system over `impl`, shared by the handles from now on.
  explicit cFs(qstd::tAutoPtr<cAbstractFsImpl> impl);
  ///@{
  /// Handles share the file system; copies are cheap. swap() exchanges two handles.
  cFs(const cFs& other);
  cFs& operator=(const cFs& other);
  virtual ~cFs();
  void swap(cFs& other) noexcept;
  ///@}

  /// The system object's file system (qpi::system().fs(), which creates the
  /// system object on first use: do that on one thread before others start).
  static cFs system();

  /// Whether both handles refer to the same file system.
  bool operator==(const cFs& other) const { return mpImpl == other.mpImpl; }
  /// Not operator==.
  bool operator!=(const cFs& other) const { return mpImpl != other.mpImpl; }
  /// The implementation, for the library's own classes.
  cAbstractFsImpl& impl() const { return *mpImpl; }

  /// Whether anything is at `path`.
  bool exists(const cPath& path) const;
  /// Whether a regular file is at `path`.
  bool isFile(const cPath& path) const;
  /// Whether a directory is at `path`.
  bool isDirectory(const cPath& path) const;
  /// Throws NotFound when nothing is there.
  cFileAttributes attributes(const cPath& path) const;
  /// False when nothing is there.
  bool tryAttributes(const cPath& path, cFileAttributes& out) const;

  /// One directory; the parent must exist.
  void createDir(const cPath& path) const;
  /// The directory and its missing parents (the path taken normalised); an
  /// existing directory is fine. Returns whether anything was created.
  bool createDirs(const cPath& path) const;
  /// A file, a link or an empty directory.
  void remove(const cPath& path) const;
  /// The path and everything below it; links are removed, never followed.
  /// Returns the number of entries removed (0 when nothing was there).
  unsigned long long removeAll(const cPath& path) const;
  /// Within one file system (mounted file systems of a proxy are apart:
  /// CrossDevice). Without `replace` an existing target is an error.
  void rename(const cPath& from, const cPath& to, bool replace = false) const;
  /// The content and permissions of a file.
  void copyFile(const cPath& from, const cPath& to, bool replace = false) const;
  /// A file, or a directory with everything below it, into `to` (created as
  /// needed; an existing directory is merged into). Existing files are
  /// replaced only with `replace`. Links to directories are not followed.
  void copyAll(const cPath& from, const cPath& to, bool replace = false) const;

  /// Sets the permission bits (see cFileAttributes::Permission).
  void setPermissions(const cPath& path, unsigned int permissions) const;
  /// Sets the time of the last change.
  void setModificationTime(const cPath& path, const qstd::cTime& time) const;

  /// Appends the whole content of a file to `out`.
  void readAll(const cPath& path, qstd::tArray<char>& out) const;
  ///@{
  /// Replaces the content of a file (creating it); an atomic save unless
  /// `atomic` is false.
  void writeAll(const cPath& path, const char* p, unsigned int n, bool atomic = true) const;
  void writeAll(const cPath& path, const qstd::tArray<char>& bytes, bool atomic = true) const;
  ///@}

  /// The directory relative paths are taken against.
  cPath currentDirectory() const;
  /// The path made absolute against currentDirectory() and normalised.
  cPath absolute(const cPath& path) const;
  /// The directory for temporary files.
  cPath tempDirectory() const;

protected:
  /// Another handle to an implementation that is already shared.
  explicit cFs(cAbstractFsImpl& shared);

private:
  friend class cProxyFsImpl;
  friend class cFileInfo;
  /// A handle to no file system yet (cFileInfo takes the system's when it
  /// first needs one); only copying and destroying it are allowed.
  struct cNone {};
  explicit cFs(cNone) : mpImpl(nullptr) {}

  void removeTree(const cPath& path, unsigned long long& count) const;

  cAbstractFsImpl* mpImpl;
};

}  // namespace qio

#endif
