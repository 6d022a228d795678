#include "qelcore/qce/net++/cnetabstractconnection.h"

#include <cstring>
#include <new>

#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/detail/clifelink.h"
#include "qelcore/pi/tfdinfo.h"
#include "qelcore/qce/cqceexceptions.h"
#include "qelcore/qce/detail/netsockaddr.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/tarray.h"

namespace qce {

using qpi::cAbstractSocketImpl;
using qpi::tFdInfo;
using qpi::detail::cLifeLink;
using qstd::tAutoPtr;

namespace {

// What a buffer may keep allocated while it is empty.
const std::size_t kKeep = 16 * 1024;
// Room offered to one read.
const std::size_t kReadChunk = 16 * 1024;
// Bytes one readiness event reads at most, so that one busy peer does not
// starve the queue's other works.
const std::size_t kReadBudget = 256 * 1024;

// Bytes in [begin, end) of one block, consumed from the front, appended at
// the back. Grows on demand; gives the block back when it runs empty after a
// burst.
class cByteQueue {
public:
  cByteQueue() : mpBlock(nullptr), miCapacity(0), miBegin(0), miEnd(0) {}
  cByteQueue(const cByteQueue&) = delete;
  cByteQueue& operator=(const cByteQueue&) = delete;
  ~cByteQueue() { delete[] mpBlock; }

  const char* data() const { return mpBlock + miBegin; }
  std::size_t size() const { return miEnd - miBegin; }
  std::size_t capacity() const { return miCapacity; }

  // At least `room` free bytes after the end; returns where they start.
  char* reserve(std::size_t room) {
    if (miCapacity - miEnd >= room) return mpBlock + miEnd;
    const std::size_t used = size();
    if (miCapacity - used >= room && miCapacity - used >= used) {
      // Half the block or more is free: moving the rest to the front is
      // cheaper than growing.
      std::memmove(mpBlock, mpBlock + miBegin, used);
    } else {
      std::size_t capacity = miCapacity ? miCapacity * 2 : kReadChunk;
      while (capacity - used < room) capacity *= 2;
      char* block = new char[capacity];
      if (used) std::memcpy(block, mpBlock + miBegin, used);
      delete[] mpBlock;
      mpBlock = block;
      miCapacity = capacity;
    }
    miBegin = 0;
    miEnd = used;
    return mpBlock + miEnd;
  }
  std::size_t room() const { return miCapacity - miEnd; }
  void commit(std::size_t count) { miEnd += count; }
  void append(const char* bytes, std::size_t count) {
    std::memcpy(reserve(count), bytes, count);
    commit(count);
  }
  void drop(std::size_t count) {
    miBegin += count;
    if (miBegin == miEnd) {
      miBegin = miEnd = 0;
      if (miCapacity > kKeep) release();
    }
  }
  void clear() {
    miBegin = miEnd = 0;
    release();
  }

private:
  void release() {
    delete[] mpBlock;
    mpBlock = nullptr;
    miCapacity = 0;
  }

