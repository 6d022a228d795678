/// \class qio::cMemoryFs
/// A file system that keeps everything in memory: for tests, and for
/// resources an application embeds and mounts into the system's file system.
///
/// \code
///   qio::cMemoryFs res;
///   res.createDirs("/icons");
///   res.writeAll("/icons/app.png", pngBytes);
///   qio::cProxyFs::system().mount("/res", res);
///   qio::cFile icon("/res/icons/app.png", qio::cFile::Read);
/// \endcode
///
/// It behaves like a POSIX file system: "/" is its root (relative paths start
/// there, drive names are not found), a file removed or replaced while open
/// stays readable through the open file, and a file without the owner's read
/// or write permission cannot be opened for that. With a capacity, writes
/// that would hold more bytes of file content fail with NoSpace and change
/// nothing.
#ifndef QELCORE_IO_CMEMORYFS_H
#define QELCORE_IO_CMEMORYFS_H

#include "qelcore/io/cfs.h"
#include "qelcore/qelexport.h"

namespace qio {

class QEL_EXPORT cMemoryFs : public cFs {
public:
  /// Without a limit.
  cMemoryFs();
  /// At most `capacity` bytes of file content; writing more fails with NoSpace.
  explicit cMemoryFs(unsigned long long capacity);

  /// Bytes of file content held now (removed files that are still open
  /// included).
  unsigned long long usedBytes() const;
  /// The limit given (the largest value when there is none).
  unsigned long long capacity() const;
};

}  // namespace qio

#endif
