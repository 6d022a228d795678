#include "qelcore/pi/platform/dependend/native_win32/cwin32dirimpl.h"

#include <cwchar>

#include "qelcore/io/cioexceptions.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32fileinfoimpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32name.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

cWin32DirImpl::cWin32DirImpl(const qio::cPath& path)
    : mPath(path), mFind(INVALID_HANDLE_VALUE), mbPending(false), mbCurrent(false) {
  // "dir\*", but "*", "C:*" and "C:\*" for the current directory and roots.
  const qucs::cString& text = path.toString();
  const unsigned int last = text.size() ? text[text.size() - 1] : 0;
  cWin32Name pattern(path, "list", (last == 0 || last == '/' || last == ':') ? "*" : "\\*");
  mFind = FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &mData, FindExSearchNameMatch, nullptr,
                           FIND_FIRST_EX_LARGE_FETCH);
  if (mFind != INVALID_HANDLE_VALUE) {
    mbPending = true;
    return;
  }
  const DWORD error = GetLastError();
  // Only a drive's root can be empty of even "." and "..".
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_NO_MORE_FILES) return;
  cWin32Name name(path, "list");
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY))
    qio::cIOExceptions::throwError(qio::cIOException::NotADirectory, "list", path);
  qio::cIOExceptions::throwSystemError("list", path, static_cast<int>(error));
}

cWin32DirImpl::~cWin32DirImpl() {
  if (mFind != INVALID_HANDLE_VALUE) FindClose(mFind);
}

bool cWin32DirImpl::next(qucs::cString& name, qio::cFileAttributes::Type& type) {
  mbCurrent = false;
  for (;;) {
    if (!mbPending) {
      if (mFind == INVALID_HANDLE_VALUE) return false;
      if (!FindNextFileW(mFind, &mData)) {
        const DWORD error = GetLastError();
        FindClose(mFind);
        mFind = INVALID_HANDLE_VALUE;
        if (error == ERROR_NO_MORE_FILES) return false;
        qio::cIOExceptions::throwSystemError("list", mPath, static_cast<int>(error));
      }
    }
    mbPending = false;
    const wchar_t* n = mData.cFileName;
    if (n[0] == L'.' && (n[1] == 0 || (n[1] == L'.' && n[2] == 0))) continue;
    name.truncate(0);
    cWin32Name::decode(n, static_cast<unsigned int>(std::wcslen(n)), name);
    mName = name;
    mbCurrent = true;
    if (mData.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)
      type = qio::cFileAttributes::Missing;
    else
      type = (mData.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ? qio::cFileAttributes::Directory
                                                                 : qio::cFileAttributes::File;
    return true;
  }
}

void cWin32DirImpl::attributes(qio::cFileAttributes& out) {
  out = qio::cFileAttributes();
  if (!mbCurrent) return;
  if (mData.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) {
    // A link: what it leads to, through its whole path.
    const qio::cPath entry = mPath / qio::cPath(mName, mPath.style());
    cWin32Name name(entry, "stat");
    cWin32FileInfoImpl::read(name.c_str(), entry, out, "stat");
    return;
  }
  cWin32FileInfoImpl::fromAttributes(mData.dwFileAttributes, mData.nFileSizeHigh, mData.nFileSizeLow,
                                     mData.ftCreationTime, mData.ftLastAccessTime, mData.ftLastWriteTime, out);
}

}  // namespace qpi
