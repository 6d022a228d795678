// A file system's own change notification for one path (inotify,
// ReadDirectoryChangesW). cFileWatch uses one when the file system offers
// it and polls the attributes otherwise.
#ifndef QELCORE_IO_CABSTRACTWATCHIMPL_H
#define QELCORE_IO_CABSTRACTWATCHIMPL_H

#include "qelcore/qelexport.h"

namespace qio {

class QEL_EXPORT cAbstractWatchImpl {
public:
  cAbstractWatchImpl() {}
  cAbstractWatchImpl(const cAbstractWatchImpl&) = delete;
  cAbstractWatchImpl& operator=(const cAbstractWatchImpl&) = delete;
  virtual ~cAbstractWatchImpl();
};

}  // namespace qio

#endif
