#include "qelcore/pi/platform/dependend/native_posix/cposixaioprocessevents.h"

#include <errno.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "qelcore/pi/cabstractaiodata.h"
#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/cwork.h"

namespace qpi {

namespace {

unsigned int toEpoll(unsigned int events) {
  unsigned int e = 0;
  if (events & tFdInfo::Read) e |= EPOLLIN | EPOLLRDHUP;
  if (events & tFdInfo::Write) e |= EPOLLOUT;
  return e;
}

unsigned int fromEpoll(unsigned int e) {
  unsigned int events = 0;
  // A closed or failed descriptor is ready for whatever is asked of it: the
  // next read or write tells what happened.
  if (e & (EPOLLIN | EPOLLRDHUP | EPOLLHUP | EPOLLERR)) events |= tFdInfo::Read;
  if (e & (EPOLLOUT | EPOLLHUP | EPOLLERR)) events |= tFdInfo::Write;
  return events;
}

}  // namespace

cPosixAIOProcessEvents::cPosixAIOProcessEvents() : miEpoll(-1), miWakeFd(-1), mbWake(false) {
  miEpoll = ::epoll_create1(EPOLL_CLOEXEC);
  if (miEpoll < 0)
    cPIExceptions::throwOSError("epoll_create1", errno, "Unable to create event processor!", __FILE__, __LINE__);
  miWakeFd = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  if (miWakeFd < 0) {
    const int code = errno;
    ::close(miEpoll);
    cPIExceptions::throwOSError("eventfd", code, "Unable to create event processor!", __FILE__, __LINE__);
  }
  struct epoll_event ev = {};
  ev.events = EPOLLIN;
  ev.data.fd = miWakeFd;
  ::epoll_ctl(miEpoll, EPOLL_CTL_ADD, miWakeFd, &ev);
}

cPosixAIOProcessEvents::~cPosixAIOProcessEvents() {
  ::close(miWakeFd);
  ::close(miEpoll);
}

void cPosixAIOProcessEvents::wakeUpFromAnyThread() {
  const unsigned long long one = 1;
  // A full counter means a wake-up is pending anyway.
  while (::write(miWakeFd, &one, sizeof one) < 0 && errno == EINTR) {
  }
}

void cPosixAIOProcessEvents::collect(tJobs& jobs) {
  mvWatches.clear();
  mWanted.clear();
  for (tJobs::iterator it = jobs.begin(); it != jobs.end(); ++it) {
    cFDAIOData* data = waitingFDData(*it);
    if (!data) continue;
    for (unsigned int i = 0; i < data->fds().size(); ++i) {
      const tFdInfo& info = data->fds()[i];
      if (info.fd < 0 || info.fd == miWakeFd) continue;
      mvWatches.push_back(cWatch{info.fd, data, i});
      cInterest& wanted = mWanted[info.fd];
      wanted.events |= toEpoll(info.events);
      wanted.serial = data->serial();
    }
  }
}

void cPosixAIOProcessEvents::updateInterest() {
  for (auto it = mRegistered.begin(); it != mRegistered.end();) {
    if (mWanted.find(it->first) == mWanted.end()) {
      ::epoll_ctl(miEpoll, EPOLL_CTL_DEL, it->first, nullptr);  // may be closed already
      it = mRegistered.erase(it);
    } else {
      ++it;
    }
  }
  for (const auto& wanted : mWanted) {
    auto known = mRegistered.find(wanted.first);
    if (known != mRegistered.end() && known->second == wanted.second) continue;
    struct epoll_event ev = {};
    ev.events = wanted.second.events;
    ev.data.fd = wanted.first;
    // A descriptor closed and opened again has left the set by itself.
    int rc = ::epoll_ctl(miEpoll, known != mRegistered.end() ? EPOLL_CTL_MOD : EPOLL_CTL_ADD, wanted.first, &ev);
    if (rc != 0 && errno == ENOENT) rc = ::epoll_ctl(miEpoll, EPOLL_CTL_ADD, wanted.first, &ev);
    if (rc != 0 && errno == EEXIST) rc = ::epoll_ctl(miEpoll, EPOLL_CTL_MOD, wanted.first, &ev);
    if (rc != 0) {
      // Descriptors epoll cannot watch (plain files) are always ready.
      mRegistered.erase(wanted.first);
      deliver(wanted.first, tFdInfo::Read | tFdInfo::Write);
      continue;
    }
    mRegistered[wanted.first] = wanted.second;
  }
}

void cPosixAIOProcessEvents::deliver(int fd, unsigned int ready) {
  for (const cWatch& w : mvWatches) {
    if (w.fd != fd) continue;
    const unsigned int hit = ready & w.data->fds()[w.index].events;
    if (!hit) continue;
    w.data->setReadyEvents(w.index, hit);
    w.data->setEvent(true);
    mbWake = true;  // something is due: do not block
  }
}

void cPosixAIOProcessEvents::yield(unsigned int, tJobs& jobs, unsigned int waitMs) {
  collect(jobs);
  updateInterest();
  int timeout = static_cast<int>(waitMs > 0x7FFFFFFFu ? 0x7FFFFFFFu : waitMs);
  if (mbWake) timeout = 0;
  mbWake = false;
  struct epoll_event events[64];
  int n;
  do {
    n = ::epoll_wait(miEpoll, events, 64, timeout);
  } while (n < 0 && errno == EINTR);
  for (int i = 0; i < n; ++i) {
    if (events[i].data.fd == miWakeFd) {
      unsigned long long count;
      while (::read(miWakeFd, &count, sizeof count) > 0) {
      }
      continue;
    }
    deliver(events[i].data.fd, fromEpoll(events[i].events));
  }
  mbWake = false;
  sigFinished();
}

}  // namespace qpi
