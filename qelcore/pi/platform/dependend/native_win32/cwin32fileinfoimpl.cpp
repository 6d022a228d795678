#include "qelcore/pi/platform/dependend/native_win32/cwin32fileinfoimpl.h"

#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/cpath.h"

namespace qpi {

namespace {

// FILETIME counts 100 ns units since 1601-01-01; this many lie before 1970.
const unsigned long long kEpochIn100ns = 116444736000000000ull;

}  // namespace

unsigned long long cWin32FileInfoImpl::toMicros(const FILETIME& ft) {
  const unsigned long long units = (static_cast<unsigned long long>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
  return units < kEpochIn100ns ? 0 : (units - kEpochIn100ns) / 10ull;
}

FILETIME cWin32FileInfoImpl::fromMicros(unsigned long long micros) {
  const unsigned long long units = micros * 10ull + kEpochIn100ns;
  FILETIME ft;
  ft.dwLowDateTime = static_cast<DWORD>(units & 0xFFFFFFFFu);
  ft.dwHighDateTime = static_cast<DWORD>(units >> 32);
  return ft;
}

void cWin32FileInfoImpl::fromAttributes(DWORD attributes, DWORD sizeHigh, DWORD sizeLow, const FILETIME& created,
                                        const FILETIME& accessed, const FILETIME& modified, qio::cFileAttributes& out) {
  const bool dir = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  out.setType(dir ? qio::cFileAttributes::Directory
                  : ((attributes & FILE_ATTRIBUTE_DEVICE) ? qio::cFileAttributes::Other : qio::cFileAttributes::File));
  out.setSize(dir ? 0 : (static_cast<unsigned long long>(sizeHigh) << 32) | sizeLow);
  out.setPermissions(dir ? (readOnly ? 0555u : 0777u) : (readOnly ? 0444u : 0666u));
  out.setHidden((attributes & FILE_ATTRIBUTE_HIDDEN) != 0);
  out.setCreationTime(qstd::cTime(toMicros(created)));
  out.setAccessTime(qstd::cTime(toMicros(accessed)));
  out.setModificationTime(qstd::cTime(toMicros(modified)));
}

bool cWin32FileInfoImpl::isMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_BAD_NETPATH ||
         error == ERROR_BAD_NET_NAME || error == ERROR_INVALID_DRIVE || error == ERROR_NOT_READY;
}

bool cWin32FileInfoImpl::read(const wchar_t* name, const qio::cPath& path, qio::cFileAttributes& out,
                              const char* operation) {
  out = qio::cFileAttributes();
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(name, GetFileExInfoStandard, &data)) {
    const DWORD error = GetLastError();
    if (isMissing(error)) return false;
    qio::cIOExceptions::throwSystemError(operation, path, static_cast<int>(error));
  }
  if (!(data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)) {
    fromAttributes(data.dwFileAttributes, data.nFileSizeHigh, data.nFileSizeLow, data.ftCreationTime,
                   data.ftLastAccessTime, data.ftLastWriteTime, out);
    return true;
  }
  // A link: what it leads to.
  out.setSymLink(true);
  HANDLE h = CreateFileW(name, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (h == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    if (isMissing(error)) return false;
    qio::cIOExceptions::throwSystemError(operation, path, static_cast<int>(error));
  }
  BY_HANDLE_FILE_INFORMATION info;
  const BOOL ok = GetFileInformationByHandle(h, &info);
  const DWORD error = GetLastError();
  CloseHandle(h);
  if (!ok) qio::cIOExceptions::throwSystemError(operation, path, static_cast<int>(error));
  fromAttributes(info.dwFileAttributes, info.nFileSizeHigh, info.nFileSizeLow, info.ftCreationTime,
                 info.ftLastAccessTime, info.ftLastWriteTime, out);
  out.setSymLink(true);
  return true;
}

}  // namespace qpi
