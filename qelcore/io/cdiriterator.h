/// \class qio::cDirIterator
/// Walks the entries of a directory, or of a whole tree, one at a time; the
/// cheapest way to look at many entries.
///
/// \code
///   for (qio::cDirIterator it("logs"); it.next();)
///     if (it.attributes().size() > limit) qio::cFs::system().remove(it.path());
/// \endcode
///
/// Entries come in the file system's order, without "." and "..". With
/// Recursive the entries of a directory follow right after it (depth first);
/// links to directories are listed but not entered. attributes() costs a
/// system call per entry on POSIX (none on Windows), and only when asked.
#ifndef QELCORE_IO_CDIRITERATOR_H
#define QELCORE_IO_CDIRITERATOR_H

#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"

namespace qio {

class QEL_EXPORT cDirIterator {
public:
  /// Recursive: walk the subdirectories too, each after its own entry.
  enum Flag { Recursive = 0x1 };

  /// On the system's file system. Opening the directory may throw (NotFound,
  /// NotADirectory, PermissionDenied).
  explicit cDirIterator(const cPath& dir, unsigned int flags = 0);
  /// The same on `fs`.
  cDirIterator(const cFs& fs, const cPath& dir, unsigned int flags = 0);
  cDirIterator(const cDirIterator&) = delete;
  cDirIterator& operator=(const cDirIterator&) = delete;
  ~cDirIterator();

  /// Moves to the next entry; false when there is none.
  bool next();
  /// Of the current entry.
  const qucs::cString& name() const;
  /// The directory given, then the entry's path below it.
  cPath path() const;
  /// The type of the current entry (read when first asked).
  cFileAttributes::Type type();
  /// All attributes of the current entry (read when first asked).
  const cFileAttributes& attributes();
  /// 0 for entries of the directory given, 1 below them, ...
  unsigned int depth() const;

private:
  class cIteratorImpl;
  cIteratorImpl* mpImpl;
};

}  // namespace qio

#endif
