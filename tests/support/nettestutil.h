// Helpers for the network tests: a work queue that waits on sockets and is
// pumped until something has happened, a recorder of a connection's
// signals, and a set of accepted connections that echo what they receive.
#ifndef QELCORE_TESTS_SUPPORT_NETTESTUTIL_H
#define QELCORE_TESTS_SUPPORT_NETTESTUTIL_H

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qce/net++/cnetabstractconnection.h"
#include "qelcore/qce/net++/cnetabstractserver.h"
#include "qelcore/rmi/cconnectable.h"

#include "support/exceptiontext.h"

namespace qeltest {

// A queue with the I/O event processor and a short periodic tick, so that a
// pass never sleeps long when nothing arrives.
class cNetQueue {
public:
  cNetQueue() {
    queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
    mTick = queue.createJob();
    mTick->setName("tick");
    mTick->start(5, qpi::cWork::Periodic);
  }

  // Runs passes until `done` holds; false after `ms` milliseconds without.
  bool runUntil(const std::function<bool()>& done, int ms = 10000) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (!done()) {
      if (std::chrono::steady_clock::now() > end) return false;
      queue.process();
    }
    return true;
  }
  // Runs passes for about `ms` milliseconds.
  void runFor(int ms) {
    runUntil([] { return false; }, ms);
  }

  qpi::cWorkQueue queue;

private:
  qstd::tSharedObject<qpi::cWork> mTick;
};

// Everything a connection emitted, in order ("connected", "data", "error",
// "closed"), the bytes it received (consumed at once unless `keep`) and the
// last error's text chain.
class cRecorder : public qrmi::cConnectable {
public:
  void watch(qce::cNetAbstractConnection& c) {
    c.sigConnected.connect(*this, [this](qce::cNetAbstractConnection& conn) { note("connected", conn); });
    c.sigData.connect(*this, [this](qce::cNetAbstractConnection& conn) {
      if (!keep) {
        data.append(conn.receivedData(), conn.receivedSize());
        conn.consume(conn.receivedSize());
      }
      note("data", conn);
    });
    c.sigError.connect(*this, [this](qce::cNetAbstractConnection& conn, const qstd::cAbstractException& e) {
      error = chainOf(e);
      errorType = e.typeName().c_str();
      note("error", conn);
    });
    c.sigClosed.connect(*this, [this](qce::cNetAbstractConnection& conn) { note("closed", conn); });
  }
  int count(const std::string& what) const {
    int n = 0;
    for (const std::string& e : events) n += e == what;
    return n;
  }
  // The events without repeated "data".
  std::string story() const {
    std::string s;
    for (const std::string& e : events) {
      if (e == "data" && s.size() >= 4 && s.compare(s.size() - 4, 4, "data") == 0) continue;
      s += s.empty() ? e : " " + e;
    }
    return s;
  }

  std::vector<std::string> events;
  std::string data;
  std::vector<std::string> error;
  std::string errorType;
  bool keep = false;
  // Runs after each event is noted (for closing or destroying inside).
  std::function<void(const std::string&, qce::cNetAbstractConnection&)> then;

private:
  void note(const char* what, qce::cNetAbstractConnection& c) {
    events.push_back(what);
    if (then) then(what, c);
  }
};

// Takes every connection a server accepts; echoes what arrives when `echo`.
class cPeers : public qrmi::cConnectable {
public:
  explicit cPeers(qce::cNetAbstractServer& server) {
    server.sigAccepted.connect(*this, [this](qce::cNetAbstractServer&, qstd::tAutoPtr<qce::cNetAbstractConnection>& c) {
      c->sigData.connect(*this, [this](qce::cNetAbstractConnection& conn) {
        received += conn.receivedSize();
        if (echo) conn.send(conn.receivedData(), conn.receivedSize());
        conn.consume(conn.receivedSize());
      });
      connections.emplace_back(c.release());
    });
  }

  std::vector<std::unique_ptr<qce::cNetAbstractConnection>> connections;
  std::size_t received = 0;
  bool echo = true;
};

}  // namespace qeltest

#endif
