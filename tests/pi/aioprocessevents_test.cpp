// The event processor with asynchronous I/O.
#include <atomic>

#include <gtest/gtest.h>

#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qp/cabstractrunnable.h"
#include "qelcore/std/ctime.h"

#include "support/runnabletestutil.h"
#include "support/socketpair.h"
#include "support/worktestutil.h"

using qeltest::cJob;
using qpi::cWork;

namespace {

class cAIOQueue : public qeltest::cTestQueue {
public:
  cAIOQueue() : cTestQueue(qpi::cPlatform::createAIOProcessEvents().release()) {}
};

qpi::cFDAIOData* watchRead(cWork& w, int fd) {
  qpi::cFDAIOData* data = new qpi::cFDAIOData;
  data->addFd(fd, qpi::tFdInfo::Read);
  w.setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(data));
  return data;
}

// Posts one work to a queue after a pause.
class cLatePoster : public qp::cAbstractRunnable {
public:
  cLatePoster(qpi::cWorkQueue& q, cJob& job) : mQueue(q), mCall(job, &cJob::sltRun, nullptr) {}
  ~cLatePoster() override {
    qeltest::waitFinished(*this);
    stop();
  }

protected:
  void run() override {
    for (int i = 0; i < 30; ++i) qpi::cPlatform::yield();
    mQueue.post(qstd::tAutoPtr<cWork>(mCall.createWork()));
  }

private:
  qpi::cWorkQueue& mQueue;
  // Made on the queue's thread; the works it makes do nothing once it is gone.
  qrmi::cDirectLocalSlotCall0<cJob, qsa::piVoid> mCall;
};

}  // namespace

TEST(AIOProcessEvents, AReadableSocketMakesItsWorkDue) {
  cAIOQueue q;
  EXPECT_TRUE(q.events()->supportsAIO());
  qeltest::cSocketPair pair;
  cJob reader;
  qstd::tSharedObject<cWork> w = qeltest::makeJob(q, reader, "reader");
  qpi::cFDAIOData* data = watchRead(*w, pair.readEnd());
  int received = 0;
  reader.body = [&] {
    EXPECT_TRUE(data->readyEvents(0) & qpi::tFdInfo::Read);
    received += pair.receive();
  };
  pair.send('x');
  const qstd::cTime start;
  while (reader.calls == 0 && start.diff().toSec() < 20) q.process();
  EXPECT_EQ(reader.calls, 1);
  EXPECT_EQ(received, 1);
  EXPECT_FALSE(data->isEvent());
  EXPECT_TRUE(w->isStarted()) << "an I/O work waits for its next event";
}

TEST(AIOProcessEvents, ADescriptorNumberReusedByANewSocketIsWatchedAgain) {
  cAIOQueue q;
  cJob reader, tick;
  qstd::tSharedObject<cWork> t = qeltest::makeJob(q, tick, "tick");
  t->start(5, cWork::Periodic);
  qstd::tSharedObject<cWork> w = qeltest::makeJob(q, reader, "reader");
  qstd::tAutoPtr<qeltest::cSocketPair> pair(new qeltest::cSocketPair);
  const int fd = pair->readEnd();
  watchRead(*w, fd);
  while (tick.calls < 2) q.process();  // the descriptor is watched now
  // Closed and opened again between two waits: the same number, the same wish.
  pair.reset();
  pair.reset(new qeltest::cSocketPair);
  if (pair->readEnd() != fd) GTEST_SKIP() << "the system gave the new socket another number";
  watchRead(*w, fd);
  reader.body = [&] { pair->receive(); };
  pair->send('x');
  const qstd::cTime start;
  while (reader.calls == 0 && start.diff().toSec() < 5) q.process();
  EXPECT_EQ(reader.calls, 1);
}

TEST(AIOProcessEvents, TimedWorksBoundTheWait) {
  cAIOQueue q;
  qeltest::cSocketPair pair;
  cJob idle, tick;
  qstd::tSharedObject<cWork> io = qeltest::makeJob(q, idle, "idle");
  watchRead(*io, pair.readEnd());
  qstd::tSharedObject<cWork> t = qeltest::makeJob(q, tick, "tick");
  t->start(20, cWork::Periodic);
  const qstd::cTime start;
  while (tick.calls < 2) q.process();
  EXPECT_LT(start.diff().toMSec(), 5000u);
  EXPECT_EQ(idle.calls, 0);
}

TEST(AIOProcessEvents, AnotherThreadWakesAWaitingQueue) {
  cAIOQueue q;
  qeltest::cSocketPair pair;
  cJob idle, posted;
  qstd::tSharedObject<cWork> io = qeltest::makeJob(q, idle, "idle");
  watchRead(*io, pair.readEnd());  // the queue would wait ten seconds
  cLatePoster poster(q, posted);
  const qstd::cTime start;
  poster.start();
  while (posted.calls == 0 && start.diff().toSec() < 30) q.process();
  EXPECT_EQ(posted.calls, 1);
  EXPECT_LT(start.diff().toMSec(), 5000u);
}

TEST(AIOProcessEvents, AnIdleQueueSleepsUntilAWorkIsPosted) {
  cAIOQueue q;
  EXPECT_TRUE(q.events()->waitsWhenIdle());
  cJob local, posted;
  // Started on the queue's own thread: the first pass runs it and returns;
  // the next one sleeps until the post, and the one after runs that work.
  qstd::tSharedObject<cWork> w = qeltest::makeJob(q, local, "local");
  w->start(0, cWork::SingleTask);
  cLatePoster poster(q, posted);
  poster.start();
  int passes = 0;
  const qstd::cTime start;
  while (posted.calls == 0 && start.diff().toSec() < 30) {
    q.process();
    ++passes;
  }
  EXPECT_EQ(local.calls, 1);
  EXPECT_EQ(posted.calls, 1);
  // Spinning over the idle queue would take thousands of passes.
  EXPECT_LE(passes, 5);
}
