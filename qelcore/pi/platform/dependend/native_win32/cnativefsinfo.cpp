#include "qelcore/pi/platform/cnativefsinfo.h"

#include <windows.h>

#include "qelcore/io/cioexception.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

int cNativeFsInfo::pathStyle() { return qio::cPath::WindowsStyle; }

int cNativeFsInfo::errorKind(int code) {
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

unsigned int cNativeFsInfo::listSeparator() { return ';'; }

}  // namespace qpi
