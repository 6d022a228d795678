// Connections on the work queue against plain blocking sockets: a ping-pong
// of a small message between two threads over loopback TCP is the baseline
// for round trips (and for remote calls built on connections); pipelined
// small sends give the throughput; the bytes an idle connection holds are
// counted through the global allocator.
#include <arpa/inet.h>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <new>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetabstractclient.h"
#include "qelcore/qce/net++/cnetabstractconnection.h"
#include "qelcore/qce/net++/cnetabstractserver.h"
#include "qelcore/rmi/cconnectable.h"

#include "livebytes.h"


namespace {

using qce::cNetAbstractClient;
using qce::cNetAbstractConnection;
using qce::cNetAbstractServer;

const std::size_t kMessage = 32;

// --- plain blocking sockets -------------------------------------------------

void noDelay(int fd) {
  int on = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool readAll(int fd, char* buffer, std::size_t size) {
  while (size) {
    const ssize_t n = ::recv(fd, buffer, size, 0);
    if (n <= 0) return false;
    buffer += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

bool writeAll(int fd, const char* data, std::size_t size) {
  while (size) {
    const ssize_t n = ::send(fd, data, size, MSG_NOSIGNAL);
    if (n <= 0) return false;
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

// A connected pair of blocking loopback sockets: {client end, server end}.
std::pair<int, int> rawPair() {
  const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in addr = {};
  addr.sin_family = AF_INET;
  addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof addr;
  ::bind(listener, reinterpret_cast<sockaddr*>(&addr), sizeof addr);
  ::getsockname(listener, reinterpret_cast<sockaddr*>(&addr), &length);
  ::listen(listener, 1);
  const int client = ::socket(AF_INET, SOCK_STREAM, 0);
  ::connect(client, reinterpret_cast<sockaddr*>(&addr), sizeof addr);
  const int server = ::accept(listener, nullptr, nullptr);
  ::close(listener);
  noDelay(client);
  noDelay(server);
  return {client, server};
}

void BM_Baseline_RawTcpPingPong(benchmark::State& state) {
  const std::pair<int, int> fds = rawPair();
  std::thread echo([&fds] {
    char buffer[kMessage];
    while (readAll(fds.second, buffer, kMessage) && writeAll(fds.second, buffer, kMessage)) {
    }
  });
  char message[kMessage] = "ping";
  char reply[kMessage];
  for (auto _ : state) {
    writeAll(fds.first, message, kMessage);
    readAll(fds.first, reply, kMessage);
  }
  ::shutdown(fds.first, SHUT_WR);
  echo.join();
  ::close(fds.first);
  ::close(fds.second);
}
BENCHMARK(BM_Baseline_RawTcpPingPong)->UseRealTime();

void BM_Baseline_RawTcpPipelinedSends(benchmark::State& state) {
  const std::pair<int, int> fds = rawPair();
  std::thread sink([&fds] {
    char buffer[64 * 1024];
    while (::recv(fds.second, buffer, sizeof buffer, 0) > 0) {
    }
  });
  char message[kMessage] = "signal";
  for (auto _ : state) writeAll(fds.first, message, kMessage);
  state.SetItemsProcessed(state.iterations());
  ::shutdown(fds.first, SHUT_WR);
  sink.join();
  ::close(fds.first);
  ::close(fds.second);
}
BENCHMARK(BM_Baseline_RawTcpPipelinedSends)->UseRealTime();

// --- connections on work queues ---------------------------------------------

// Takes every accepted connection; echoes, or only counts, what arrives.
class cEchoPeers : public qrmi::cConnectable {
public:
  cEchoPeers(cNetAbstractServer& server, bool echo) : mbEcho(echo), miReceived(0) {
    server.sigAccepted.connect(*this, [this](cNetAbstractServer&, qstd::tAutoPtr<cNetAbstractConnection>& c) {
      c->sigData.connect(*this, [this](cNetAbstractConnection& conn) {
        miReceived += conn.receivedSize();
        if (mbEcho) conn.send(conn.receivedData(), conn.receivedSize());
        conn.consume(conn.receivedSize());
      });
      mvConnections.emplace_back(c.release());
    });
  }
  std::size_t received() const { return miReceived.load(std::memory_order_acquire); }
  std::size_t connections() const { return mvConnections.size(); }

private:
  bool mbEcho;
  std::atomic<std::size_t> miReceived;
  std::vector<std::unique_ptr<cNetAbstractConnection>> mvConnections;
};

// A client whose connection counts what arrives.
class cCountingClient : public qrmi::cConnectable {
public:
  explicit cCountingClient(qpi::cWorkQueue& queue) : mClient(&queue), miReceived(0) {
    mClient.connection().sigData.connect(*this, [this](cNetAbstractConnection& c) {
      miReceived += c.receivedSize();
      c.consume(c.receivedSize());
    });
  }
  cNetAbstractClient mClient;
  std::size_t miReceived;
};

// An echo (or sink) server on a queue of its own thread.
class cServerThread {
public:
  explicit cServerThread(bool echo) : miPort(0), mbStop(false) {
    mThread = std::thread([this, echo] {
      qpi::cWorkQueue queue;
      queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
      cNetAbstractServer server(&queue);
      cEchoPeers peers(server, echo);
      server.listen();
      miPort = server.port();
      // A short tick so that the stop flag is seen.
      qstd::tSharedObject<qpi::cWork> tick = queue.createJob();
      tick->start(20, qpi::cWork::Periodic);
      while (!mbStop) queue.process();
    });
    while (miPort == 0) std::this_thread::yield();
  }
  ~cServerThread() {
    mbStop = true;
    mThread.join();
  }
  unsigned int port() const { return miPort; }

private:
  std::atomic<unsigned int> miPort;
  std::atomic<bool> mbStop;
  std::thread mThread;
};

qstd::cAsciiString loopback(unsigned int port) {
  return qstd::cAsciiString("127.0.0.1:") + qstd::cAsciiString().setNum32(static_cast<int>(port));
}

// One message out and its echo back per iteration, running `queue` meanwhile.
void pingPong(benchmark::State& state, qpi::cWorkQueue& queue, cCountingClient& client) {
  char message[kMessage] = "ping";
  std::size_t expected = 0;
  for (auto _ : state) {
    client.mClient.connection().send(message, kMessage);
    expected += kMessage;
    while (client.miReceived < expected) queue.process();
  }
}

// Both ends on one queue: every round trip is two passes of the main loop.
void BM_ConnectionPingPong_OneQueue(benchmark::State& state) {
  qpi::cWorkQueue queue;
  queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
  cNetAbstractServer server(&queue);
  cEchoPeers peers(server, true);
  server.listen();
  cCountingClient client(queue);
  client.mClient.connectTo(server.localAddress()->toString(qce::cNetAbstractAddress::WithPort));
  while (!client.mClient.isConnected() || peers.connections() == 0) queue.process();
  pingPong(state, queue, client);
}
BENCHMARK(BM_ConnectionPingPong_OneQueue)->UseRealTime();

// The echo on a queue of another thread, like the raw baseline.
void BM_ConnectionPingPong_TwoThreads(benchmark::State& state) {
  cServerThread echo(true);
  qpi::cWorkQueue queue;
  queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
  cCountingClient client(queue);
  client.mClient.connectTo(loopback(echo.port()));
  while (!client.mClient.isConnected()) queue.process();
  pingPong(state, queue, client);
}
BENCHMARK(BM_ConnectionPingPong_TwoThreads)->UseRealTime();

// Small messages sent back to back to a server on another thread; the
// figure includes the receiver taking all of them.
void BM_ConnectionPipelinedSends(benchmark::State& state) {
  cServerThread sink(false);
  qpi::cWorkQueue queue;
  queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
  cNetAbstractClient client(&queue);
  client.connectTo(loopback(sink.port()));
  while (!client.isConnected()) queue.process();
  char message[kMessage] = "signal";
  for (auto _ : state) {
    client.connection().send(message, kMessage);
    // Let the queue write what the system did not take at once.
    if (client.connection().pendingSendBytes() > 256 * 1024)
      while (client.connection().pendingSendBytes() > 0) queue.process();
  }
  while (client.connection().pendingSendBytes() > 0) queue.process();
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ConnectionPipelinedSends)->UseRealTime();

// What an idle connection holds: 100 connected pairs that have exchanged a
// message each, counted through operator new (the kernel's socket buffers
// are not in it). Reported per connection (either end of a pair).
void BM_IdleConnectionBytes(benchmark::State& state) {
  const int pairs = 100;
  for (auto _ : state) {
    qpi::cWorkQueue queue;
    queue.setEvents(qpi::cPlatform::createAIOProcessEvents());
    cNetAbstractServer server(&queue);
    cEchoPeers peers(server, true);
    server.listen();
    queue.process();
    const long long before = qelbench::liveBytes();
    std::vector<std::unique_ptr<cCountingClient>> clients;
    for (int i = 0; i < pairs; ++i) {
      clients.emplace_back(new cCountingClient(queue));
      clients.back()->mClient.connectTo(*server.localAddress());
      clients.back()->mClient.connection().send("hello", 5);
    }
    for (;;) {
      bool done = true;
      for (const auto& c : clients) done = done && c->miReceived == 5;
      if (done) break;
      queue.process();
    }
    const long long after = qelbench::liveBytes();
    state.counters["bytes_per_connection"] = static_cast<double>(after - before) / (2 * pairs);
  }
}
BENCHMARK(BM_IdleConnectionBytes)->Iterations(3);

}  // namespace
