// Reads a directory through FindFirstFileExW/FindNextFileW, which hand the
// attributes of each entry over with its name.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32DIRIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32DIRIMPL_H

#include <windows.h>

#include "qelcore/io/cabstractdirimpl.h"
#include "qelcore/io/cpath.h"

namespace qpi {

class cWin32DirImpl : public qio::cAbstractDirImpl {
public:
  // Opens the listing; throws NotFound, NotADirectory, ...
  explicit cWin32DirImpl(const qio::cPath& path);
  ~cWin32DirImpl() override;

  bool next(qucs::cString& name, qio::cFileAttributes::Type& type) override;
  void attributes(qio::cFileAttributes& out) override;

private:
  qio::cPath mPath;
  HANDLE mFind;
  bool mbPending;  // mData holds an entry not handed out yet
  bool mbCurrent;  // mData holds the current entry
  WIN32_FIND_DATAW mData;
  qucs::cString mName;
};

}  // namespace qpi

#endif
