// An open Win32 file handle. In atomic mode it writes a temporary file
// beside the target and moves it over the target on close().
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32FILEIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32FILEIMPL_H

#include <windows.h>

#include "qelcore/io/cabstractfileimpl.h"
#include "qelcore/std/ccallsite.h"
#include "qelcore/std/tarray.h"

namespace qpi {

class cWin32FileImpl : public qio::cAbstractFileImpl {
public:
  // Takes `handle` over. In append mode every write goes to the end.
  cWin32FileImpl(const qio::cPath& path, HANDLE handle, bool append);
  // Atomic mode: `handle` is open on the temporary file `tempName` beside
  // the target `targetName` (both NUL-terminated).
  cWin32FileImpl(const qio::cPath& path, HANDLE handle, const qstd::tArray<wchar_t>& tempName,
                 const qstd::tArray<wchar_t>& targetName);
  ~cWin32FileImpl() override;

  unsigned int read(char* p, unsigned int n) override;
  void write(const char* p, unsigned int n) override;
  void seek(unsigned long long pos) override;
  unsigned long long pos() override;
  unsigned long long size() override;
  void resize(unsigned long long size) override;
  void sync() override;
  void close() override;

private:
  [[noreturn]] void fail(const char* operation, DWORD error, qstd::cCallSite at = qstd::cCallSite::here()) const;

  HANDLE mHandle;
  bool mbAppend;
  bool mbAtomic;
  qstd::tArray<wchar_t> mTempName;
  qstd::tArray<wchar_t> mTargetName;
};

}  // namespace qpi

#endif
