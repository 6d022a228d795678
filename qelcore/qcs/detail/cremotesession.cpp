#include "qelcore/qcs/detail/cremotesession.h"

#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractinterface.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cqcsexceptionfactory.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/qcs/crmiexception.h"
#include "qelcore/qcs/detail/csha256.h"
#include "qelcore/qcs/detail/nestedwait.h"
#include "qelcore/qelversion.h"
#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/crmiexceptionfactory.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/csaexceptionfactory.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qcs {
namespace detail {

using qstd::cAbstractException;
using qstd::cAsciiString;
using qstd::tAutoPtr;

namespace {

enum : unsigned int {
  ProtocolVersion = 1,
  NonceSize = 32,
  HeaderSize = 4,
  // Timed-out calls whose late results are recognised.
  AbandonedCalls = 256,
  // Bytes of receive buffer an idle session keeps.
  IdleBuffer = 16 * 1024,
  // Causes rebuilt from one exception frame; the rest is dropped.
  MaxRemoteChain = 16
};
const char kTag[] = "QELRemote";

unsigned int getLE32(const char* p) {
  const unsigned char* u = reinterpret_cast<const unsigned char*>(p);
  return unsigned(u[0]) | (unsigned(u[1]) << 8) | (unsigned(u[2]) << 16) | (unsigned(u[3]) << 24);
}

// The exception text of one line, for the debug output and close reasons.
cAsciiString describe(const cAbstractException& e) {
  qucs::cString text;
  e.createMessage(text, qucs::cString(" - "), cAbstractException::MessageWithHistory, nullptr);
  const qstd::tArray<char> utf8 = text.toUTF8();
  return cAsciiString(utf8.data(true), utf8.size());
}

// Every exception class of the library, for exceptions that no component
// registered a prototype of.
class cLibraryExceptions : public qstd::cAbstractExceptionFactory {
public:
  cAbstractException* createException(const cAsciiString& name) const override {
    if (cAbstractException* e = mQCS.createException(name)) return e;
    if (cAbstractException* e = mRMI.createException(name)) return e;
    if (cAbstractException* e = mSA.createException(name)) return e;
    return mSTD.createException(name);
  }

private:
  qstd::cSTDExceptionFactory mSTD;
  qrmi::cRMIExceptionFactory mRMI;
  qsa::cSAExceptionFactory mSA;
  cQCSExceptionFactory mQCS;
};

}  // namespace

// What proxies and forwarders hold of a session: cleared when it goes.
struct cSessionLink {
  cRemoteSessionImpl* mpImpl = nullptr;
};
typedef std::shared_ptr<cSessionLink> tLink;

// One call waiting for its result, on the caller's stack.
struct cPendingCall {
  bool mbDone = false;
  bool mbFailed = false;
  qstd::tArray<char> mResult;
  tAutoPtr<cAbstractException> mpRemote;
  cAsciiString msFailure;
};

class cRemoteSessionImpl : public qrmi::cConnectable {
public:
  cRemoteSessionImpl(cRemoteSession::Role role, cModuleMgr& mgr, const cRemoteOptions& options, cRemoteSink& sink)
      : meRole(role),
        mMgr(mgr),
        mOptions(options),
        mSink(sink),
        mLink(std::make_shared<cSessionLink>()),
        miRead(0),
        miFeedDepth(0),
        mbHelloSent(false),
        mbPeerHello(false),
        mbEstablished(false),
        mbClosed(false),
        miNextCall(1),
        miDispatchDepth(0) {
    QEL_ASSERT(options.hasSecret(), "qcs/cremotesession");
    mLink->mpImpl = this;
    qpi::cPlatform::randomBytes(maOwnNonce, NonceSize);
    mHandshakeTimer.setName("RemoteHandshakeTimeout");
    mHandshakeTimer.sigTrigger.connect(*this, &cRemoteSessionImpl::sltHandshakeTimeout);
    mFlushWork.setName("RemoteSignalFlush");
    mFlushWork.sigTrigger.connect(*this, &cRemoteSessionImpl::sltFlush);
    qpi::system().workQueue().addJob(mHandshakeTimer);
    qpi::system().workQueue().addJob(mFlushWork);
    mMgr.sigComponentRemoved.connect(*this, &cRemoteSessionImpl::sltComponentRemoved);
  }
  ~cRemoteSessionImpl() override {
    qpi::system().workQueue().removeJob(mHandshakeTimer);
    qpi::system().workQueue().removeJob(mFlushWork);
    mLink->mpImpl = nullptr;
    shutDown(cAsciiString(), false);
  }

