// Change notification through inotify (Linux). The descriptor is
// non-blocking: readChanges() never waits.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXWATCHIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXWATCHIMPL_H

#include "qelcore/io/cabstractwatchimpl.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

class cPosixWatchImpl : public qio::cAbstractWatchImpl {
public:
  // Null where the system has no inotify (or no descriptor is left): the
  // caller polls then.
  static qio::cAbstractWatchImpl* create(const qio::cPath& path);
  ~cPosixWatchImpl() override;

  int descriptor() const override { return miFd; }
  bool readChanges(cSink& sink) override;

private:
  cPosixWatchImpl(int fd, bool directory, const qucs::cString& name);

  int miFd;
  bool mbDirectory;  // entries of the path; else the name `mName` in its parent
  qucs::cString mName;
};

}  // namespace qpi

#endif
