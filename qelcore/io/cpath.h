/// \class qio::cPath
/// A file system path as a value: the same on every platform inside, the
/// platform's own form on demand.
///
/// Inside, components are separated by '/'. Construction tidies the text and
/// nothing else: separators are unified (on Windows '\' counts as '/'), runs
/// of separators become one, and a trailing separator goes, so "a//b/" and
/// "a/b" are the same path. "." and ".." stay until normalised() resolves
/// them lexically (without asking the file system, so that a path through a
/// symbolic link may resolve differently on disk).
///
/// A path may begin with a root: "/" on every platform, and on Windows a drive
/// ("C:" relative to that drive's current directory, "C:/" absolute) or a UNC
/// share ("//server/share/", always absolute; "\\?\" long-path prefixes are
/// taken apart into these). The rules of the platform the library is built
/// for apply unless a style is given, so Windows paths can be handled on
/// other systems too.
///
/// \code
///   qio::cPath base("/srv/app");
///   qio::cPath cfg = (base / "../etc/./app.conf").normalised();   // "/srv/etc/app.conf"
///   cfg.fileName();    // "app.conf"
///   cfg.baseName();    // "app"
///   cfg.extension();   // ".conf"
///   cfg.parent();      // "/srv/etc"
///   cfg.relativeTo("/srv/app/data");   // "../../etc/app.conf"
/// \endcode
///
/// Comparison is exact and component-wise ("a/b" < "a-b"); it does not fold
/// case, even where the file system does.
#ifndef QELCORE_IO_CPATH_H
#define QELCORE_IO_CPATH_H

#include "qelcore/qelexport.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

class QEL_EXPORT cPath {
public:
  /// How a path is read and written: separators, roots, case.
  enum Style { PosixStyle = 0, WindowsStyle = 1 };
  /// The style of the platform the library is built for.
  static Style nativeStyle();

  /// An empty path in the native style.
  cPath();
  /// `text` in the native style.
  cPath(const qucs::cString& text);
  /// UTF-8; bytes that are not valid UTF-8 are kept as escaped characters
  /// that turn back into the same bytes in a native POSIX name.
  cPath(const char* utf8);
  ///@{
  /// The same in the given style.
  cPath(const qucs::cString& text, Style style);
  cPath(const char* utf8, Style style);
  ///@}
  ///@{
  /// Plain copies and moves; swap() exchanges two paths.
  cPath(const cPath& other);
  cPath(cPath&& other) noexcept;
  ~cPath();
  cPath& operator=(const cPath& other);
  cPath& operator=(cPath&& other) noexcept;
  void swap(cPath& other) noexcept;
  ///@}

  /// With '/' as separator.
  const qucs::cString& toString() const { return msPath; }
  /// With the platform's separator ('\' in Windows style).
  qucs::cString toNative() const;
  /// No text at all.
  bool isEmpty() const { return msPath.size() == 0; }
  /// The style the path was read in.
  Style style() const { return static_cast<Style>(meStyle); }

  /// Roots. On POSIX a path is absolute when it begins with "/"; in Windows
  /// style it needs a drive and "/" ("C:/x") or a UNC share.
  bool isAbsolute() const;
  /// Not absolute.
  bool isRelative() const { return !isAbsolute(); }
  /// A drive or UNC share in front (Windows style only).
  bool hasRootName() const { return miRootName != 0; }
  /// A "/" right after the root name (or at the start).
  bool hasRootDirectory() const { return mbRootDir; }
  /// "/", "C:/", "C:", "//server/share/" or an empty path.
  cPath root() const;
  /// "C:", "//server/share" or empty.
  qucs::cString rootName() const;

  /// The components after the root.
  unsigned int componentCount() const;
  /// The component at `index`, from 0.
  qucs::cString component(unsigned int index) const;
  /// The last component; empty for a root or an empty path.
  qucs::cString fileName() const;
  /// The file name without its extension.
  qucs::cString baseName() const;
  /// The last '.' of the file name and what follows ("archive.tar.gz" gives
  /// ".gz"); empty when there is none or the name begins with its only dot
  /// (".profile"), and for "." and "..".
  qucs::cString extension() const;
  /// Everything but the last component: "/a/b" gives "/a", "/a" gives "/",
  /// "a" gives an empty path; a root is its own parent.
  cPath parent() const;
  /// The path with its last component replaced by `name` (appended to a root).
  cPath withFileName(const qucs::cString& name) const;
  /// `ext` with or without its leading dot; an empty one removes the
  /// extension. A path without a file name is returned unchanged.
  cPath withExtension(const qucs::cString& ext) const;

  /// `other` below this path. An absolute `other` replaces this path; in
  /// Windows style a root directory alone ("/x") keeps this path's drive, and
  /// a drive-relative path ("D:x") is joined only onto a path of the same
  /// drive.
  cPath join(const cPath& other) const;
  ///@{
  /// join(other); /= joins in place.
  cPath operator/(const cPath& other) const { return join(other); }
  cPath& operator/=(const cPath& other);
  ///@}

  /// "." and ".." resolved lexically: ".." removes the component before it;
  /// ".." directly below a root directory is dropped; leading ".." of a
  /// relative path stay. An otherwise empty result is ".".
  cPath normalised() const;
  /// Whether normalised() would not change the path.
  bool isNormalised() const;
  /// The path that leads from `base` to this one ("../../x"), both taken
  /// normalised; "." when they are the same. When no such path exists (other
  /// roots, or `base` climbs out with ".." where this path does not) the
  /// normalised path itself is returned, which still leads to the same place.
  cPath relativeTo(const cPath& base) const;
  /// `base` / this path, normalised; an absolute path is only normalised.
  cPath absoluteTo(const cPath& base) const;
  /// Whether `prefix` is this path or a whole-component beginning of it
  /// ("/a/b" begins with "/a", not with "/a/b2" nor "/a/").
  bool beginsWith(const cPath& prefix) const;

  /// Orders paths component by component (without case in Windows style): less than 0, 0, greater than 0.
  int compare(const cPath& other) const;
  ///@{
  /// Comparisons by compare().
  bool operator==(const cPath& other) const;
  bool operator!=(const cPath& other) const { return !(*this == other); }
  bool operator<(const cPath& other) const { return compare(other) < 0; }
  ///@}
  /// Equal paths hash alike.
  unsigned int hash() const;

private:
  void parse(const unsigned int* p, unsigned int n);
  unsigned int rootLength() const { return miRootName + (mbRootDir ? 1u : 0u); }
  /// Start of the last component (its length is size - start).
  unsigned int fileNameStart() const;

  qucs::cString msPath;
  unsigned int miRootName;
  bool mbRootDir;
  unsigned char meStyle;
};

}  // namespace qio

#endif
