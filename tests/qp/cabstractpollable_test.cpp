#include "qelcore/qp/cabstractpollable.h"

#include <gtest/gtest.h>

#include "qelcore/qp/cabstractprocessdata.h"
#include "qelcore/qp/cbasicprocessdata.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/cstring.h"

#include "qp/processtestutil.h"

using qp::cAbstractProcess;

using qeltest::cScan;

TEST(ProcessData, ServesOneProcessAtATime) {
  qp::cBasicProcessData data;
  {
    cScan first(data);
    try {
      cScan second(data);
      FAIL();
    } catch (const qstd::cBugException& e) {
      qucs::cString text;
      e.createMessage(text, qucs::cString(""), 0, nullptr);
      EXPECT_EQ(text, "Never use process data for more than one process!");
    }
    EXPECT_EQ(data.context(), cAbstractProcess::ContextPolled) << "the failed bind left the data alone";
  }
  EXPECT_EQ(data.context(), cAbstractProcess::ContextNone);
  cScan again(data);

  cScan own;  // keeps data of its own
  EXPECT_TRUE(own.isPollable());
  EXPECT_FALSE(own.isRunnable());
  own.interrupt(true);
}
