/// \class qce::cNetAbstractSocket
/// The common part of the network classes: one operating-system socket that
/// lives on a work queue. The socket is watched by one asynchronous I/O work
/// on that queue, so every reaction to the network (connection established,
/// data arrived, room to send, peer gone) runs in the queue's thread, from the
/// queue's pass, without a thread per socket and without blocking calls.
///
/// Use the derived classes: cNetAbstractClient (connects out and holds a
/// cNetAbstractConnection), cNetAbstractServer (listens and hands out a
/// cNetAbstractConnection per accepted peer).
///
/// The queue. Every socket names the work queue it runs on; none (null) means
/// the system's main queue, qpi::system().workQueue(). The queue needs an
/// event processor that waits on sockets; the constructor installs the
/// platform's one (qpi::cPlatform::createAIOProcessEvents()) on a queue whose
/// processor cannot, so nothing needs to be set up by hand. To set it up
/// yourself, before the first socket:
///
/// \code
/// qpi::cWorkQueue& queue = qpi::system().workQueue();
/// queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
/// qce::cNetAbstractServer server(&queue);
/// for (;;) queue.process();
/// \endcode
///
/// A socket and its queue belong to one thread; other threads reach it by
/// posting works to its queue (qpi::cWorkQueue::post).
///
/// Lifetimes. The queue holds the socket's work by reference: the socket may
/// die before or after its queue (once the queue is gone the socket hears no
/// more from the network, and can still be closed and destroyed). A socket may
/// be destroyed from inside any of its own signals. Destructors never throw.
///
/// Transports. The classes are written against qpi::cAbstractSocketImpl; the
/// platform's TCP socket (IPv4 and IPv6, chosen by the address) is the
/// default. A derived class may return another transport from
/// createSocketImpl().
#ifndef QELCORE_QCE_NET_CNETABSTRACTSOCKET_H
#define QELCORE_QCE_NET_CNETABSTRACTSOCKET_H

#include "qelcore/qelexport.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {
class cAsciiString;
}
namespace qpi {
class cAbstractSocketImpl;
class cWorkQueue;
namespace detail {
class cLifeLink;
}
}  // namespace qpi

namespace qce {

class cNetAbstractAddress;

/// A socket on a work queue: the base of connections and servers (see the
/// file comment).
class QEL_EXPORT cNetAbstractSocket : public qrmi::cConnectable {
public:
  /// Not copyable: a socket is one operating-system object.
  cNetAbstractSocket(const cNetAbstractSocket&) = delete;
  /// Not assignable.
  cNetAbstractSocket& operator=(const cNetAbstractSocket&) = delete;
  /// Closes the operating-system socket at once (unsent data is dropped) and
  /// leaves the queue. Never throws.
  ~cNetAbstractSocket() override;

  /// Whether an operating-system socket is open (connecting, connected,
  /// listening, or still flushing after a close()).
  bool isOpen() const;
  /// The address this socket is bound to, in the type of its family
  /// ("TcpIpv4", or "TcpIpv6", which needs the IPv6 address module loaded).
  /// Runtime exception "Network socket is not open!" when it is not.
  qstd::tAutoPtr<cNetAbstractAddress> localAddress() const;

  /// Gives `queue` the platform's asynchronous I/O event processor unless its
  /// processor already waits on sockets. The constructor calls it for the
  /// socket's queue. Bug exception when the queue's processor drives the
  /// queue itself (an asynchronous processor): it cannot be replaced then.
  static void prepareQueue(qpi::cWorkQueue& queue);

  /// Parses the text form of a numeric address with a port:
  /// "a.b.c.d:port" (a "TcpIpv4" address), "[v6 address]:port" (a
  /// "TcpIpv6" address from the IPv6 address module, which must be loaded)
  /// and "localhost:port" (127.0.0.1). Host names are not looked up: a name
  /// lookup can block for seconds, which the main loop must not. Resolve
  /// names elsewhere (on a thread) and pass the number. Runtime exceptions
  /// for malformed text ("Host names are not resolved ("%address%"); give
  /// a numeric address!" for names, the address types' own messages
  /// otherwise).
  static qstd::tAutoPtr<cNetAbstractAddress> addressFromString(const qstd::cAsciiString& text);

protected:
  /// Runs on `queue`, the system's main queue when null (see prepareQueue()).
  explicit cNetAbstractSocket(qpi::cWorkQueue* queue);

  /// A new operating-system socket for this object; the platform's TCP
  /// socket by default.
  virtual qstd::tAutoPtr<qpi::cAbstractSocketImpl> createSocketImpl() const;
  /// Called from the queue with what the socket became ready for
  /// (qpi::tFdInfo::Read, qpi::tFdInfo::Write). The object may be destroyed
  /// inside.
  virtual void ready(unsigned int events) = 0;

  /// Takes `impl` as this object's socket (closing one it had) and watches it
  /// for `events`.
  void attach(qstd::tAutoPtr<qpi::cAbstractSocketImpl> impl, unsigned int events);
  /// Closes the socket (if any) and stops watching.
  void detach();
  /// The socket, or null.
  qpi::cAbstractSocketImpl* impl() const;
  /// What to wait for from now on (0: nothing).
  void watch(unsigned int events);
  /// What is waited for now.
  unsigned int watched() const;
  /// The chain of this object's stack marks (see qpi::detail::cLifeLink):
  /// code that emits a signal and goes on afterwards makes a mark here and
  /// checks it, as the receiver may destroy the object.
  qpi::detail::cLifeLink*& lifeLinks();

private:
  class cPrivate;
  qsa::piVoid sltReady();

  cPrivate* mpPrivate;
};

}  // namespace qce

#endif