  // ---- the caller's side of a remote slot call ----
  void call(unsigned int key, unsigned int iface, const cAsciiString& slot, const cComponentLocation& where,
            qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) {
    if (mbClosed || !mbEstablished) throw cRMIException(where, iface, cRMIException::eCallSlot, slot);
    if (mPending.size() >= mOptions.maxPendingCalls()) {
      cRMIException e(where, iface, cRMIException::eCallSlot, slot);
      e.link(qstd::cRuntimeException(
          qucs::cLIMessage("$QTR$Too many pending remote calls (%limit%)!") << mOptions.maxPendingCalls(), __FILE__,
          __LINE__));
      throw e;
    }
    qsa::cSerializeBinary args;
    in.reserialize(args);
    const unsigned int id = miNextCall++;
    cPendingCall pending;
    mPending[id] = &pending;
    {
      qsa::cSerializeBinary& s = beginFrame(FrameCall);
      s.store(id);
      s.store(key);
      s.store(iface);
      s.store(slot);
      const qstd::tArrayRef<char> bytes = args.data();
      s.storeBlock(bytes.data(), bytes.size());
      sendFrame();
    }
    tLink link = mLink;
    flush();
    wait(pending, link);
    if (link->mpImpl && mPending.erase(id)) {
      // Timed out: its result may still come and is dropped then. The
      // oldest of many such calls are forgotten.
      mAbandoned.insert(id);
      if (mAbandoned.size() > AbandonedCalls) mAbandoned.erase(mAbandoned.begin());
    }
    if (pending.mbFailed || !pending.mbDone) {
      cRMIException e(where, iface, cRMIException::eCallSlot, slot);
      if (pending.mpRemote.get()) {
        e.link(*pending.mpRemote);
      } else {
        const cAsciiString why = pending.mbDone ? pending.msFailure : cAsciiString("connection closed");
        e.link(qstd::cRuntimeException(qucs::cLIMessage("$QTR$Remote call failed: %why%!") << why, __FILE__, __LINE__));
      }
      throw e;
    }
    qsa::cDeserializeBinary back(pending.mResult);
    back.reserialize(out);
  }

  // Runs nested passes of the work queue until the result is in, the call
  // timed out or the session is gone.
  static void wait(cPendingCall& pending, const tLink& link) {
    if (pending.mbDone || !link->mpImpl) return;
    const unsigned int timeout = link->mpImpl->mOptions.callTimeout();
    if (!waitNested([&] { return pending.mbDone || !link->mpImpl; }, timeout, "RemoteCallTimeout")) {
      pending.mbDone = true;
      pending.mbFailed = true;
      pending.msFailure = cAsciiString("timed out");
    }
  }

  // ---- incoming bytes ----
  void feed(const char* data, std::size_t size) {
    if (mbClosed) return;
    mBuffer.insert(mBuffer.end(), data, data + size);
    ++miFeedDepth;
    try {
      while (!mbClosed) {
        const std::size_t avail = mBuffer.size() - miRead;
        if (avail < HeaderSize) break;
        const unsigned int length = getLE32(mBuffer.data() + miRead);
        if (length == 0) cQCSExceptions::throwRemoteProtocol("empty frame");
        if (length > mOptions.maxFrameSize()) cQCSExceptions::throwRemoteProtocol("frame exceeds the size limit");
        if (avail - HeaderSize < length) break;
        // Handling a frame may wait for a result and take further bytes in
        // meanwhile: the frame leaves the buffer first.
        std::vector<char> frame(mBuffer.begin() + miRead + HeaderSize, mBuffer.begin() + miRead + HeaderSize + length);
        miRead += HeaderSize + length;
        handleFrame(frame.data(), length);
        flush();
      }
    } catch (const cAbstractException& e) {
      fail(e);
    } catch (const std::bad_alloc&) {
      fail(qstd::cRuntimeException(qucs::cLIMessage("$QTR$Out of memory!"), __FILE__, __LINE__));
    }
    if (--miFeedDepth == 0 && !mbClosed) {
      mBuffer.erase(mBuffer.begin(), mBuffer.begin() + miRead);
      miRead = 0;
      // An idle connection keeps no large buffer from a burst or a big frame.
      if (mBuffer.empty() && mBuffer.capacity() > IdleBuffer) std::vector<char>().swap(mBuffer);
    }
  }

  void handleFrame(const char* payload, unsigned int size) {
    qsa::cDeserializeBinary d;
    d.setData(payload, size);
    unsigned int type = 0;
    type << d;
    if (!mbPeerHello && type != FrameHello) cQCSExceptions::throwRemoteProtocol("expected the peer's hello");
    if (mbPeerHello && !mbEstablished && type != FrameAuth)
      cQCSExceptions::throwRemoteProtocol("expected the peer's authentication");
    switch (type) {
      case FrameHello:
        onHello(d);
        break;
      case FrameAuth:
        onAuth(d);
        break;
      case FrameExport:
        onExport(d);
        break;
      case FrameWithdraw:
        onWithdraw(d);
        break;
      case FrameCall:
        onCall(d);
        break;
      case FrameResult:
        onResult(d, false);
        break;
      case FrameException:
        onResult(d, true);
        break;
      case FrameSignal:
        onSignal(d);
        break;
      default:
        cQCSExceptions::throwRemoteProtocol("unknown frame type");
    }
  }

