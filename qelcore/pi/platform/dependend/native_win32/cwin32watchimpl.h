// Change notification through ReadDirectoryChangesW, overlapped: a request
// is always pending, and readChanges() only looks whether it completed.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32WATCHIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32WATCHIMPL_H

#include <windows.h>

#include "qelcore/io/cabstractwatchimpl.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

class cWin32WatchImpl : public qio::cAbstractWatchImpl {
public:
  // Null when the system refuses (the caller polls then).
  static qio::cAbstractWatchImpl* create(const qio::cPath& path);
  ~cWin32WatchImpl() override;

  bool readChanges(cSink& sink) override;

private:
  cWin32WatchImpl(HANDLE dir, bool directory, const qucs::cString& name);
  bool request();

  HANDLE mDir;
  bool mbDirectory;  // entries of the path; else the name `mName` in its parent
  qucs::cString mName;
  OVERLAPPED mOverlapped;
  bool mbPending;
  DWORD maBuffer[16384];  // DWORD-aligned, as the notifications must be
};

}  // namespace qpi

#endif
