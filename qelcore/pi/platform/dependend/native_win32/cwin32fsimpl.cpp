#include "qelcore/pi/platform/dependend/native_win32/cwin32fsimpl.h"

#include <atomic>
#include <windows.h>

#include "qelcore/io/cfile.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32dirimpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32fileimpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32fileinfoimpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32name.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32watchimpl.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

[[noreturn]] void fail(const char* operation, const qio::cPath& path, DWORD error,
                       qstd::cCallSite at = qstd::cCallSite::here()) {
  qio::cIOExceptions::throwSystemError(operation, path, static_cast<int>(error), at);
}

// Shared like POSIX files: others may read, write, rename and delete.
const DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::atomic<unsigned int> gTempCounter(0);

qstd::tArray<wchar_t> copyName(const cWin32Name& name) {
  return qstd::tArray<wchar_t>(name.c_str(), name.length() + 1);
}

}  // namespace

bool cWin32FsImpl::attributes(const qio::cPath& path, qio::cFileAttributes& out) {
  cWin32Name name(path, "stat");
  return cWin32FileInfoImpl::read(name.c_str(), path, out, "stat");
}

qstd::tAutoPtr<qio::cAbstractFileImpl> cWin32FsImpl::open(const qio::cPath& path, unsigned int mode) {
  if (mode & qio::cFile::Atomic) return openAtomic(path);
  cWin32Name name(path, "open");
  DWORD access = 0;
  if (mode & qio::cFile::Read) access |= GENERIC_READ;
  if (mode & qio::cFile::Write) access |= GENERIC_WRITE;
  if (mode & qio::cFile::Append) access |= FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE;
  DWORD disposition = OPEN_EXISTING;
  const bool truncate = (mode & qio::cFile::Truncate) != 0;
  if (mode & qio::cFile::Create) {
    // OPEN_ALWAYS and a cut, not CREATE_ALWAYS: that would also reset the
    // attributes of an existing file and refuse hidden ones.
    disposition = (mode & qio::cFile::Exclusive) ? CREATE_NEW : OPEN_ALWAYS;
  } else if (truncate) {
    disposition = TRUNCATE_EXISTING;
  }
  HANDLE h = CreateFileW(name.c_str(), access, kShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    if (error == ERROR_ACCESS_DENIED) {
      const DWORD attributes = GetFileAttributesW(name.c_str());
      if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
        qio::cIOExceptions::throwError(qio::cIOException::IsADirectory, "open", path);
    }
    fail("open", path, error);
  }
  if (truncate && disposition == OPEN_ALWAYS && !SetEndOfFile(h)) {
    const DWORD error = GetLastError();
    CloseHandle(h);
    fail("open", path, error);
  }
  return qstd::tAutoPtr<qio::cAbstractFileImpl>(new cWin32FileImpl(path, h, (mode & qio::cFile::Append) != 0));
}

qstd::tAutoPtr<qio::cAbstractFileImpl> cWin32FsImpl::openAtomic(const qio::cPath& path) {
  cWin32Name target(path, "open");
  const DWORD existing = GetFileAttributesW(target.c_str());
  if (existing != INVALID_FILE_ATTRIBUTES && (existing & FILE_ATTRIBUTE_DIRECTORY))
    qio::cIOExceptions::throwError(qio::cIOException::IsADirectory, "open", path);
  // A hidden name beside the target: the move stays on one volume.
  const qio::cPath dir = path.parent();
  for (unsigned int attempt = 0;; ++attempt) {
    qucs::cString tempName(".");
    const qucs::cString name = path.fileName();
    // Short enough that the suffix keeps it within the system's limit.
    tempName.append(name.data(true), name.size() < 200 ? name.size() : 200);
    tempName.appendC(".tmp-");
    tempName.addUNum32(static_cast<unsigned int>(GetCurrentProcessId()));
    tempName.append('-');
    tempName.addUNum32(gTempCounter.fetch_add(1));
    const qio::cPath tempPath = dir / qio::cPath(tempName, path.style());
    cWin32Name temp(tempPath, "open");
    HANDLE h = CreateFileW(temp.c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE) {
      const DWORD error = GetLastError();
      if ((error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) && attempt < 100) continue;
      fail("open", path, error);
    }
    return qstd::tAutoPtr<qio::cAbstractFileImpl>(new cWin32FileImpl(path, h, copyName(temp), copyName(target)));
  }
}

qstd::tAutoPtr<qio::cAbstractDirImpl> cWin32FsImpl::openDir(const qio::cPath& path) {
  return qstd::tAutoPtr<qio::cAbstractDirImpl>(new cWin32DirImpl(path));
}

