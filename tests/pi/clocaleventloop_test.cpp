#include "qelcore/pi/clocaleventloop.h"

#include <gtest/gtest.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cworkqueue.h"

#include "support/worktestutil.h"

using qeltest::cJob;
using qpi::cWork;

TEST(LocalEventLoop, CountsOnItsQueueAndDetachesWhenTheQueueDies) {
  cJob job;
  qpi::cLocalEventLoop* survivor = nullptr;
  {
    qeltest::cTestQueue q;
    qstd::tSharedObject<cWork> w = qeltest::makeJob(q, job, "w");
    w->start(0, cWork::Periodic);
    qpi::cLocalEventLoop loop(&q);
    EXPECT_EQ(loop.queue(), &q);
    loop.process();
    EXPECT_EQ(job.calls, 1);
    survivor = new qpi::cLocalEventLoop(&q);
  }
  EXPECT_EQ(survivor->queue(), nullptr);
  survivor->process();
  delete survivor;
  EXPECT_EQ(job.calls, 1);

  qpi::cLocalEventLoop main;
  EXPECT_EQ(main.queue(), &qpi::system().workQueue());
}
