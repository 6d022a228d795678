#include "qelcore/qce/net++/cnetabstractsocket.h"

#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/pi/detail/clifelink.h"
#include "qelcore/qce/cqceexceptions.h"
#include "qelcore/qce/detail/netsockaddr.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/std/casciistring.h"

namespace qce {

using qpi::cAbstractSocketImpl;
using qstd::tAutoPtr;

// The work that watches the socket, and the socket itself.
class cNetAbstractSocket::cPrivate {
public:
  cPrivate() : mpData(nullptr), miEvents(0), mpLinks(nullptr) {}

  qpi::cWork mWork;
  // Owned by mWork; replaced for every new socket (see renew()).
  qpi::cFDAIOData* mpData;
  tAutoPtr<cAbstractSocketImpl> mpImpl;
  unsigned int miEvents;
  qpi::detail::cLifeLink* mpLinks;

  // Fresh descriptor data: its serial tells the event processor that the
  // descriptor is new even when the system gave the old number again.
  void renew() {
    mpData = new qpi::cFDAIOData;
    mpData->addFd(-1, 0);
    mWork.setAIOData(tAutoPtr<qpi::cAbstractAIOData>(mpData));
  }
  void update() {
    qpi::tFdInfo& info = mpData->fds()[0];
    const int fd = mpImpl ? mpImpl->handle() : -1;
    // Nothing wanted: no descriptor, so that a closed peer cannot keep
    // waking the processor for events nobody reads.
    info.fd = miEvents ? fd : -1;
    info.events = miEvents;
  }
};

cNetAbstractSocket::cNetAbstractSocket(qpi::cWorkQueue* queue) : mpPrivate(new cPrivate) {
  qpi::cWorkQueue& q = queue ? *queue : qpi::system().workQueue();
  try {
    prepareQueue(q);
    mpPrivate->mWork.setName("NetSocket");
    mpPrivate->renew();
    mpPrivate->mWork.sigTrigger.connect(*this, &cNetAbstractSocket::sltReady);
    q.addJob(mpPrivate->mWork);
  } catch (...) {
    delete mpPrivate;
    throw;
  }
}

cNetAbstractSocket::~cNetAbstractSocket() {
  qpi::detail::cLifeLink::cutAll(mpPrivate->mpLinks);
  // The work leaves its queue by itself when it dies (if the queue lives).
  delete mpPrivate;
}

void cNetAbstractSocket::prepareQueue(qpi::cWorkQueue& queue) {
  qpi::cAbstractProcessEvents* events = queue.events();
  if (events && events->supportsAIO()) return;
  // An asynchronous processor may be on the stack right now; it stays.
  if (events && events->isAsynchronous()) cQCEExceptions::throwQueueWithoutAIO();
  queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
}

bool cNetAbstractSocket::isOpen() const { return mpPrivate->mpImpl && mpPrivate->mpImpl->handle() >= 0; }

tAutoPtr<cNetAbstractAddress> cNetAbstractSocket::localAddress() const {
  if (!isOpen()) cQCEExceptions::throwSocketNotOpen();
  char buffer[cAbstractSocketImpl::MaxSockAddrSize];
  const unsigned int size = mpPrivate->mpImpl->localAddress(buffer, sizeof buffer);
  return detail::addressFromSockAddr(buffer, size);
}

tAutoPtr<cNetAbstractAddress> cNetAbstractSocket::addressFromString(const qstd::cAsciiString& text) {
  return detail::addressFromString(text);
}

tAutoPtr<cAbstractSocketImpl> cNetAbstractSocket::createSocketImpl() const {
  return qpi::cPlatform::createSocketImpl();
}

void cNetAbstractSocket::attach(tAutoPtr<cAbstractSocketImpl> impl, unsigned int events) {
  detach();
  mpPrivate->mpImpl = impl;
  mpPrivate->miEvents = events;
  mpPrivate->renew();
  mpPrivate->update();
}

void cNetAbstractSocket::detach() {
  mpPrivate->miEvents = 0;
  if (mpPrivate->mpImpl) {
    mpPrivate->update();
    mpPrivate->mpImpl.reset();
  }
}

cAbstractSocketImpl* cNetAbstractSocket::impl() const { return mpPrivate->mpImpl.get(); }

void cNetAbstractSocket::watch(unsigned int events) {
  if (mpPrivate->miEvents == events) return;
  mpPrivate->miEvents = events;
  mpPrivate->update();
}

unsigned int cNetAbstractSocket::watched() const { return mpPrivate->miEvents; }

qpi::detail::cLifeLink*& cNetAbstractSocket::lifeLinks() { return mpPrivate->mpLinks; }

qsa::piVoid cNetAbstractSocket::sltReady() {
  // Only what is still wanted: the wish may have changed since the wait.
  const unsigned int events = mpPrivate->mpData->readyEvents(0) & mpPrivate->miEvents;
  if (events && mpPrivate->mpImpl) ready(events);
  return qsa::piVoid();
}

}  // namespace qce
