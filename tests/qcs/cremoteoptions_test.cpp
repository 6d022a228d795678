// The shared secret read from a file that only its owner may read.
#include "qelcore/qcs/cremoteoptions.h"

#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/std/cruntimeexception.h"

#include "io/iotestutil.h"
#include "support/exceptiontext.h"

namespace {

namespace fs = std::filesystem;

qucs::cString write(const iotest::cTempDir& dir, const char* name, const std::string& content, fs::perms perms) {
  const fs::path file = dir.native() / name;
  std::ofstream(file, std::ios::binary) << content;
  fs::permissions(file, perms);
  return (dir / name).toString();
}

TEST(RemoteOptions, TheSecretFileIsReadWithoutItsLineBreak) {
  iotest::cTempDir dir;
  qcs::cRemoteOptions options;
  EXPECT_FALSE(options.hasSecret());
  options.loadSecretFile(write(dir, "secret", "tops3cret\r\n", fs::perms::owner_read | fs::perms::owner_write));
  EXPECT_EQ(options.secret(), "tops3cret");
  // Binary secrets stay as they are, NUL bytes included.
  options.loadSecretFile(write(dir, "binary", std::string("a\0b", 3), fs::perms::owner_read));
  EXPECT_EQ(options.secret().size(), 3u);
}

TEST(RemoteOptions, SecretFilesThatOthersMayReadOrThatHoldNothingAreRefused) {
  iotest::cTempDir dir;
  qcs::cRemoteOptions options;
  const qucs::cString shared = write(dir, "shared", "x", fs::perms::owner_read | fs::perms::group_read);
  if (qpi::cPlatform::permissionsShowReaders()) {
    EXPECT_NE(qeltest::thrownText<qstd::cRuntimeException>([&] {
                options.loadSecretFile(shared);
              }).find("group or others may read or change it"),
              std::string::npos);
    EXPECT_FALSE(options.hasSecret());
  }
  const qucs::cString empty = write(dir, "empty", "\n", fs::perms::owner_read);
  EXPECT_NE(qeltest::thrownText<qstd::cRuntimeException>([&] { options.loadSecretFile(empty); }).find("empty"),
            std::string::npos);
  EXPECT_NE(qeltest::thrownText<qstd::cRuntimeException>([&] {
              options.loadSecretFile((dir / "none").toString());
            }).find("not a file"),
            std::string::npos);
  EXPECT_FALSE(options.hasSecret());
}

}  // namespace
