/// \class qio::cProxyFs
/// Binds file systems into one tree at mount points. A path goes to the file
/// system mounted at its longest matching mount point, and arrives there
/// relative to that file system's root: with a cMemoryFs mounted at "/res",
/// "/res/icons/a.png" is "/icons/a.png" in it. The file system mounted at "/"
/// takes every path no other mount point claims, unchanged (relative paths,
/// drive and UNC paths included), which is how the system's file system
/// passes everything else to the native one.
///
/// \code
///   qio::cMemoryFs res;
///   qio::cProxyFs::system().mount("/res", res);
///   qio::cFs::system().exists("/res/icons/a.png");
///   qio::cProxyFs::system().unmount("/res");
/// \endcode
///
/// Paths are normalised before they are matched ("/res/../etc" is not below
/// "/res"). Directories that lead to mount points exist in the tree even
/// where no mounted file system has them, and a listing shows mount points
/// as directories. A rename between two mounted file systems fails with
/// CrossDevice; a copy works. Exceptions name the paths as given to the proxy.
/// The proxy shares the mounted file systems: they live while mounted.
#ifndef QELCORE_IO_CPROXYFS_H
#define QELCORE_IO_CPROXYFS_H

#include "qelcore/io/cfs.h"
#include "qelcore/qelexport.h"

namespace qio {

class QEL_EXPORT cProxyFs : public cFs {
public:
  /// Nothing mounted: every path is missing.
  cProxyFs();

  /// The system's file system.
  static cProxyFs system();

  /// Binds `fs` at `at`, an absolute path ("/" for everything). A taken mount
  /// point fails with AlreadyExists; a file system that contains this proxy
  /// (or is it) is a bug.
  void mount(const cPath& at, const cFs& fs);
  /// NotFound when nothing is mounted there.
  void unmount(const cPath& at);
  /// Whether a file system is mounted at `at`.
  bool isMountPoint(const cPath& at) const;
  /// The file system that serves `path` and the path there; NotFound when
  /// none does.
  cFs resolve(const cPath& path, cPath& inner) const;

private:
  explicit cProxyFs(const cFs& fs);
};

}  // namespace qio

#endif