  // What Call and Signal frames address: a component by its key, one of its
  // interfaces, a slot or signal name, and the archived arguments (viewed
  // where they lie in the frame).
  struct cAddressed {
    unsigned int miKey = 0;
    unsigned int miIface = 0;
    cAsciiString msName;
    const char* mpArgs = nullptr;
    unsigned int miArgs = 0;
  };
  static cAddressed readAddressed(qsa::cDeserializeBinary& d) {
    cAddressed a;
    a.miKey << d;
    a.miIface << d;
    a.msName << d;
    unsigned int position = 0;
    unsigned long long size = 0;
    d.getNextBlockInfo(position, size);
    if (position + size > d.limitPos()) cQCSExceptions::throwRemoteProtocol("truncated arguments");
    a.mpArgs = d.rawData() + position;
    a.miArgs = static_cast<unsigned int>(size);
    return a;
  }

  static void expectEnd(const qsa::cDeserializeBinary& d) {
    if (!d.eoc()) cQCSExceptions::throwRemoteProtocol("trailing bytes in a frame");
  }

  void onHello(qsa::cDeserializeBinary& d) {
    if (mbPeerHello) cQCSExceptions::throwRemoteProtocol("second hello");
    cAsciiString tag;
    unsigned int protocol = 0, major = 0, minor = 0, patch = 0;
    tag << d;
    if (tag != kTag) cQCSExceptions::throwRemoteProtocol("not a remote component peer");
    protocol << d;
    if (protocol != ProtocolVersion) cQCSExceptions::throwRemoteProtocol("unsupported protocol version");
    major << d;
    minor << d;
    patch << d;
    cComponentLocation peer;
    peer << d;
    qstd::tArray<char> nonce;
    d.loadBlock(nonce);
    if (nonce.size() != NonceSize) cQCSExceptions::throwRemoteProtocol("bad nonce");
    expectEnd(d);
    if (major != QELCORE_VERSION_MAJOR) QEL_WARNING("Remote peer runs another major version of the library");
    mPeerLocation = peer;
    std::memcpy(maPeerNonce, nonce.data(), NonceSize);
    mbPeerHello = true;
    if (!mbHelloSent) start();
    unsigned char mac[cSha256::DigestSize];
    proof(meRole, mac);
    qsa::cSerializeBinary& s = beginFrame(FrameAuth);
    s.storeBlock(reinterpret_cast<const char*>(mac), sizeof(mac));
    sendFrame();
  }

  // The proof of the end with `role`: HMAC over the role, the client's then
  // the server's nonce and location. Each end's own nonce makes a recorded
  // proof useless; the role keeps an end from reflecting the peer's proof.
  void proof(cRemoteSession::Role role, unsigned char mac[cSha256::DigestSize]) const {
    const cAsciiString& secret = mOptions.secret();
    cHmacSha256 h(secret.c_str(), secret.size());
    const unsigned char r = static_cast<unsigned char>(role);
    h.update(kTag, sizeof(kTag));
    h.update(&r, 1);
    const bool client = meRole == cRemoteSession::Client;
    h.update(client ? maOwnNonce : maPeerNonce, NonceSize);
    h.update(client ? maPeerNonce : maOwnNonce, NonceSize);
    const cAsciiString own = mOwnLocation.toString(), peer = mPeerLocation.toString();
    const cAsciiString& first = client ? own : peer;
    const cAsciiString& second = client ? peer : own;
    h.update(first.c_str(), first.size() + 1);
    h.update(second.c_str(), second.size() + 1);
    h.finish(mac);
  }

  void onAuth(qsa::cDeserializeBinary& d) {
    qstd::tArray<char> mac;
    d.loadBlock(mac);
    expectEnd(d);
    unsigned char expected[cSha256::DigestSize];
    const cRemoteSession::Role peerRole =
        meRole == cRemoteSession::Client ? cRemoteSession::Server : cRemoteSession::Client;
    proof(peerRole, expected);
    const bool ok = mac.size() == cSha256::DigestSize &&
                    equalConstantTime(expected, reinterpret_cast<const unsigned char*>(mac.data()), sizeof(expected));
    wipe(expected, sizeof(expected));
    if (!ok) cQCSExceptions::throwRemoteAuthentication();
    mbEstablished = true;
    stopHandshakeTimer();
    QEL_DEBUG("Remote peer authenticated");
    if (meRole == cRemoteSession::Server)
      for (std::size_t i = 0; i < mExported.size(); ++i) sendExport(*mExported[i].mpComponent);
    flush();
    if (!mbClosed) mSink.established();
  }

