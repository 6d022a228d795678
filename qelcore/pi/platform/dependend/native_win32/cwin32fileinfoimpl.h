// File attributes from what the Win32 calls return.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32FILEINFOIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32FILEINFOIMPL_H

#include <windows.h>

namespace qio {
class cFileAttributes;
class cPath;
}  // namespace qio

namespace qpi {

class cWin32FileInfoImpl {
public:
  // Microseconds since 1970 of a FILETIME (0 before 1970).
  static unsigned long long toMicros(const FILETIME& ft);
  static FILETIME fromMicros(unsigned long long micros);
  // Type, size, times, permissions and the hidden flag.
  static void fromAttributes(DWORD attributes, DWORD sizeHigh, DWORD sizeLow, const FILETIME& created,
                             const FILETIME& accessed, const FILETIME& modified, qio::cFileAttributes& out);
  // Of a path, links followed: false (with `out` Missing) when nothing is
  // there; other failures throw for `operation`.
  static bool read(const wchar_t* name, const qio::cPath& path, qio::cFileAttributes& out, const char* operation);
  // Whether an error code means "nothing there".
  static bool isMissing(DWORD error);
};

}  // namespace qpi

#endif
