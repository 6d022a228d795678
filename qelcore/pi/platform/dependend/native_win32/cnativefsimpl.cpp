#include "qelcore/pi/platform/cnativefsimpl.h"

#include <windows.h>

#include "qelcore/io/cioexception.h"
#include "qelcore/io/cpath.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32fsimpl.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

qstd::tAutoPtr<qio::cAbstractFsImpl> cNativeFsImpl::create(qio::cFs&) {
  return qstd::tAutoPtr<qio::cAbstractFsImpl>(new cWin32FsImpl);
}

int cNativeFsImpl::pathStyle() { return qio::cPath::WindowsStyle; }

int cNativeFsImpl::errorKind(int code) {
  switch (static_cast<DWORD>(code)) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return qio::cIOException::NotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return qio::cIOException::PermissionDenied;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return qio::cIOException::AlreadyExists;
    case ERROR_DIRECTORY:
      return qio::cIOException::NotADirectory;
    case ERROR_DIR_NOT_EMPTY:
      return qio::cIOException::DirectoryNotEmpty;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return qio::cIOException::NoSpace;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return qio::cIOException::InvalidName;
    case ERROR_NOT_SAME_DEVICE:
      return qio::cIOException::CrossDevice;
    case ERROR_INVALID_HANDLE:
      return qio::cIOException::NotOpen;
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED:
      return qio::cIOException::Unsupported;
    default:
      return qio::cIOException::Other;
  }
}

void cNativeFsImpl::errorText(int code, qucs::cString& out) {
  wchar_t* text = nullptr;
  const DWORD n =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, static_cast<DWORD>(code), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                     reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  out.truncate(0);
  for (DWORD i = 0; i < n; ++i)
    if (text[i] != L'\r' && text[i] != L'\n')
      out.append(static_cast<unsigned int>(static_cast<unsigned short>(text[i])));
  if (text) LocalFree(text);
  out.rtrim();
  if (out.size() == 0) {
    out = "System error ";
    out.addNum32(code);
  }
}

unsigned int cNativeFsImpl::listSeparator() { return ';'; }

}  // namespace qpi