  // ---- the server's side ----
  struct cExported {
    cAbstractComponent* mpComponent;
    std::vector<std::unique_ptr<qrmi::cConnectable>> mForwarders;
  };

  void exportComponent(cAbstractComponent& c) {
    QEL_ASSERT(meRole == cRemoteSession::Server, "qcs/cremotesession");
    for (const cExported& e : mExported)
      if (e.mpComponent == &c) return;
    mExported.push_back(cExported{&c, {}});
    forwardSignals(mExported.back());
    if (mbEstablished && !mbClosed) sendExport(c);
    flush();
  }

  void sendExport(const cAbstractComponent& c) {
    qsa::cSerializeBinary& s = beginFrame(FrameExport);
    s.store(c.address().moduleID());
    c.location() >> s;
    const unsigned int n = c.numInterfaces();
    s.store(n);
    for (unsigned int i = 0; i < n; ++i) c.interface(i).store(s);
    sendFrame();
  }

  qsa::piVoid sltComponentRemoved(cAbstractComponent& c) {
    for (std::size_t i = 0; i < mExported.size(); ++i) {
      if (mExported[i].mpComponent != &c) continue;
      mExported.erase(mExported.begin() + static_cast<std::ptrdiff_t>(i));
      if (mbEstablished && !mbClosed) {
        qsa::cSerializeBinary& s = beginFrame(FrameWithdraw);
        s.store(c.address().moduleID());
        sendFrame();
        flush();
      }
      break;
    }
    return qsa::piVoid();
  }

  // Public signals of exported interfaces reach the peer through a
  // forwarder whose public slots (one per signal) send Signal frames.
  // Signals that cannot be connected by name are not forwarded.
  void forwardSignals(cExported& exported);

  void sendSignal(unsigned int key, unsigned int iface, const cAsciiString& name, qsa::cAbstractDeserializer& in) {
    if (!mbEstablished || mbClosed) return;
    qsa::cSerializeBinary args;
    in.reserialize(args);
    qsa::cSerializeBinary& s = beginFrame(FrameSignal);
    s.store(key);
    s.store(iface);
    s.store(name);
    const qstd::tArrayRef<char> bytes = args.data();
    s.storeBlock(bytes.data(), bytes.size());
    sendFrame();
    // Emissions in a row leave in one send, when the queue gets to it; a
    // call made meanwhile takes them along, in order.
    if (!mFlushWork.isStarted()) mFlushWork.start(0, qpi::cWork::SingleTask);
  }
  qsa::piVoid sltFlush() {
    flush();
    return qsa::piVoid();
  }

  cAbstractComponent& exported(unsigned int key) const {
    for (const cExported& e : mExported)
      if (e.mpComponent->address().moduleID() == key) return *e.mpComponent;
    cQCSExceptions::throwNoSuchModule(cComponentAddr(1, key));
  }

  void onCall(qsa::cDeserializeBinary& d) {
    if (meRole != cRemoteSession::Server) cQCSExceptions::throwRemoteProtocol("call to a client");
    unsigned int id = 0;
    id << d;
    const cAddressed call = readAddressed(d);
    const unsigned int key = call.miKey, iface = call.miIface;
    const cAsciiString& slot = call.msName;
    qsa::cDeserializeBinary args;
    args.setData(call.mpArgs, call.miArgs);
    if (miDispatchDepth >= mOptions.maxPendingCalls()) cQCSExceptions::throwRemoteProtocol("too many nested calls");
    qsa::cSerializeBinary results;
    tAutoPtr<cAbstractException> raised;
    tLink link = mLink;
    ++miDispatchDepth;
    try {
      exported(key).getInterface(iface).invokeIndirectRemoteSlot(slot, args, results);
    } catch (const cAbstractException& e) {
      raised.reset(e.clone());
    }
    if (!link->mpImpl) return;  // the slot ended the session
    --miDispatchDepth;
    if (mbClosed) return;
    if (raised.get()) {
      qsa::cSerializeBinary& s = beginFrame(FrameException);
      s.store(id);
      raised->storeRecursive(s);
      sendFrame();
    } else {
      qsa::cSerializeBinary& s = beginFrame(FrameResult);
      s.store(id);
      const qstd::tArrayRef<char> bytes = results.data();
      s.storeBlock(bytes.data(), bytes.size());
      sendFrame();
    }
  }

