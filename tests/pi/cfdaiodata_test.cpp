#include "qelcore/pi/cfdaiodata.h"

#include <gtest/gtest.h>

using qpi::cFDAIOData;
using qpi::tFdInfo;

TEST(FDAIOData, CopiesTakeTheDescriptorsButASerialOfTheirOwn) {
  cFDAIOData original;
  original.addFd(5, tFdInfo::Read);
  original.addFd(6, tFdInfo::Write);
  original.setReadyEvents(1, tFdInfo::Write);
  original.setEvent(true);

  cFDAIOData copy(original);
  EXPECT_NE(copy.serial(), original.serial()) << "a processor must not take the copy for the original";
  EXPECT_TRUE(copy.isEvent());
  ASSERT_EQ(copy.fds().size(), 2u);
  EXPECT_EQ(copy.fds()[1], (tFdInfo{6, tFdInfo::Write}));
  EXPECT_EQ(copy.readyEvents(1), tFdInfo::Write);

  cFDAIOData assigned;
  const unsigned long long before = assigned.serial();
  assigned = original;
  EXPECT_NE(assigned.serial(), before) << "its descriptors changed";
  EXPECT_NE(assigned.serial(), original.serial());
  EXPECT_EQ(assigned.fds().size(), 2u);
  EXPECT_TRUE(assigned.isEvent());
}
