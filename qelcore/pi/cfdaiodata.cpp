#include "qelcore/pi/cfdaiodata.h"

#include <atomic>

namespace qpi {

namespace {
std::atomic<unsigned long long> gSerials(0);
}

cFDAIOData::cFDAIOData() : miSerial(++gSerials) {}

cFDAIOData::~cFDAIOData() {}

void cFDAIOData::addFd(int fd, unsigned int events) { mvFds.append(tFdInfo{fd, events}); }

void cFDAIOData::setReadyEvents(unsigned int index, unsigned int events) {
  if (index >= mvFds.size()) return;
  if (mvReady.size() < mvFds.size()) mvReady.setSize(mvFds.size());
  mvReady.at(index) = events;
}

}  // namespace qpi