  // ---- the client's side ----
  class cProxy;
  void onExport(qsa::cDeserializeBinary& d);
  void onWithdraw(qsa::cDeserializeBinary& d) {
    if (meRole != cRemoteSession::Client) cQCSExceptions::throwRemoteProtocol("withdrawal sent to a server");
    unsigned int key = 0;
    key << d;
    expectEnd(d);
    removeProxy(key);
  }
  void removeProxy(unsigned int key);
  void onSignal(qsa::cDeserializeBinary& d);

  void onResult(qsa::cDeserializeBinary& d, bool exception) {
    if (meRole != cRemoteSession::Client) cQCSExceptions::throwRemoteProtocol("result sent to a server");
    unsigned int id = 0;
    id << d;
    const auto found = mPending.find(id);
    if (found == mPending.end()) {
      if (mAbandoned.erase(id)) return;
      cQCSExceptions::throwRemoteProtocol("result of no pending call");
    }
    cPendingCall& pending = *found->second;
    if (exception) {
      pending.mpRemote = rebuildChain(d);
      pending.mbFailed = true;
    } else {
      d.loadBlock(pending.mResult);
    }
    expectEnd(d);
    mPending.erase(found);
    pending.mbDone = true;
  }

  // The chain as storeRecursive() wrote it; each exception is made by a
  // component's prototype (cModuleMgr::createRemoteException) or, for the
  // library's own classes, by their factories, and marked as remote.
  tAutoPtr<cAbstractException> rebuildChain(qsa::cDeserializeBinary& d) {
    tAutoPtr<cAbstractException> first;
    for (unsigned int n = 0;; ++n) {
      bool more = false;
      more << d;
      if (!more) break;
      if (n >= MaxRemoteChain) cQCSExceptions::throwRemoteProtocol("exception chain too long");
      cAsciiString name;
      name << d;
      tAutoPtr<cAbstractException> e;
      try {
        e = mMgr.createRemoteException(mPeerLocation, name, d);
      } catch (const cAbstractException&) {
        static const cLibraryExceptions library;
        e.reset(library.createException(name));
        if (!e.get()) cQCSExceptions::throwUnknownRemoteException(name);
        e->load(d);
      }
      e->setRemoteInfo(mPeerLocation);
      if (first.get())
        first->link(*e);
      else
        first = e;
    }
    return first;
  }

  // ---- framing out ----
  qsa::cSerializeBinary& beginFrame(unsigned int type) {
    mOut.clear();
    mOut.store(0u);  // room for the length, overwritten below
    mOut.store(type);
    return mOut;
  }
  void sendFrame() {
    qstd::tArrayRef<char> bytes = mOut.data();
    // The length replaces the placeholder element (id and value, 8 bytes):
    // the frame starts 4 bytes in.
    char* p = bytes.data();
    const unsigned int length = bytes.size() - 8;
    p[4] = static_cast<char>(length);
    p[5] = static_cast<char>(length >> 8);
    p[6] = static_cast<char>(length >> 16);
    p[7] = static_cast<char>(length >> 24);
    mQueue.insert(mQueue.end(), p + 4, p + bytes.size());
  }
  // Frames made while handling one event leave together, at its end, so
  // that a peer that answers at once (from inside the sink) cannot see them
  // out of order. Bytes flushed from inside the sink follow the bytes being
  // sent, since a receiver takes a whole send before it looks at it.
  // A peer that does not read is dropped before its backlog passes the
  // limit: nothing else bounds what this end would buffer for it.
  void flush() {
    while (!mQueue.empty() && !mbClosed) {
      std::vector<char> chunk;
      chunk.swap(mQueue);
      const std::size_t backlog = mSink.backlog();
      if (backlog + chunk.size() > mOptions.maxSendBacklog()) {
        fail(qstd::cRuntimeException(qucs::cLIMessage("$QTR$The peer does not read: %bytes% bytes wait for it!")
                                         << static_cast<unsigned long long>(backlog + chunk.size()),
                                     __FILE__, __LINE__));
        return;
      }
      mSink.send(chunk.data(), static_cast<unsigned int>(chunk.size()));
    }
  }

  void start() {
    if (mbHelloSent || mbClosed) return;
    mbHelloSent = true;
    // A peer that never completes the handshake does not hold the
    // connection for ever.
    mHandshakeTimer.start(mOptions.handshakeTimeout(), qpi::cWork::SingleTask);
    mOwnLocation = cComponentLocation();
    qsa::cSerializeBinary& s = beginFrame(FrameHello);
    s.store(cAsciiString(kTag));
    s.store(static_cast<unsigned int>(ProtocolVersion));
    s.store(static_cast<unsigned int>(QELCORE_VERSION_MAJOR));
    s.store(static_cast<unsigned int>(QELCORE_VERSION_MINOR));
    s.store(static_cast<unsigned int>(QELCORE_VERSION_PATCH));
    mOwnLocation >> s;
    s.storeBlock(reinterpret_cast<const char*>(maOwnNonce), NonceSize);
    sendFrame();
  }

