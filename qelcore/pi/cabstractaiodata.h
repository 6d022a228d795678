/// \class qpi::cAbstractAIOData
/// What an asynchronous I/O work (cWork of type AsyncIO) waits for. The event
/// processor sets the event flag when what the data describes has happened;
/// the work queue then runs the work and clears the flag again.
///
/// \code
///   qstd::tAutoPtr<qpi::cAbstractAIOData> data(new qpi::cFDAIOData);
///   data->fdAIOData().addFd(socket, qpi::tFdInfo::Read);
///   work.setAIOData(data);           // the work is now started, of type AsyncIO
/// \endcode
#ifndef QELCORE_PI_CABSTRACTAIODATA_H
#define QELCORE_PI_CABSTRACTAIODATA_H

#include "qelcore/qelexport.h"

namespace qpi {

class cFDAIOData;

class QEL_EXPORT cAbstractAIOData {
public:
  cAbstractAIOData() : mbEvent(false) {}
  ///@{
  /// Copies the event flag.
  cAbstractAIOData(const cAbstractAIOData& other) : mbEvent(other.mbEvent) {}
  cAbstractAIOData& operator=(const cAbstractAIOData& other) {
    mbEvent = other.mbEvent;
    return *this;
  }
  ///@}
  virtual ~cAbstractAIOData();

  /// This data as descriptor data, or null.
  virtual cFDAIOData* isFDAIOData();
  /// The same, read-only.
  const cFDAIOData* isFDAIOData() const { return const_cast<cAbstractAIOData*>(this)->isFDAIOData(); }
  /// Like isFDAIOData(), but data without descriptors is a bug: cBugException
  /// "Asynchronous I/O data does not have file descriptor information!".
  cFDAIOData& fdAIOData();
  /// The same, read-only.
  const cFDAIOData& fdAIOData() const { return const_cast<cAbstractAIOData*>(this)->fdAIOData(); }

  /// Whether the event processor found the awaited I/O ready.
  bool isEvent() const { return mbEvent; }
  /// Set by the event processor; the work's action clears it.
  void setEvent(bool event) { mbEvent = event; }

private:
  bool mbEvent;
};

}  // namespace qpi

#endif
