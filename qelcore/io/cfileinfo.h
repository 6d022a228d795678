/// \class qio::cFileInfo
/// A path on a file system with what the file system tells about it: exists,
/// type, size, times, permissions. The attributes are read when first asked
/// for and kept until refresh(); name changes forget them.
///
/// \code
///   qio::cFileInfo info("report.pdf");
///   if (info.exists() && info.modificationTime() < cutoff) ...
/// \endcode
///
/// The name setters complete a file name: the prefix and the suffix are
/// added unless the name already has them, the extension is set, so
/// completing a name twice changes nothing. That is how a module name becomes
/// the platform's library file name (cAbstractPlatformInfo::osSpecificSOName):
///
/// \code
///   qio::cFileInfo lib("plugins/audio");
///   lib.setFileNamePrefix("lib");        // plugins/libaudio
///   lib.setFileNameSuffix("");           // unchanged
///   lib.setFileNameExtension(".so");     // plugins/libaudio.so
/// \endcode
///
/// Working with names asks no file system; the system's file system is taken
/// when the attributes are first needed.
#ifndef QELCORE_IO_CFILEINFO_H
#define QELCORE_IO_CFILEINFO_H

#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"

namespace qio {

class QEL_EXPORT cFileInfo {
public:
  /// An empty path on the system's file system.
  cFileInfo();
  /// On the system's file system.
  explicit cFileInfo(const cPath& path);
  /// On `fs`, which must outlive the object.
  cFileInfo(const cFs& fs, const cPath& path);
  /// With attributes already read (from a listing).
  cFileInfo(const cFs& fs, const cPath& path, const cFileAttributes& attributes);

  /// The path described.
  const cPath& path() const { return mPath; }
  /// Describes another path; its attributes are read when next asked.
  void setPath(const cPath& path);
  /// The file system the path is on.
  const cFs& fs() const;

  /// Reads the attributes again.
  void refresh();
  /// The attributes, read when first asked (see refresh()).
  const cFileAttributes& attributes() const;
  ///@{
  /// The attributes' fields (see cFileAttributes).
  bool exists() const { return attributes().exists(); }
  cFileAttributes::Type type() const { return attributes().type(); }
  bool isFile() const { return attributes().isFile(); }
  bool isDirectory() const { return attributes().isDirectory(); }
  bool isSymLink() const { return attributes().isSymLink(); }
  bool isHidden() const { return attributes().isHidden(); }
  unsigned long long size() const { return attributes().size(); }
  const qstd::cTime& modificationTime() const { return attributes().modificationTime(); }
  const qstd::cTime& accessTime() const { return attributes().accessTime(); }
  const qstd::cTime& creationTime() const { return attributes().creationTime(); }
  unsigned int permissions() const { return attributes().permissions(); }
  ///@}

  ///@{
  /// The path's last component, without its extension, and its extension (see cPath).
  qucs::cString fileName() const { return mPath.fileName(); }
  qucs::cString baseName() const { return mPath.baseName(); }
  qucs::cString extension() const { return mPath.extension(); }
  ///@}
  /// The directory the entry is in.
  cPath dirPath() const { return mPath.parent(); }

  /// Puts `prefix` in front of the file name unless it begins with it.
  void setFileNamePrefix(const qucs::cString& prefix);
  /// Puts `suffix` at the end of the base name (before the extension) unless
  /// the base name ends with it.
  void setFileNameSuffix(const qucs::cString& suffix);
  /// Replaces the file name's extension (see cPath::extension) or adds one;
  /// with or without its dot. An empty one removes the extension.
  void setFileNameExtension(const qucs::cString& extension);

private:
  void setFileName(const qucs::cString& name);

  mutable cFs mFs;
  cPath mPath;
  mutable cFileAttributes mAttributes;
  mutable bool mbRead;
};

}  // namespace qio

#endif