  qsa::piVoid sltHandshakeTimeout() {
    if (!mbEstablished && !mbClosed) {
      fail(qstd::cRuntimeException(qucs::cLIMessage("$QTR$Remote handshake timed out!"), __FILE__, __LINE__));
    }
    return qsa::piVoid();
  }
  void stopHandshakeTimer() { mHandshakeTimer.stop(); }

  // ---- ending ----
  void fail(const cAbstractException& e) {
    if (mbClosed) return;
    const cAsciiString reason = describe(e);
    QEL_ERROR((cAsciiString("Remote connection closed: ") + reason).c_str());
    shutDown(reason, true);
  }

  void shutDown(const cAsciiString& reason, bool tellSink) {
    if (mbClosed) return;
    mbClosed = true;
    msReason = reason;
    stopHandshakeTimer();
    for (auto& p : mPending) {
      p.second->mbDone = true;
      p.second->mbFailed = true;
      p.second->msFailure = reason.empty() ? cAsciiString("connection closed") : reason;
    }
    mPending.clear();
    removeAllProxies();
    mExported.clear();
    mBuffer.clear();
    mQueue.clear();
    miRead = 0;
    if (tellSink) mSink.close();
  }
  void removeAllProxies();

  cRemoteSession::Role meRole;
  cModuleMgr& mMgr;
  const cRemoteOptions& mOptions;
  cRemoteSink& mSink;
  tLink mLink;
  std::vector<char> mBuffer;
  std::size_t miRead;
  // Frames not handed to the sink yet.
  std::vector<char> mQueue;
  unsigned int miFeedDepth;
  bool mbHelloSent;
  bool mbPeerHello;
  bool mbEstablished;
  bool mbClosed;
  unsigned char maOwnNonce[NonceSize];
  unsigned char maPeerNonce[NonceSize];
  cComponentLocation mOwnLocation;
  cComponentLocation mPeerLocation;
  cAsciiString msReason;
  qsa::cSerializeBinary mOut;
  qpi::cWork mHandshakeTimer;
  // Sends the frames of signal emissions.
  qpi::cWork mFlushWork;
  std::map<unsigned int, cPendingCall*> mPending;
  // Calls that timed out, whose results are ignored.
  std::set<unsigned int> mAbandoned;
  unsigned int miNextCall;
  unsigned int miDispatchDepth;
  std::vector<cExported> mExported;
  std::map<unsigned int, cProxy*> mProxies;
};

// ---------------------------------------------------------------- proxies

namespace {

// Carries calls of a peer's public slot to the peer.
class cRemoteSlotCall : public qrmi::cAbstractSlotCall {
public:
  cRemoteSlotCall(qrmi::cConnectable& owner, const tLink& link, unsigned int key, unsigned int iface,
                  const cAsciiString& name, const cComponentLocation& where)
      : cAbstractSlotCall(owner, nullptr), mLink(link), miKey(key), miIface(iface), msName(name), mWhere(where) {}
  void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer& out) const override {
    if (!mLink->mpImpl) throw cRMIException(mWhere, miIface, cRMIException::eCallSlot, msName);
    mLink->mpImpl->call(miKey, miIface, msName, mWhere, in, out);
  }
  void call(qsa::cReferenceFrame&) const override { qrmi::cRMIExceptions::throwIndirectCallSlotCallRef(); }

private:
  tLink mLink;
  unsigned int miKey;
  unsigned int miIface;
  cAsciiString msName;
  cComponentLocation mWhere;
};

// One receiver's public slot connected by name to a remote signal.
class cDeliveryCall : public qrmi::cAbstractSlotCall {
public:
  cDeliveryCall(qrmi::cConnectable& receiver, qrmi::cAbstractSignal* signal, const cAsciiString& slot)
      : cAbstractSlotCall(receiver, signal), msSlot(slot) {}
  const cAsciiString msSlot;
};

}  // namespace

// Stands for a peer's public signal: its emissions arrive in Signal frames
// and reach the public slots connected with connectIndirect().
class cRemoteSignal : public qrmi::cAbstractSignal {
public:
  ~cRemoteSignal() override { dropAll(); }
  void connectIndirect(qrmi::cConnectable& object, const cAsciiString& slotName) override {
    std::unique_ptr<cDeliveryCall> call(new cDeliveryCall(object, this, slotName));
    adopt(*call);
    mCalls.push_back(call.release());
  }
  bool disconnectObject(const qrmi::cConnectable& object) override {
    bool any = false;
    for (std::size_t i = 0; i < mCalls.size();) {
      if (&mCalls[i]->assignedObject() == &object) {
        cDeliveryCall* gone = mCalls[i];
        mCalls.erase(mCalls.begin() + static_cast<std::ptrdiff_t>(i));
        delete gone;
        any = true;
      } else {
        ++i;
      }
    }
    return any;
  }
  bool disconnect(const qrmi::cConnectable& object) override { return disconnectObject(object); }

