/// \class qio::cAbstractWatchImpl
/// A file system's own change notification for one path (inotify,
/// ReadDirectoryChangesW), created by cAbstractFsImpl::createWatch. cFileWatch
/// uses one when the file system offers it and compares snapshots otherwise.
///
/// A watch on a directory reports changes of its entries (by name) and of the
/// directory itself (an empty name); a watch on anything else watches the
/// directory that holds it and reports that name only, so a file replaced by
/// a rename (an atomic save) stays watched.
#ifndef QELCORE_IO_CABSTRACTWATCHIMPL_H
#define QELCORE_IO_CABSTRACTWATCHIMPL_H

#include "qelcore/qelexport.h"

namespace qucs {
class cString;
}

namespace qio {

class QEL_EXPORT cAbstractWatchImpl {
public:
  enum Change { Created = 1, Modified = 2, Removed = 3 };

  /// Receives the changes readChanges() finds.
  class QEL_EXPORT cSink {
  public:
    virtual ~cSink();
    /// `name` is an entry of the watched directory, or empty for the watched
    /// path itself.
    virtual void changed(Change change, const qucs::cString& name) = 0;
  };

  cAbstractWatchImpl() {}
  cAbstractWatchImpl(const cAbstractWatchImpl&) = delete;
  cAbstractWatchImpl& operator=(const cAbstractWatchImpl&) = delete;
  virtual ~cAbstractWatchImpl();

  /// A descriptor that turns readable when changes wait (for an event
  /// processor that waits on descriptors), or -1; -1 by default.
  virtual int descriptor() const;
  /// Hands the changes noticed since the last call to `sink`, without
  /// waiting. False when the system lost some (its queue overflowed, the
  /// watched directory went): then the caller must look again itself.
  virtual bool readChanges(cSink& sink) = 0;
};

}  // namespace qio

#endif