  char* mpBlock;
  std::size_t miCapacity;
  std::size_t miBegin;
  std::size_t miEnd;
};

// The error of a failed socket operation, as the exception that
// cPIExceptions throws for it, for passing to a signal.
template <class F>
void withSocketError(const char* operation, int code, F report) {
  try {
    qpi::cPIExceptions::throwSocketError(operation, code, __FILE__, __LINE__);
  } catch (const qstd::cAbstractException& e) {
    report(e);
  }
}

}  // namespace

class cNetAbstractConnection::cBuffers {
public:
  cByteQueue mReceived;
  cByteQueue mPending;
};

cNetAbstractConnection::cNetAbstractConnection(qpi::cWorkQueue* queue)
    : cNetAbstractSocket(queue),
      meState(Closed),
      mbClosing(false),
      mbPeerEnded(false),
      miReceiveLimit(4u << 20),
      mpBuffers(new cBuffers) {
  sigConnected.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigData.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigClosed.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigError.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
}

cNetAbstractConnection::~cNetAbstractConnection() { delete mpBuffers; }

cNetAbstractConnection::State cNetAbstractConnection::state() const { return meState; }

bool cNetAbstractConnection::isConnected() const { return meState == Connected; }

const char* cNetAbstractConnection::receivedData() const { return mpBuffers->mReceived.data(); }

std::size_t cNetAbstractConnection::receivedSize() const { return mpBuffers->mReceived.size(); }

void cNetAbstractConnection::consume(std::size_t count) {
  const std::size_t size = mpBuffers->mReceived.size();
  if (count > size) cQCEExceptions::throwConsumeTooMuch(count, size);
  mpBuffers->mReceived.drop(count);
  // Reading may have paused at the limit.
  updateWatch();
}

std::size_t cNetAbstractConnection::read(char* buffer, std::size_t size) {
  const std::size_t count = size < receivedSize() ? size : receivedSize();
  if (count) std::memcpy(buffer, receivedData(), count);
  consume(count);
  return count;
}

void cNetAbstractConnection::setReceiveLimit(std::size_t bytes) {
  miReceiveLimit = bytes ? bytes : 1;
  updateWatch();
}

std::size_t cNetAbstractConnection::receiveLimit() const { return miReceiveLimit; }

void cNetAbstractConnection::send(const char* data, std::size_t size) {
  if (meState == Closed) cQCEExceptions::throwNotConnected();
  cByteQueue& pending = mpBuffers->mPending;
  if (meState == Connected && pending.size() == 0) {
    // The common case: the system takes it all, nothing is copied.
    while (size) {
      int error = 0;
      const long n = impl()->send(data, size, error);
      // A failure is reported from the queue, when the kept bytes are tried
      // again: the caller is not the place to hear about it.
      if (n <= 0) break;
      data += n;
      size -= static_cast<std::size_t>(n);
    }
  }
  if (!size) return;
  pending.append(data, size);
  updateWatch();
}

void cNetAbstractConnection::send(const tByteArray& bytes) { send(bytes.data(), bytes.size()); }

std::size_t cNetAbstractConnection::pendingSendBytes() const { return mpBuffers->mPending.size(); }

void cNetAbstractConnection::close() {
  if (meState == Closed) return;
  const State was = meState;
  meState = Closed;
  mpBuffers->mReceived.clear();
  if (was == Connecting) {
    mpBuffers->mPending.clear();
    detach();
  } else {
    mbClosing = true;
    flush();
  }
  emitClosed();
}

tAutoPtr<cNetAbstractAddress> cNetAbstractConnection::peerAddress() const {
  if (!isOpen()) cQCEExceptions::throwSocketNotOpen();
  char buffer[cAbstractSocketImpl::MaxSockAddrSize];
  const unsigned int size = impl()->peerAddress(buffer, sizeof buffer);
  return detail::addressFromSockAddr(buffer, size);
}

std::size_t cNetAbstractConnection::bufferCapacity() const {
  return mpBuffers->mReceived.capacity() + mpBuffers->mPending.capacity();
}

void cNetAbstractConnection::open(tAutoPtr<cAbstractSocketImpl> impl, const void* sockAddr, unsigned int size) {
  // Throws with nothing changed when the system refuses at once.
  impl->connect(sockAddr, size);
  if (meState != Closed) {
    cLifeLink alive(lifeLinks());
    close();
    if (alive.gone()) return;
  }
  mpBuffers->mPending.clear();
  mbClosing = false;
  mbPeerEnded = false;
  meState = Connecting;
  // Even a connect that succeeded at once is reported from the queue, like
  // any other outcome: the socket is writable then.
  attach(impl, tFdInfo::Write);
}

void cNetAbstractConnection::adopt(tAutoPtr<cAbstractSocketImpl> impl) {
  meState = Connected;
  attach(impl, tFdInfo::Read);
}

void cNetAbstractConnection::ready(unsigned int events) {
  cLifeLink alive(lifeLinks());
  if (meState == Connecting) {
    const int error = impl()->connectError();
    if (error) {
      withSocketError("connect", error, [this](const qstd::cAbstractException& e) { fail(e); });
      return;
    }
    connected();
    return;
  }
  if ((events & tFdInfo::Write) && !flush()) return;
  if (alive.gone() || !impl()) return;
  if (events & tFdInfo::Read) {
    if (mbClosing)
      drain();
    else
      receive();
  }
}

bool cNetAbstractConnection::connected() {
  cLifeLink alive(lifeLinks());
  meState = Connected;
  updateWatch();
  sigConnected(*this);
  if (alive.gone()) return false;
  // Bytes sent while connecting.
  return meState != Connected || flush();
}

bool cNetAbstractConnection::receive() {
  cLifeLink alive(lifeLinks());
  cByteQueue& received = mpBuffers->mReceived;
  std::size_t total = 0;
  bool ended = false;
  int error = 0;
  while (total < kReadBudget && received.size() < miReceiveLimit) {
    char* at = received.reserve(kReadChunk / 4);
    const std::size_t room = received.room();
    const long n = impl()->receive(at, room, error);
    if (n > 0) {
      received.commit(static_cast<std::size_t>(n));
      total += static_cast<std::size_t>(n);
      // A short read emptied the system's buffer: no need to ask again.
      if (static_cast<std::size_t>(n) < room) break;
      continue;
    }
    if (n == 0) ended = true;
    break;
  }
  if (total) {
    sigData(*this);
    if (alive.gone()) return false;
    // Closed or reconnected by the receiver: what follows is not ours.
    if (meState != Connected) return true;
  }
  if (error) {
    bool result = true;
    withSocketError("recv", error, [&](const qstd::cAbstractException& e) { result = fail(e); });
    return result;
  }
  if (ended) return peerEnded();
  updateWatch();
  return true;
}

bool cNetAbstractConnection::flush() {
  cByteQueue& pending = mpBuffers->mPending;
  int error = 0;
  while (pending.size()) {
    const long n = impl()->send(pending.data(), pending.size(), error);
    if (n <= 0) break;
    pending.drop(static_cast<std::size_t>(n));
  }
  if (error) {
    bool result = true;
    withSocketError("send", error, [&](const qstd::cAbstractException& e) { result = fail(e); });
    return result;
  }
  if (mbClosing && pending.size() == 0) {
    // All sent: tell the peer. After its end of stream too, nothing is left.
    impl()->shutdownSend();
    if (mbPeerEnded) detach();
  }
  updateWatch();
  return true;
}

void cNetAbstractConnection::drain() {
  char scratch[4096];
  int error = 0;
  for (;;) {
    const long n = impl()->receive(scratch, sizeof scratch, error);
    if (n > 0) continue;
    // The peer's end (or a failure): the connection is over for good.
    if (n == 0 || n == cAbstractSocketImpl::Failed) {
      mpBuffers->mPending.clear();
      detach();
    }
    return;
  }
}

bool cNetAbstractConnection::fail(const qstd::cAbstractException& e) {
  cLifeLink alive(lifeLinks());
  const bool wasOpen = meState != Closed;
  meState = Closed;
  mbClosing = false;
  detach();
  mpBuffers->mReceived.clear();
  mpBuffers->mPending.clear();
  if (!wasOpen) return true;
  sigError(*this, e);
  if (alive.gone()) return false;
  // The receiver may have connected again: then this end is no news.
  if (meState != Closed) return true;
  return emitClosed();
}

bool cNetAbstractConnection::peerEnded() {
  mbPeerEnded = true;
  meState = Closed;
  mbClosing = true;
  mpBuffers->mReceived.clear();
  if (!flush()) return false;
  return emitClosed();
}

bool cNetAbstractConnection::emitClosed() {
  cLifeLink alive(lifeLinks());
  sigClosed(*this);
  return !alive.gone();
}

void cNetAbstractConnection::updateWatch() {
  if (!impl()) return;
  unsigned int events = 0;
  if (meState == Connecting) {
    events = tFdInfo::Write;
  } else {
    if (meState == Connected ? mpBuffers->mReceived.size() < miReceiveLimit : !mbPeerEnded) events |= tFdInfo::Read;
    if (mpBuffers->mPending.size()) events |= tFdInfo::Write;
  }
  watch(events);
}

}  // namespace qce
