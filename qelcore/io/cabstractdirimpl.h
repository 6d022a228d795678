/// \class qio::cAbstractDirImpl
/// Reads the entries of one directory for a file system implementation.
/// cDirIterator walks it; users meet it only when they write a file system.
///
/// The entries come in the order the file system keeps them, without "." and
/// "..". Attributes are asked for per entry, so that a listing of names costs
/// no more than the names.
#ifndef QELCORE_IO_CABSTRACTDIRIMPL_H
#define QELCORE_IO_CABSTRACTDIRIMPL_H

#include "qelcore/io/cfileattributes.h"
#include "qelcore/qelexport.h"

namespace qucs {
class cString;
}

namespace qio {

class QEL_EXPORT cAbstractDirImpl {
public:
  cAbstractDirImpl() {}
  cAbstractDirImpl(const cAbstractDirImpl&) = delete;
  cAbstractDirImpl& operator=(const cAbstractDirImpl&) = delete;
  virtual ~cAbstractDirImpl();

  /// Moves to the next entry and sets `name` to its name; false at the end.
  /// `type` is the entry's type when the listing tells it cheaply and the
  /// entry is not a link; Missing when attributes() must be asked.
  virtual bool next(qucs::cString& name, cFileAttributes::Type& type) = 0;
  /// The attributes of the current entry (links followed, as for a path).
  virtual void attributes(cFileAttributes& out) = 0;
};

}  // namespace qio

#endif
