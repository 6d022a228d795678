#include "qelcore/pi/cabstractplatforminfo.h"

#include <gtest/gtest.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/ucs/cstring.h"

using qpi::cPlatform;

namespace {

bool onWindows() { return cPlatform::createPlatformInfo()->platformName() == "Win32"; }

}  // namespace

TEST(PlatformInfo, ModuleNamesBecomeLibraryFileNames) {
  qstd::tAutoPtr<qpi::cAbstractPlatformInfo> info(cPlatform::createPlatformInfo());
  qucs::cString plain("plugins/netio");
  qucs::cString prefixed("libnetio.old");
  info->osSpecificSOName(plain);
  info->osSpecificSOName(prefixed);
  if (onWindows()) {
    EXPECT_EQ(plain, "plugins/netio.dll");
    EXPECT_EQ(prefixed, "libnetio.dll");
    EXPECT_EQ(info->osAppFileExtension(), ".exe");
  } else {
    EXPECT_EQ(info->platformName(), "POSIX");
    EXPECT_EQ(plain, "plugins/libnetio.so");
    EXPECT_EQ(prefixed, "libnetio.so");
    EXPECT_EQ(info->osAppFileExtension(), "");
  }
}