  // Each receiver reads the arguments from the start; a receiver that fails
  // is reported and the others still get the emission.
  void deliver(const char* args, unsigned int size) {
    for (std::size_t i = 0; i < mCalls.size(); ++i) {
      qsa::cDeserializeBinary in;
      in.setData(args, size);
      qsa::cSerializeBinary ignored;
      try {
        mCalls[i]->assignedObject().invokeIndirectRemoteSlot(mCalls[i]->msSlot, in, ignored);
      } catch (const cAbstractException& e) {
        QEL_WARNING((cAsciiString("Remote signal delivery failed: ") + describe(e)).c_str());
      }
    }
  }

private:
  void dropAll() {
    std::vector<cDeliveryCall*> calls;
    calls.swap(mCalls);
    for (cDeliveryCall* c : calls) delete c;
  }
  std::vector<cDeliveryCall*> mCalls;
};

namespace {

class cProxyInterface : public cAbstractInterface {
public:
  cProxyInterface() : cAbstractInterface(cInterfaceDesc()) {}
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
};

class cProxyFactory : public qrmi::cAbstractRMIFactory {
public:
  cProxyFactory(const tLink& link, unsigned int key, unsigned int iface, const cComponentLocation& where)
      : mLink(link), miKey(key), miIface(iface), mWhere(where) {}
  tAutoPtr<qrmi::cAbstractSlotCall> createSlotCall(qrmi::cConnectable& owner,
                                                   const qrmi::cPublicSlot& description) override {
    return tAutoPtr<qrmi::cAbstractSlotCall>(
        new cRemoteSlotCall(owner, mLink, miKey, miIface, description.name(), mWhere));
  }
  tAutoPtr<qrmi::cAbstractSignal> createSignal(qrmi::cConnectable&, const qrmi::cPublicSignal&) override {
    return tAutoPtr<qrmi::cAbstractSignal>(new cRemoteSignal);
  }

private:
  const tLink& mLink;
  unsigned int miKey;
  unsigned int miIface;
  const cComponentLocation& mWhere;
};

}  // namespace

// A peer's component in this process's manager.
class cRemoteSessionImpl::cProxy : public cAbstractComponent {
public:
  cProxy(cModuleMgr& mgr, const tLink& link, unsigned int key, const cComponentLocation& where)
      : cAbstractComponent(mgr), mLink(link), miKey(key) {
    componentLocation() = where;
  }
  ~cProxy() override {
    if (mLink->mpImpl) mLink->mpImpl->mProxies.erase(miKey);
  }
  bool isLocal() const override { return false; }
  void add(tAutoPtr<cAbstractInterface> iface) { addInterface(iface); }

private:
  tLink mLink;
  unsigned int miKey;
};

void cRemoteSessionImpl::onExport(qsa::cDeserializeBinary& d) {
  if (meRole != cRemoteSession::Client) cQCSExceptions::throwRemoteProtocol("export sent to a server");
  unsigned int key = 0, count = 0;
  key << d;
  cComponentLocation where;
  where << d;
  count << d;
  if (mProxies.count(key)) cQCSExceptions::throwRemoteProtocol("component exported twice");
  if (mProxies.size() >= mOptions.maxComponents()) cQCSExceptions::throwRemoteProtocol("too many components");
  // Every interface takes at least a description's bytes: a count beyond
  // what the frame holds is a lie.
  if (count > d.limitPos() / 8) cQCSExceptions::throwRemoteProtocol("interface count beyond the frame");
  std::unique_ptr<cProxy> proxy(new cProxy(mMgr, mLink, key, where));
  for (unsigned int i = 0; i < count; ++i) {
    tAutoPtr<cAbstractInterface> iface(new cProxyInterface);
    cProxyFactory factory(mLink, key, i, where);
    iface->load(d, factory);
    proxy->add(iface);
  }
  expectEnd(d);
  cProxy* added = proxy.get();
  mProxies[key] = added;
  mMgr.addComponent(tAutoPtr<cAbstractComponent>(proxy.release()), cComponentAddr());
}

void cRemoteSessionImpl::removeProxy(unsigned int key) {
  const auto found = mProxies.find(key);
  if (found == mProxies.end()) cQCSExceptions::throwRemoteProtocol("withdrawal of an unknown component");
  cProxy* proxy = found->second;
  mProxies.erase(found);
  proxy->removeLater();
}

