#include "qelcore/qp/cabstractprocessdata.h"

#include <gtest/gtest.h>

#include "qelcore/qp/cabstractpollable.h"
#include "qelcore/qp/cbasicprocessdata.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/cstring.h"

#include "qp/processtestutil.h"

using qp::cAbstractProcess;

using qeltest::cScan;

TEST(ProcessData, FlagsFollowRestartFinishAndCancel) {
  qp::cBasicProcessData data;
  EXPECT_EQ(data.context(), cAbstractProcess::ContextNone);
  EXPECT_EQ(data.preferredContext(), cAbstractProcess::ContextThread);
  cScan scan(data);
  EXPECT_EQ(data.context(), cAbstractProcess::ContextPolled);
  EXPECT_FALSE(scan.isRunning());
  scan.start();
  EXPECT_TRUE(scan.isRunning());
  data.cancel();
  EXPECT_TRUE(data.isCanceled());
  scan.finish();
  EXPECT_TRUE(scan.isFinished());
  EXPECT_FALSE(scan.isRunning());
  EXPECT_TRUE(data.isCanceled());
  scan.start();
  EXPECT_FALSE(data.isCanceled());
  EXPECT_FALSE(data.isFinished());
}
