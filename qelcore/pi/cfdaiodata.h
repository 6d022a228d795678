/// \class qpi::cFDAIOData
/// Asynchronous I/O data made of descriptors (sockets on Windows): the work
/// that owns it becomes due when one of them is ready for what it waits for.
/// An event processor with asynchronous I/O support
/// (cPlatform::createAIOProcessEvents()) waits on them and records per
/// descriptor what it found (readyEvents()).
///
/// \code
///   qpi::cFDAIOData* data = new qpi::cFDAIOData;
///   data->addFd(fd, qpi::tFdInfo::Read);
///   work.setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(data));
///   ...in the work's slot: if (data->readyEvents(0) & qpi::tFdInfo::Read) read(fd, ...);
/// \endcode
#ifndef QELCORE_PI_CFDAIODATA_H
#define QELCORE_PI_CFDAIODATA_H

#include "qelcore/pi/cabstractaiodata.h"
#include "qelcore/pi/tfdinfo.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tvector.h"

namespace qpi {

class QEL_EXPORT cFDAIOData : public cAbstractAIOData {
public:
  cFDAIOData();
  ///@{
  /// Copies the event flag, the descriptors and their ready events; the copy
  /// (or the object assigned to) gets a serial of its own.
  cFDAIOData(const cFDAIOData& other);
  cFDAIOData& operator=(const cFDAIOData& other);
  ///@}
  ~cFDAIOData() override;

  cFDAIOData* isFDAIOData() override { return this; }

  /// Waits on `fd` for `events` (tFdInfo::Read, tFdInfo::Write) too.
  void addFd(int fd, unsigned int events);
  ///@{
  /// The descriptors waited on, in the order they were added.
  qstd::tVector<tFdInfo>& fds() { return mvFds; }
  const qstd::tVector<tFdInfo>& fds() const { return mvFds; }
  ///@}

  /// What the processor found ready on fds()[index] when it last set the
  /// event (tFdInfo::Read, tFdInfo::Write; 0 when nothing or unknown).
  unsigned int readyEvents(unsigned int index) const { return index < mvReady.size() ? mvReady[index] : 0; }
  /// Set by the event processor for fds()[index].
  void setReadyEvents(unsigned int index, unsigned int events);
  /// Forgets all ready events.
  void clearReadyEvents() { mvReady.clear(); }

  /// Unique per data object made in this process. A processor that keeps
  /// descriptors registered between waits tells by it that a descriptor
  /// number now belongs to another socket (closed and reused meanwhile).
  unsigned long long serial() const { return miSerial; }

private:
  unsigned long long miSerial;
  qstd::tVector<tFdInfo> mvFds;
  qstd::tVector<unsigned int> mvReady;
};

}  // namespace qpi

#endif
