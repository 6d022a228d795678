#include "qelcore/pi/platform/dependend/native_win32/cwin32aioprocessevents.h"

#include "qelcore/pi/cabstractaiodata.h"
#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/cwork.h"

namespace qpi {

namespace {

// Two connected loopback sockets; false when the system refuses them.
bool socketPair(SOCKET& readEnd, SOCKET& writeEnd) {
  readEnd = writeEnd = INVALID_SOCKET;
  SOCKET listener = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  if (listener == INVALID_SOCKET) return false;
  sockaddr_in addr = {};
  addr.sin_family = AF_INET;
  addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  addr.sin_port = 0;
  int length = sizeof addr;
  bool ok = ::bind(listener, reinterpret_cast<sockaddr*>(&addr), sizeof addr) == 0 &&
            ::getsockname(listener, reinterpret_cast<sockaddr*>(&addr), &length) == 0 && ::listen(listener, 1) == 0;
  if (ok) {
    writeEnd = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    ok = writeEnd != INVALID_SOCKET && ::connect(writeEnd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) == 0;
  }
  if (ok) {
    readEnd = ::accept(listener, nullptr, nullptr);
    ok = readEnd != INVALID_SOCKET;
  }
  ::closesocket(listener);
  if (ok) {
    u_long nonBlocking = 1;
    ::ioctlsocket(readEnd, FIONBIO, &nonBlocking);
    ::ioctlsocket(writeEnd, FIONBIO, &nonBlocking);
    BOOL noDelay = TRUE;
    ::setsockopt(writeEnd, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&noDelay), sizeof noDelay);
    return true;
  }
  if (readEnd != INVALID_SOCKET) ::closesocket(readEnd);
  if (writeEnd != INVALID_SOCKET) ::closesocket(writeEnd);
  readEnd = writeEnd = INVALID_SOCKET;
  return false;
}

SHORT toPoll(unsigned int events) {
  SHORT e = 0;
  if (events & tFdInfo::Read) e |= POLLRDNORM;
  if (events & tFdInfo::Write) e |= POLLWRNORM;
  return e;
}

unsigned int fromPoll(SHORT e) {
  unsigned int events = 0;
  // A closed or failed socket is ready for whatever is asked of it.
  if (e & (POLLRDNORM | POLLRDBAND | POLLHUP | POLLERR | POLLNVAL)) events |= tFdInfo::Read;
  if (e & (POLLWRNORM | POLLHUP | POLLERR | POLLNVAL)) events |= tFdInfo::Write;
  return events;
}

}  // namespace

cWin32AIOProcessEvents::cWin32AIOProcessEvents()
    : mbStarted(false), mbWake(false), mWakeRead(INVALID_SOCKET), mWakeWrite(INVALID_SOCKET) {
  WSADATA data;
  mbStarted = ::WSAStartup(MAKEWORD(2, 2), &data) == 0;
  // Without the pair other threads cannot cut a wait short; works they
  // hand over are seen at the next pass.
  if (mbStarted) socketPair(mWakeRead, mWakeWrite);
}

cWin32AIOProcessEvents::~cWin32AIOProcessEvents() {
  if (mWakeRead != INVALID_SOCKET) ::closesocket(mWakeRead);
  if (mWakeWrite != INVALID_SOCKET) ::closesocket(mWakeWrite);
  if (mbStarted) ::WSACleanup();
}

void cWin32AIOProcessEvents::wakeUpFromAnyThread() {
  if (mWakeWrite == INVALID_SOCKET) return;
  const char one = 1;
  ::send(mWakeWrite, &one, 1, 0);  // a full buffer means a wake-up is pending anyway
}

void cWin32AIOProcessEvents::yield(unsigned int, tJobs& jobs, unsigned int waitMs) {
  mvPoll.clear();
  mvWatches.clear();
  if (mWakeRead != INVALID_SOCKET) {
    WSAPOLLFD wake = {};
    wake.fd = mWakeRead;
    wake.events = POLLRDNORM;
    mvPoll.push_back(wake);
  }
  const std::size_t first = mvPoll.size();
  for (tJobs::iterator it = jobs.begin(); it != jobs.end(); ++it) {
    cFDAIOData* data = waitingFDData(*it);
    if (!data) continue;
    for (unsigned int i = 0; i < data->fds().size(); ++i) {
      const tFdInfo& info = data->fds()[i];
      if (info.fd < 0) continue;
      WSAPOLLFD p = {};
      p.fd = static_cast<SOCKET>(info.fd);
      p.events = toPoll(info.events);
      mvPoll.push_back(p);
      mvWatches.push_back(cWatch{data, i});
    }
  }
  const int timeout = mbWake ? 0 : static_cast<int>(waitMs > 0x7FFFFFFFu ? 0x7FFFFFFFu : waitMs);
  mbWake = false;
  if (mvPoll.empty()) {
    if (timeout > 0) ::Sleep(static_cast<DWORD>(timeout));
  } else if (::WSAPoll(mvPoll.data(), static_cast<ULONG>(mvPoll.size()), timeout) > 0) {
    if (first == 1 && mvPoll[0].revents != 0) {
      char drain[64];
      while (::recv(mWakeRead, drain, sizeof drain, 0) > 0) {
      }
    }
    for (std::size_t i = first; i < mvPoll.size(); ++i) {
      if (mvPoll[i].revents == 0) continue;
      const cWatch& watch = mvWatches[i - first];
      const unsigned int hit = fromPoll(mvPoll[i].revents) & watch.data->fds()[watch.index].events;
      if (!hit) continue;
      watch.data->setReadyEvents(watch.index, hit);
      watch.data->setEvent(true);
    }
  }
  sigFinished();
}

}  // namespace qpi
