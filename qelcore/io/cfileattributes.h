/// \class qio::cFileAttributes
/// What a file system tells about one entry: its type, size, times and
/// permissions. A plain value, filled by the file system implementations and
/// kept by cFileInfo and the directory listing.
///
/// Times are microseconds since 1970-01-01 UTC (qstd::cTime); a time the file
/// system does not keep is 0 (POSIX systems keep no creation time).
/// Permissions are the POSIX bits (0644 ...); on Windows a read-only file
/// shows 0444 (0555 for a directory), any other 0666 (0777).
#ifndef QELCORE_IO_CFILEATTRIBUTES_H
#define QELCORE_IO_CFILEATTRIBUTES_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ctime.h"

namespace qio {

class QEL_EXPORT cFileAttributes {
public:
  /// What a path leads to; Other: a device, a pipe, a socket.
  enum Type { Missing = 0, File = 1, Directory = 2, Other = 3 };
  /// POSIX permission bits; Windows reports what its read-only attribute allows.
  enum Permission {
    OwnerRead = 0400,
    OwnerWrite = 0200,
    OwnerExecute = 0100,
    GroupRead = 040,
    GroupWrite = 020,
    GroupExecute = 010,
    OthersRead = 04,
    OthersWrite = 02,
    OthersExecute = 01,
    AllPermissions = 0777
  };

  cFileAttributes()
      : meType(Missing),
        mbSymLink(false),
        mbHidden(false),
        miPermissions(0),
        mullSize(0),
        mModified(0ull),
        mAccessed(0ull),
        mCreated(0ull) {}

  /// The type of what the path leads to (a link's target); Missing for
  /// nothing, a dangling link included.
  Type type() const { return meType; }
  /// Not Missing.
  bool exists() const { return meType != Missing; }
  /// A regular file.
  bool isFile() const { return meType == File; }
  /// A directory.
  bool isDirectory() const { return meType == Directory; }
  /// The path itself is a symbolic link (or, on Windows, a reparse point).
  bool isSymLink() const { return mbSymLink; }
  /// A dot name on POSIX, the hidden attribute on Windows.
  bool isHidden() const { return mbHidden; }
  /// Permission bits.
  unsigned int permissions() const { return miPermissions; }
  /// Bytes of a file; 0 for directories.
  unsigned long long size() const { return mullSize; }
  /// When the content last changed.
  const qstd::cTime& modificationTime() const { return mModified; }
  /// When it was last read, as far as the system keeps it.
  const qstd::cTime& accessTime() const { return mAccessed; }
  /// When it was created (the status change time on POSIX).
  const qstd::cTime& creationTime() const { return mCreated; }

  ///@{
  /// Setters of the fields above, for the file systems that fill them in.
  void setType(Type type) { meType = type; }
  void setSymLink(bool on) { mbSymLink = on; }
  void setHidden(bool on) { mbHidden = on; }
  void setPermissions(unsigned int permissions) { miPermissions = permissions; }
  void setSize(unsigned long long size) { mullSize = size; }
  void setModificationTime(const qstd::cTime& time) { mModified = time; }
  void setAccessTime(const qstd::cTime& time) { mAccessed = time; }
  void setCreationTime(const qstd::cTime& time) { mCreated = time; }
  ///@}

private:
  Type meType;
  bool mbSymLink;
  bool mbHidden;
  unsigned int miPermissions;
  unsigned long long mullSize;
  qstd::cTime mModified;
  qstd::cTime mAccessed;
  qstd::cTime mCreated;
};

}  // namespace qio

#endif
