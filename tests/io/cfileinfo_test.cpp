#include "qelcore/io/cfileinfo.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/io/cmemoryfs.h"

#include "iotestutil.h"

using iotest::text;
using qio::cFileInfo;
using qio::cPath;

namespace {

// A module base name completed into the platform's library file name.
std::string libraryName(const char* name, const char* prefix, const char* suffix, const char* ext) {
  cFileInfo info(cPath(name, cPath::PosixStyle));
  info.setFileNamePrefix(prefix);
  info.setFileNameSuffix(suffix);
  info.setFileNameExtension(ext);
  return text(info.path());
}

}  // namespace

TEST(FileInfoNames, SettersCompleteANameOnce) {
  EXPECT_EQ(libraryName("plugins/audio", "lib", "", ".so"), "plugins/libaudio.so");
  EXPECT_EQ(libraryName("plugins/libaudio.so", "lib", "", ".so"), "plugins/libaudio.so");
  EXPECT_EQ(libraryName("audio", "", "", ".dll"), "audio.dll");
  EXPECT_EQ(libraryName("audio", "", "_d", "dll"), "audio_d.dll");
  EXPECT_EQ(libraryName("audio_d.dll", "", "_d", "dll"), "audio_d.dll");
  EXPECT_EQ(libraryName("netio.old", "lib", "", ".so"), "libnetio.so");
  EXPECT_EQ(libraryName("/", "lib", "", ".so"), "/lib.so");

  cFileInfo info(cPath("dir/name.txt"));
  info.setFileNameSuffix("-1");
  EXPECT_EQ(text(info.fileName()), "name-1.txt");
  EXPECT_EQ(text(info.baseName()), "name-1");
  EXPECT_EQ(text(info.extension()), ".txt");
  EXPECT_EQ(text(info.dirPath()), "dir");
}

TEST(FileInfoAttributes, ReadOnceUntilRefreshed) {
  qio::cMemoryFs fs;
  cFileInfo info(fs, "/later.txt");
  EXPECT_FALSE(info.exists());
  fs.writeAll("/later.txt", "12345", 5);
  EXPECT_FALSE(info.exists());  // what was read stays
  info.refresh();
  EXPECT_TRUE(info.exists());
  EXPECT_TRUE(info.isFile());
  EXPECT_EQ(info.size(), 5u);
  EXPECT_EQ(info.permissions(), 0644u);
  EXPECT_GT(info.modificationTime().get(), 0u);

  info.setFileNameExtension(".bak");  // another name: read again when asked
  EXPECT_FALSE(info.exists());
  EXPECT_FALSE(cFileInfo().exists());
}
