// The native file system on POSIX systems.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXFSIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXFSIMPL_H

#include "qelcore/io/cabstractfsimpl.h"

namespace qpi {

class cPosixFsImpl : public qio::cAbstractFsImpl {
public:
  bool attributes(const qio::cPath& path, qio::cFileAttributes& out) override;
  qstd::tAutoPtr<qio::cAbstractFileImpl> open(const qio::cPath& path, unsigned int mode) override;
  qstd::tAutoPtr<qio::cAbstractDirImpl> openDir(const qio::cPath& path) override;
  void createDir(const qio::cPath& path) override;
  void remove(const qio::cPath& path) override;
  void rename(const qio::cPath& from, const qio::cPath& to, bool replace) override;
  void setPermissions(const qio::cPath& path, unsigned int permissions) override;
  void setModificationTime(const qio::cPath& path, const qstd::cTime& time) override;
  qio::cPath currentDirectory() override;
  qio::cPath tempDirectory() override;
  qstd::tAutoPtr<qio::cAbstractWatchImpl> createWatch(const qio::cPath& path) override;

private:
  qstd::tAutoPtr<qio::cAbstractFileImpl> openAtomic(const qio::cPath& path);
};

}  // namespace qpi

#endif
