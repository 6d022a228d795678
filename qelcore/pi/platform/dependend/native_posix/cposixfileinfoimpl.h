// File attributes from what the POSIX stat calls return.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXFILEINFOIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXFILEINFOIMPL_H

#include <sys/stat.h>

namespace qio {
class cFileAttributes;
class cPath;
}  // namespace qio

namespace qpi {

class cPosixFileInfoImpl {
public:
  // Type, size, times and permissions of `st`.
  static void fromStat(const struct stat& st, qio::cFileAttributes& out);
  // Whether the last component of `path` is a dot name.
  static bool isDotName(const qio::cPath& path);
  // lstat, then stat for a link: false (with `out` Missing) when nothing
  // is there; other failures throw for `operation`.
  static bool read(const char* name, const qio::cPath& path, qio::cFileAttributes& out, const char* operation);
  // The same relative to an open directory, without the hidden flag;
  // `path` names the entry in exceptions.
  static bool readAt(int dirFd, const char* name, const qio::cPath& path, qio::cFileAttributes& out,
                     const char* operation);
};

}  // namespace qpi

#endif
