/// \class qio::cFileWatch
/// Reports changes of a file or a directory as signals on the main work
/// queue (qpi::system().workQueue()): a file that appears, changes or goes,
/// and for a directory the same for each of its entries (not deeper).
///
/// \code
///   class cConfig : public qrmi::cConnectable {
///   public:
///     qsa::piVoid sltChanged(const qio::cPath& path, qio::cFileWatch::Change change) {
///       if (change != qio::cFileWatch::Removed) reload(path);
///       return qsa::piVoid();
///     }
///   };
///   qio::cFileWatch watch("settings.ini");
///   watch.sigChanged.connect(config, &cConfig::sltChanged);
///   for (;;) qpi::system().exec();
/// \endcode
///
/// Where the file system notifies changes itself (inotify on Linux,
/// ReadDirectoryChangesW on Windows) the watch uses that: on the descriptor
/// through the queue's event processor when it waits on descriptors, looked
/// at every `interval` ms otherwise. Elsewhere (a cMemoryFs, a system without
/// notifications) it compares the attributes every `interval` ms: size and
/// modification time tell a change, so one that keeps both escapes it.
/// Either way a file that is replaced by a rename (an atomic save) reports
/// Modified, as it existed before and after. A watched directory that goes
/// reports Removed; one created again under its name is not watched.
///
/// The watch belongs to the main thread; it may be destroyed at any time,
/// from its own slot too.
#ifndef QELCORE_IO_CFILEWATCH_H
#define QELCORE_IO_CFILEWATCH_H

#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/sa/pitypes.h"

namespace qio {

class QEL_EXPORT cFileWatch : public qrmi::cConnectable {
public:
  /// What happened to a path.
  enum Change { Created = 1, Modified = 2, Removed = 3 };
  enum : unsigned int { DefaultInterval = 500 };  ///< milliseconds between looks when the watch compares

  /// On the system's file system.
  explicit cFileWatch(const cPath& path, unsigned int interval = DefaultInterval);
  /// On `fs`, which must outlive the watch.
  cFileWatch(const cFs& fs, const cPath& path, unsigned int interval = DefaultInterval);
  ~cFileWatch() override;

  /// (the path that changed: the watched one or an entry below it, what
  /// happened). Unconnected it reports to nobody.
  qrmi::localSignal2<qsa::piVoid, const cPath&, Change> sigChanged;

  /// The watched path.
  const cPath& path() const;
  /// Notified by the file system rather than compared.
  bool isNative() const;
  /// Looks for changes now and emits them; failures to look throw.
  void check();
  /// The work's slot: check(), with failures written to the debug output.
  qsa::piVoid sltCheck();

private:
  class cWatchImpl;
  cWatchImpl* mpImpl;
};

}  // namespace qio

#endif
