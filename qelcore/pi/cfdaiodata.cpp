#include "qelcore/pi/cfdaiodata.h"

#include <atomic>

namespace qpi {

namespace {
std::atomic<unsigned long long> gSerials(0);
}

cFDAIOData::cFDAIOData() : miSerial(++gSerials) {}

cFDAIOData::cFDAIOData(const cFDAIOData& other)
    : cAbstractAIOData(other), miSerial(++gSerials), mvFds(other.mvFds), mvReady(other.mvReady) {}

cFDAIOData& cFDAIOData::operator=(const cFDAIOData& other) {
  if (this != &other) {
    // Copied first: a throwing copy leaves this object as it was.
    qstd::tVector<tFdInfo> fds(other.mvFds);
    qstd::tVector<unsigned int> ready(other.mvReady);
    cAbstractAIOData::operator=(other);
    mvFds.swap(fds);
    mvReady.swap(ready);
    // The same number may now stand for another descriptor.
    miSerial = ++gSerials;
  }
  return *this;
}

cFDAIOData::~cFDAIOData() {}

void cFDAIOData::addFd(int fd, unsigned int events) { mvFds.append(tFdInfo{fd, events}); }

void cFDAIOData::setReadyEvents(unsigned int index, unsigned int events) {
  if (index >= mvFds.size()) return;
  if (mvReady.size() < mvFds.size()) mvReady.setSize(mvFds.size());
  mvReady.at(index) = events;
}

}  // namespace qpi