void cWin32FsImpl::createDir(const qio::cPath& path) {
  cWin32Name name(path, "createDir");
  if (!CreateDirectoryW(name.c_str(), nullptr)) fail("createDir", path, GetLastError());
}

void cWin32FsImpl::remove(const qio::cPath& path) {
  cWin32Name name(path, "remove");
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) fail("remove", path, GetLastError());
  const bool dir = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // POSIX removes read-only files as well; so do we.
  if ((attributes & FILE_ATTRIBUTE_READONLY) && !dir)
    SetFileAttributesW(name.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
  if (dir ? RemoveDirectoryW(name.c_str()) : DeleteFileW(name.c_str())) return;
  const DWORD error = GetLastError();
  if ((attributes & FILE_ATTRIBUTE_READONLY) && !dir) SetFileAttributesW(name.c_str(), attributes);
  fail("remove", path, error);
}

void cWin32FsImpl::rename(const qio::cPath& from, const qio::cPath& to, bool replace) {
  cWin32Name a(from, "rename");
  cWin32Name b(to, "rename");
  bool replacedDir = false;
  if (replace) {
    // A directory takes the place of an empty directory, as on POSIX.
    const DWORD source = GetFileAttributesW(a.c_str());
    const DWORD target = GetFileAttributesW(b.c_str());
    if (source != INVALID_FILE_ATTRIBUTES && target != INVALID_FILE_ATTRIBUTES && (source & FILE_ATTRIBUTE_DIRECTORY) &&
        (target & FILE_ATTRIBUTE_DIRECTORY)) {
      if (!RemoveDirectoryW(b.c_str()))
        qio::cIOExceptions::throwSystemError("rename", from, to, static_cast<int>(GetLastError()));
      replacedDir = true;
    }
  }
  if (!MoveFileExW(a.c_str(), b.c_str(), replace ? MOVEFILE_REPLACE_EXISTING : 0)) {
    const DWORD error = GetLastError();
    if (replacedDir) CreateDirectoryW(b.c_str(), nullptr);  // the empty directory comes back
    qio::cIOExceptions::throwSystemError("rename", from, to, static_cast<int>(error));
  }
}

void cWin32FsImpl::setPermissions(const qio::cPath& path, unsigned int permissions) {
  cWin32Name name(path, "setPermissions");
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) fail("setPermissions", path, GetLastError());
  // Windows keeps one bit of it: read-only, when the owner may not write.
  DWORD changed = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
  if (!(permissions & qio::cFileAttributes::OwnerWrite)) changed |= FILE_ATTRIBUTE_READONLY;
  if (changed != attributes && !SetFileAttributesW(name.c_str(), changed)) fail("setPermissions", path, GetLastError());
}

void cWin32FsImpl::setModificationTime(const qio::cPath& path, const qstd::cTime& time) {
  cWin32Name name(path, "setModificationTime");
  HANDLE h = CreateFileW(name.c_str(), FILE_WRITE_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (h == INVALID_HANDLE_VALUE) fail("setModificationTime", path, GetLastError());
  const FILETIME ft = cWin32FileInfoImpl::fromMicros(time.get());
  const BOOL ok = SetFileTime(h, nullptr, nullptr, &ft);
  const DWORD error = GetLastError();
  CloseHandle(h);
  if (!ok) fail("setModificationTime", path, error);
}

qio::cPath cWin32FsImpl::currentDirectory() {
  const DWORD n = GetCurrentDirectoryW(0, nullptr);
  qstd::tArray<wchar_t> buffer(n + 1);
  const DWORD got = GetCurrentDirectoryW(n + 1, buffer.data());
  if (got == 0 || got > n) fail("currentDirectory", qio::cPath("."), GetLastError());
  qucs::cString text;
  cWin32Name::decode(buffer.data(), got, text);
  return qio::cPath(text);
}

qio::cPath cWin32FsImpl::tempDirectory() {
  wchar_t buffer[MAX_PATH + 2];
  const DWORD got = GetTempPathW(MAX_PATH + 1, buffer);
  if (got == 0 || got > MAX_PATH + 1) fail("tempDirectory", qio::cPath(), GetLastError());
  qucs::cString text;
  cWin32Name::decode(buffer, got, text);
  return qio::cPath(text);
}

qstd::tAutoPtr<qio::cAbstractWatchImpl> cWin32FsImpl::createWatch(const qio::cPath& path) {
  return qstd::tAutoPtr<qio::cAbstractWatchImpl>(cWin32WatchImpl::create(path));
}

}  // namespace qpi
