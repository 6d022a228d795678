#include "qelcore/qce/net++/cnetabstractserver.h"

#include "qelcore/pi/cabstractsocketimpl.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/pi/detail/clifelink.h"
#include "qelcore/pi/tfdinfo.h"
#include "qelcore/qce/detail/netsockaddr.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/std/casciistring.h"

namespace qce {

using qpi::cAbstractSocketImpl;
using qpi::detail::cLifeLink;
using qstd::tAutoPtr;

namespace {

// Peers the system keeps waiting before it refuses more.
const int kBacklog = 128;
// How long accepting rests after a failure.
const unsigned int kPauseMs = 100;

// An accepted connection: constructible here.
class cAcceptedConnection : public cNetAbstractConnection {
public:
  explicit cAcceptedConnection(qpi::cWorkQueue* queue) : cNetAbstractConnection(queue) {}
};

}  // namespace

cNetAbstractServer::cNetAbstractServer(qpi::cWorkQueue* queue)
    : cNetAbstractSocket(queue), mpQueue(queue ? queue : &qpi::system().workQueue()), miAcceptBatch(16) {
  sigAccepted.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigError.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
}

// A pause still in the queue runs once more with nothing connected and goes.
cNetAbstractServer::~cNetAbstractServer() {}

void cNetAbstractServer::listen(unsigned int port) { listen(cNetIPv4Address(127u | 1u << 24, port)); }

void cNetAbstractServer::listen(const cNetAbstractAddress& address) {
  char sockAddr[cAbstractSocketImpl::MaxSockAddrSize];
  const unsigned int size = detail::toSockAddr(address, false, sockAddr, sizeof sockAddr);
  close();
  tAutoPtr<cAbstractSocketImpl> impl = createSocketImpl();
  impl->listen(sockAddr, size, kBacklog);
  attach(impl, qpi::tFdInfo::Read);
}

void cNetAbstractServer::listen(const qstd::cAsciiString& address) { listen(*detail::addressFromString(address)); }

void cNetAbstractServer::listen(const char* address) { listen(qstd::cAsciiString(address)); }

bool cNetAbstractServer::isListening() const { return isOpen(); }

unsigned int cNetAbstractServer::port() const {
  if (!isOpen()) return 0;
  char sockAddr[cAbstractSocketImpl::MaxSockAddrSize];
  return detail::portOf(sockAddr, impl()->localAddress(sockAddr, sizeof sockAddr));
}

void cNetAbstractServer::close() {
  if (mPause) mPause->stop();
  detach();
}

qsa::piVoid cNetAbstractServer::sltResume() {
  if (impl()) watch(qpi::tFdInfo::Read);
  return qsa::piVoid();
}

void cNetAbstractServer::setAcceptBatch(unsigned int count) { miAcceptBatch = count ? count : 1; }

void cNetAbstractServer::ready(unsigned int) {
  cLifeLink alive(lifeLinks());
  for (unsigned int i = 0; i < miAcceptBatch && impl(); ++i) {
    tAutoPtr<cAbstractSocketImpl> accepted;
    try {
      accepted = impl()->accept();
    } catch (const qstd::cAbstractException& e) {
      sigError(*this, e);
      if (alive.gone() || !impl()) return;
      watch(0);
      if (!mPause) {
        mPause = mpQueue->createJob();
        mPause->setName("NetAcceptPause");
        mPause->sigTrigger.connect(*this, &cNetAbstractServer::sltResume);
      }
      mPause->start(kPauseMs, qpi::cWork::SingleTask);
      return;
    }
    if (!accepted) return;
    tAutoPtr<cNetAbstractConnection> connection(new cAcceptedConnection(mpQueue));
    connection->adopt(accepted);
    sigAccepted(*this, connection);
    // A connection nobody took goes with `connection`.
    if (alive.gone()) return;
  }
}

}  // namespace qce
