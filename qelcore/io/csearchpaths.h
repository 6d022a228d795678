/// \class qio::cSearchPaths
/// An ordered list of directories searched for a file: the first directory
/// that has it wins. Module files, translations and data files are found
/// this way.
///
/// \code
///   qio::cSearchPaths paths;
///   paths.append(appDir / "plugins");
///   paths.appendList(qucs::cString(getenv("MYAPP_PLUGIN_PATH")));   // "a:b" / "a;b"
///   qio::cPath module = paths.find("libaudio.so");                  // NotFound if none has it
/// \endcode
///
/// A directory is listed once: appending one that is listed changes
/// nothing, prepending one moves it to the front. Matches are entries that
/// exist and are not directories; an absolute name is checked as it is.
#ifndef QELCORE_IO_CSEARCHPATHS_H
#define QELCORE_IO_CSEARCHPATHS_H

#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"

namespace qstd {
template <typename T>
class tVector;
}

namespace qio {

class QEL_EXPORT cSearchPaths {
public:
  /// On the system's file system.
  cSearchPaths();
  /// On `fs`, which must outlive the list.
  explicit cSearchPaths(const cFs& fs);
  ///@{
  /// The same directories on the same file system.
  cSearchPaths(const cSearchPaths& other);
  cSearchPaths& operator=(const cSearchPaths& other);
  ///@}
  ~cSearchPaths();

  /// Adds `dir` at the end; a listed one stays where it is.
  void append(const cPath& dir);
  /// Adds `dir` at the front; a listed one moves there.
  void prepend(const cPath& dir);
  ///@{
  /// Appends the directories of a list as environment variables hold them,
  /// separated by the platform's separator (':' on POSIX, ';' on Windows) or
  /// the one given; empty entries are skipped.
  void appendList(const qucs::cString& list);
  void appendList(const qucs::cString& list, unsigned int separator);
  ///@}
  /// Whether it was listed.
  bool remove(const cPath& dir);
  /// Lists nothing.
  void clear();
  /// How many directories are listed.
  unsigned int count() const;
  /// The directory at `index`, from 0 (searched first).
  const cPath& at(unsigned int index) const;
  /// Whether `dir` is listed.
  bool contains(const cPath& dir) const;

  /// The first match; NotFound naming `name` when no directory has it.
  cPath find(const cPath& name) const;
  /// The same, or an empty path.
  cPath tryFind(const cPath& name) const;
  /// Every match in list order; `out` is replaced.
  void findAll(const cPath& name, qstd::tVector<cPath>& out) const;

private:
  class cListImpl;
  cListImpl* mpImpl;
};

}  // namespace qio

#endif
