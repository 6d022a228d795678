#include "qelcore/pi/platform/dependend/native_win32/cwin32fileimpl.h"

#include "qelcore/io/cioexceptions.h"

namespace qpi {

namespace {

const unsigned int kChunk = 0x40000000u;

}  // namespace

cWin32FileImpl::cWin32FileImpl(const qio::cPath& path, HANDLE handle, bool append)
    : qio::cAbstractFileImpl(path), mHandle(handle), mbAppend(append), mbAtomic(false) {}

cWin32FileImpl::cWin32FileImpl(const qio::cPath& path, HANDLE handle, const qstd::tArray<wchar_t>& tempName,
                               const qstd::tArray<wchar_t>& targetName)
    : qio::cAbstractFileImpl(path),
      mHandle(handle),
      mbAppend(false),
      mbAtomic(true),
      mTempName(tempName),
      mTargetName(targetName) {}

cWin32FileImpl::~cWin32FileImpl() {
  if (mHandle != INVALID_HANDLE_VALUE) {
    CloseHandle(mHandle);
    if (mbAtomic) DeleteFileW(mTempName.data());
  }
}

void cWin32FileImpl::fail(const char* operation, DWORD error, qstd::cCallSite at) const {
  qio::cIOExceptions::throwSystemError(operation, path(), static_cast<int>(error), at);
}

unsigned int cWin32FileImpl::read(char* p, unsigned int n) {
  unsigned int done = 0;
  while (done < n) {
    const DWORD chunk = n - done < kChunk ? n - done : kChunk;
    DWORD got = 0;
    if (!ReadFile(mHandle, p + done, chunk, &got, nullptr)) {
      const DWORD error = GetLastError();
      if (error == ERROR_HANDLE_EOF || error == ERROR_BROKEN_PIPE) break;
      fail("read", error);
    }
    if (got == 0) break;
    done += got;
  }
  return done;
}

void cWin32FileImpl::write(const char* p, unsigned int n) {
  if (mbAppend) {
    LARGE_INTEGER zero;
    zero.QuadPart = 0;
    if (!SetFilePointerEx(mHandle, zero, nullptr, FILE_END)) fail("write", GetLastError());
  }
  unsigned int done = 0;
  while (done < n) {
    const DWORD chunk = n - done < kChunk ? n - done : kChunk;
    DWORD put = 0;
    if (!WriteFile(mHandle, p + done, chunk, &put, nullptr)) fail("write", GetLastError());
    if (put == 0) fail("write", ERROR_DISK_FULL);
    done += put;
  }
}

void cWin32FileImpl::seek(unsigned long long pos) {
  LARGE_INTEGER to;
  to.QuadPart = static_cast<LONGLONG>(pos);
  if (to.QuadPart < 0 || !SetFilePointerEx(mHandle, to, nullptr, FILE_BEGIN))
    fail("seek", to.QuadPart < 0 ? ERROR_NEGATIVE_SEEK : GetLastError());
}

unsigned long long cWin32FileImpl::pos() {
  LARGE_INTEGER zero, at;
  zero.QuadPart = 0;
  if (!SetFilePointerEx(mHandle, zero, &at, FILE_CURRENT)) fail("seek", GetLastError());
  return static_cast<unsigned long long>(at.QuadPart);
}

unsigned long long cWin32FileImpl::size() {
  LARGE_INTEGER size;
  if (!GetFileSizeEx(mHandle, &size)) fail("size", GetLastError());
  return static_cast<unsigned long long>(size.QuadPart);
}

void cWin32FileImpl::resize(unsigned long long newSize) {
  const unsigned long long at = pos();
  LARGE_INTEGER to;
  to.QuadPart = static_cast<LONGLONG>(newSize);
  if (to.QuadPart < 0) fail("resize", ERROR_INVALID_PARAMETER);
  const bool ok = SetFilePointerEx(mHandle, to, nullptr, FILE_BEGIN) && SetEndOfFile(mHandle);
  const DWORD error = ok ? 0 : GetLastError();
  seek(at);
  if (!ok) fail("resize", error);
}

void cWin32FileImpl::sync() {
  if (!FlushFileBuffers(mHandle)) fail("sync", GetLastError());
}

void cWin32FileImpl::close() {
  if (mHandle == INVALID_HANDLE_VALUE) return;
  HANDLE h = mHandle;
  mHandle = INVALID_HANDLE_VALUE;
  if (!mbAtomic) {
    if (!CloseHandle(h)) fail("close", GetLastError());
    return;
  }
  // On the disk before it takes the target's name.
  DWORD error = 0;
  if (!FlushFileBuffers(h)) error = GetLastError();
  if (!CloseHandle(h) && error == 0) error = GetLastError();
  if (error == 0 &&
      !MoveFileExW(mTempName.data(), mTargetName.data(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    error = GetLastError();
  if (error != 0) {
    DeleteFileW(mTempName.data());
    fail("save", error);
  }
}

}  // namespace qpi
