// The POSIX event processor with asynchronous I/O: waits with epoll on the
// descriptors of the queue's started I/O works and on an eventfd through
// which other threads wake it, for at most the queue's wait.
#ifndef QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXAIOPROCESSEVENTS_H
#define QELCORE_PI_PLATFORM_NATIVE_POSIX_CPOSIXAIOPROCESSEVENTS_H

#include <unordered_map>
#include <vector>

#include "qelcore/pi/cabstractprocessevents.h"

namespace qpi {

class cFDAIOData;

class cPosixAIOProcessEvents : public cAbstractProcessEvents {
public:
  cPosixAIOProcessEvents();
  ~cPosixAIOProcessEvents() override;

  bool supportsAIO() const override { return true; }
  bool isAsynchronous() const override { return false; }
  // An idle queue sleeps here until a work is posted or woken for.
  bool waitsWhenIdle() const override { return true; }
  void yield(unsigned int level, tJobs& jobs, unsigned int waitMs) override;
  // The next wait does not block.
  void wakeUp() override { mbWake = true; }
  void wakeUpFromAnyThread() override;

private:
  // One descriptor of one work's data.
  struct cWatch {
    int fd;
    cFDAIOData* data;
    unsigned int index;
  };

  void collect(tJobs& jobs);
  void updateInterest();
  void deliver(int fd, unsigned int ready);

  int miEpoll;
  int miWakeFd;
  bool mbWake;
  std::vector<cWatch> mvWatches;
  // An event mask asked for, and the serial of the data that asked: a
  // descriptor number closed and reused by another socket has left epoll by
  // itself and must be added again even when the mask is the same.
  struct cInterest {
    unsigned int events;
    unsigned long long serial;
    bool operator==(const cInterest& other) const { return events == other.events && serial == other.serial; }
  };
  // What epoll watches now, by descriptor.
  std::unordered_map<int, cInterest> mRegistered;
  std::unordered_map<int, cInterest> mWanted;
};

}  // namespace qpi

#endif
