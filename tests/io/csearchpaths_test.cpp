#include "qelcore/io/csearchpaths.h"

#include <gtest/gtest.h>

#include "qelcore/io/cmemoryfs.h"
#include "qelcore/std/tvector.h"

#include "iotestutil.h"

using iotest::ioError;
using iotest::text;
using qio::cPath;
using qio::cSearchPaths;

TEST(SearchPaths, TheFirstDirectoryThatHasTheFileWins) {
  qio::cMemoryFs fs;
  fs.createDirs("/usr/lib/mod");
  fs.createDirs("/opt/lib/libm.so");  // a directory never matches
  fs.createDirs("/home/me/lib");
  fs.writeAll("/usr/lib/libm.so", "u", 1);
  fs.writeAll("/home/me/lib/libm.so", "h", 1);

  cSearchPaths paths(fs);
  paths.append("/opt/lib");
  paths.append("/usr/lib");
  paths.append("/home/me/lib");
  EXPECT_EQ(text(paths.find("libm.so")), "/usr/lib/libm.so");
  paths.prepend("/home/me/lib");
  EXPECT_EQ(paths.count(), 3u);
  EXPECT_EQ(text(paths.at(0)), "/home/me/lib");
  EXPECT_EQ(text(paths.find("libm.so")), "/home/me/lib/libm.so");

  qstd::tVector<cPath> all;
  paths.findAll("libm.so", all);
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(text(all[1]), "/usr/lib/libm.so");

  EXPECT_TRUE(paths.tryFind("none.so").isEmpty());
  const qio::cIOException e = ioError([&] { paths.find("none.so"); });
  EXPECT_EQ(e.kind(), qio::cIOException::NotFound);
  EXPECT_EQ(text(e.path()), "none.so");
  EXPECT_EQ(text(paths.find("/usr/lib/libm.so")), "/usr/lib/libm.so");
  EXPECT_TRUE(paths.remove("/home/me/lib"));
  EXPECT_FALSE(paths.remove("/home/me/lib"));
}

TEST(SearchPaths, ListsAsEnvironmentVariablesHoldThem) {
  cSearchPaths paths(qio::cMemoryFs{});
  paths.appendList(qucs::cString("/a::/b:/a:"), ':');
  ASSERT_EQ(paths.count(), 2u);  // empty entries skipped, "/a" once
  EXPECT_EQ(text(paths.at(1)), "/b");
  EXPECT_TRUE(paths.contains("/b/"));
  cSearchPaths copy(paths);
  paths.clear();
  EXPECT_EQ(copy.count(), 2u);
  EXPECT_THROW(paths.at(0), qstd::cAbstractException);
}
