// What an asynchronous I/O work (cWork of type AsyncIO) waits for. The event
// processor sets the event flag when what the data describes has happened;
// the work queue then runs the work and clears the flag again.
//
//   qstd::tAutoPtr<qpi::cAbstractAIOData> data(new qpi::cFDAIOData);
//   data->fdAIOData().addFd(socket, qpi::tFdInfo::Read);
//   work.setAIOData(data);           // the work is now started, of type AsyncIO
#ifndef QELCORE_PI_CABSTRACTAIODATA_H
#define QELCORE_PI_CABSTRACTAIODATA_H

#include "qelcore/qelexport.h"

namespace qpi {

class cFDAIOData;

class QEL_EXPORT cAbstractAIOData {
public:
  cAbstractAIOData() : mbEvent(false) {}
  cAbstractAIOData(const cAbstractAIOData& other) : mbEvent(other.mbEvent) {}
  cAbstractAIOData& operator=(const cAbstractAIOData& other) {
    mbEvent = other.mbEvent;
    return *this;
  }
  virtual ~cAbstractAIOData();

  // This data as descriptor data, or null.
  virtual cFDAIOData* isFDAIOData();
  const cFDAIOData* isFDAIOData() const { return const_cast<cAbstractAIOData*>(this)->isFDAIOData(); }
  // Like isFDAIOData(), but data without descriptors is a bug: cBugException
  // "Asynchronous I/O data does not have file descriptor information!".
  cFDAIOData& fdAIOData();
  const cFDAIOData& fdAIOData() const { return const_cast<cAbstractAIOData*>(this)->fdAIOData(); }

  bool isEvent() const { return mbEvent; }
  void setEvent(bool event) { mbEvent = event; }

private:
  bool mbEvent;
};

}  // namespace qpi

#endif
