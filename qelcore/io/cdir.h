/// \class qio::cDir
/// A directory of a file system: list it, create it (with its parents),
/// remove it (with everything in it), copy or rename it.
///
/// \code
///   qio::cDir cache(qio::cFs::system().tempDirectory() / "myapp-cache");
///   cache.createAll();
///   qstd::tVector<qio::cFileInfo> files;        // include "qelcore/std/tvector.h"
///   cache.entries(files);
///   for (const qio::cFileInfo& f : files) total += f.size();
///   cache.removeAll();
/// \endcode
///
/// The listing functions fill their vector in name order (cPath's order);
/// cDirIterator walks entries without collecting them.
#ifndef QELCORE_IO_CDIR_H
#define QELCORE_IO_CDIR_H

#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"

namespace qstd {
template <typename T>
class tVector;
}

namespace qio {

class cFileInfo;

class QEL_EXPORT cDir {
public:
  /// On the system's file system.
  explicit cDir(const cPath& path);
  /// On `fs`, which must outlive the object.
  cDir(const cFs& fs, const cPath& path);

  /// The directory's path.
  const cPath& path() const { return mPath; }
  /// The file system it is on.
  const cFs& fs() const { return mFs; }
  /// An entry's path: path() / name.
  cPath filePath(const cPath& name) const { return mPath / name; }

  /// Whether the path exists and is a directory.
  bool exists() const;
  /// Whether it has no entries.
  bool isEmpty() const;
  /// The entries with their attributes, in name order; `out` is replaced.
  void entries(qstd::tVector<cFileInfo>& out) const;
  /// The entries' names only, in name order; `out` is replaced.
  void entryNames(qstd::tVector<qucs::cString>& out) const;

  /// This directory; its parent must exist.
  void create() const;
  /// With the missing parents; false when it existed already.
  bool createAll() const;
  /// An empty directory.
  void remove() const;
  /// With everything in it; the number of entries removed.
  unsigned long long removeAll() const;
  /// Everything in it into `target` (created as needed, merged into when it
  /// exists); existing files are replaced only with `replace`.
  void copyTo(const cPath& target, bool replace = false) const;
  /// Moves the directory; this object follows it.
  void rename(const cPath& to, bool replace = false);

private:
  cFs mFs;
  cPath mPath;
};

}  // namespace qio

#endif
