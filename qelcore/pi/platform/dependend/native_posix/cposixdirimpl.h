// Reads a directory through opendir/readdir; attributes of an entry are
// read relative to the open directory (fstatat), which spares the system
// the walk along the whole path.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXDIRIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXDIRIMPL_H

#include <dirent.h>

#include "qelcore/io/cabstractdirimpl.h"
#include "qelcore/io/cpath.h"

namespace qpi {

class cPosixDirImpl : public qio::cAbstractDirImpl {
public:
  // Takes `dir` over.
  cPosixDirImpl(const qio::cPath& path, DIR* dir);
  ~cPosixDirImpl() override;

  bool next(qucs::cString& name, qio::cFileAttributes::Type& type) override;
  void attributes(qio::cFileAttributes& out) override;

private:
  qio::cPath mPath;
  DIR* mpDir;
  const char* mpName;  // the current entry's name, owned by the DIR stream
};

}  // namespace qpi

#endif