void cRemoteSessionImpl::removeAllProxies() {
  std::map<unsigned int, cProxy*> proxies;
  proxies.swap(mProxies);
  for (auto& p : proxies) p.second->removeLater();
}

void cRemoteSessionImpl::onSignal(qsa::cDeserializeBinary& d) {
  if (meRole != cRemoteSession::Client) cQCSExceptions::throwRemoteProtocol("signal sent to a server");
  const cAddressed emission = readAddressed(d);
  const unsigned int key = emission.miKey, iface = emission.miIface;
  const cAsciiString& name = emission.msName;
  const auto found = mProxies.find(key);
  if (found == mProxies.end()) return;  // withdrawn meanwhile
  if (iface >= found->second->numInterfaces()) cQCSExceptions::throwRemoteProtocol("signal of an unknown interface");
  qrmi::cPublicSignal& signal = found->second->getInterface(iface).findSignal(name);
  cRemoteSignal* remote = dynamic_cast<cRemoteSignal*>(&signal.signal());
  if (remote) remote->deliver(emission.mpArgs, emission.miArgs);
}

namespace {

// Sends the emissions of one exported signal.
class cForwardCall : public qrmi::cAbstractSlotCall {
public:
  cForwardCall(qrmi::cConnectable& owner, const tLink& link, unsigned int key, unsigned int iface,
               const cAsciiString& name)
      : cAbstractSlotCall(owner, nullptr), mLink(link), miKey(key), miIface(iface), msName(name) {}
  void call(qsa::cAbstractDeserializer& in, qsa::cAbstractSerializer&) const override {
    if (mLink->mpImpl) mLink->mpImpl->sendSignal(miKey, miIface, msName, in);
  }

private:
  tLink mLink;
  unsigned int miKey;
  unsigned int miIface;
  cAsciiString msName;
};

}  // namespace

void cRemoteSessionImpl::forwardSignals(cExported& exported) {
  cAbstractComponent& c = *exported.mpComponent;
  const unsigned int key = c.address().moduleID();
  for (unsigned int i = 0; i < c.numInterfaces(); ++i) {
    cAbstractInterface& iface = c.getInterface(i);
    const qrmi::cConnectable::tPublicSignalList* signals = iface.hasPublicSignals();
    if (!signals) continue;
    std::unique_ptr<qrmi::cConnectable> forwarder(new qrmi::cConnectable);
    for (qrmi::cPublicSignal* signal : *signals) {
      try {
        forwarder->registerRemoteSlot(signal->name(), tAutoPtr<qrmi::cAbstractSlotCall>(
                                                          new cForwardCall(*forwarder, mLink, key, i, signal->name())));
        signal->signal().connectIndirect(*forwarder, signal->name());
      } catch (const cAbstractException& e) {
        QEL_DEBUG((cAsciiString("Remote signal not forwarded: ") + describe(e)).c_str());
      }
    }
    exported.mForwarders.push_back(std::move(forwarder));
  }
}

// ---------------------------------------------------------------- facade

cRemoteSink::~cRemoteSink() {}
void cRemoteSink::established() {}

std::size_t cRemoteSink::backlog() const { return 0; }

cRemoteSession::cRemoteSession(Role role, cModuleMgr& mgr, const cRemoteOptions& options, cRemoteSink& sink)
    : mpImpl(new cRemoteSessionImpl(role, mgr, options, sink)) {}

cRemoteSession::~cRemoteSession() { delete mpImpl; }

void cRemoteSession::start() {
  try {
    mpImpl->start();
    mpImpl->flush();
  } catch (const cAbstractException& e) {
    mpImpl->fail(e);
  }
}

void cRemoteSession::feed(const char* data, std::size_t size) { mpImpl->feed(data, size); }

void cRemoteSession::connectionLost() { mpImpl->shutDown(cAsciiString("connection lost"), false); }

void cRemoteSession::close() { mpImpl->shutDown(cAsciiString(), true); }

void cRemoteSession::exportComponent(cAbstractComponent& component) { mpImpl->exportComponent(component); }

bool cRemoteSession::established() const { return mpImpl->mbEstablished && !mpImpl->mbClosed; }
bool cRemoteSession::closed() const { return mpImpl->mbClosed; }
const qstd::cAsciiString& cRemoteSession::closeReason() const { return mpImpl->msReason; }
const cComponentLocation& cRemoteSession::peerLocation() const { return mpImpl->mPeerLocation; }
unsigned int cRemoteSession::pendingCalls() const { return static_cast<unsigned int>(mpImpl->mPending.size()); }
unsigned int cRemoteSession::proxyCount() const { return static_cast<unsigned int>(mpImpl->mProxies.size()); }

}  // namespace detail
}  // namespace qcs
