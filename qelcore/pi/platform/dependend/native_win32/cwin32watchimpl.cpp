#include "qelcore/pi/platform/dependend/native_win32/cwin32watchimpl.h"

#include <cstring>

#include "qelcore/pi/platform/dependend/native_win32/cwin32name.h"

namespace qpi {

namespace {

const DWORD kFilter = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
                      FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_ATTRIBUTES;

}  // namespace

qio::cAbstractWatchImpl* cWin32WatchImpl::create(const qio::cPath& path) {
  cWin32Name name(path, "watch");
  const DWORD attributes = GetFileAttributesW(name.c_str());
  const bool directory = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  qio::cPath dirPath = path;
  if (!directory) {
    // The directory that holds the name: a file replaced by a rename stays watched.
    dirPath = path.parent();
    if (dirPath.isEmpty()) dirPath = qio::cPath(".");
  }
  cWin32Name dir(dirPath, "watch");
  HANDLE h = CreateFileW(dir.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED, nullptr);
  if (h == INVALID_HANDLE_VALUE) return nullptr;
  cWin32WatchImpl* watch = new cWin32WatchImpl(h, directory, directory ? qucs::cString() : path.fileName());
  if (!watch->request()) {
    delete watch;
    return nullptr;
  }
  return watch;
}

cWin32WatchImpl::cWin32WatchImpl(HANDLE dir, bool directory, const qucs::cString& name)
    : mDir(dir), mbDirectory(directory), mName(name), mbPending(false) {
  std::memset(&mOverlapped, 0, sizeof mOverlapped);
  mOverlapped.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
}

cWin32WatchImpl::~cWin32WatchImpl() {
  if (mbPending) {
    CancelIo(mDir);
    DWORD ignored;
    GetOverlappedResult(mDir, &mOverlapped, &ignored, TRUE);
  }
  CloseHandle(mDir);
  if (mOverlapped.hEvent) CloseHandle(mOverlapped.hEvent);
}

bool cWin32WatchImpl::request() {
  if (!mOverlapped.hEvent) return false;
  ResetEvent(mOverlapped.hEvent);
  mbPending = ReadDirectoryChangesW(mDir, maBuffer, sizeof maBuffer, FALSE, kFilter, nullptr, &mOverlapped, nullptr);
  return mbPending;
}

bool cWin32WatchImpl::readChanges(cSink& sink) {
  bool complete = true;
  qucs::cString name;
  while (mbPending) {
    DWORD got = 0;
    if (!GetOverlappedResult(mDir, &mOverlapped, &got, FALSE)) {
      if (GetLastError() == ERROR_IO_INCOMPLETE) break;
      // The directory went (or the request failed): nothing comes any more.
      mbPending = false;
      if (mbDirectory) sink.changed(Removed, qucs::cString());
      break;
    }
    mbPending = false;
    // No bytes: more happened than the buffer could hold.
    if (got == 0) complete = false;
    const char* p = reinterpret_cast<const char*>(maBuffer);
    for (DWORD at = 0; got != 0 && at < got;) {
      const FILE_NOTIFY_INFORMATION* e = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(p + at);
      name.truncate(0);
      cWin32Name::decode(e->FileName, e->FileNameLength / sizeof(WCHAR), name);
      const bool ours = mbDirectory || name == mName;
      if (!mbDirectory) name.truncate(0);
      if (ours) {
        switch (e->Action) {
          case FILE_ACTION_ADDED:
          case FILE_ACTION_RENAMED_NEW_NAME:
            sink.changed(Created, name);
            break;
          case FILE_ACTION_REMOVED:
          case FILE_ACTION_RENAMED_OLD_NAME:
            sink.changed(Removed, name);
            break;
          default:
            sink.changed(Modified, name);
            break;
        }
      }
      if (e->NextEntryOffset == 0) break;
      at += e->NextEntryOffset;
    }
    request();
  }
  return complete;
}

}  // namespace qpi
