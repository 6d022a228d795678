#include "qelcore/io/cproxyfs.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/io/cdir.h"
#include "qelcore/io/cfile.h"
#include "qelcore/io/cmemoryfs.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/tvector.h"

#include "iotestutil.h"

using iotest::ioError;
using iotest::text;
using qio::cFs;
using qio::cIOException;
using qio::cMemoryFs;
using qio::cPath;
using qio::cProxyFs;

namespace {

std::string content(const cFs& fs, const char* path) {
  qstd::tArray<char> out;
  fs.readAll(path, out);
  return text(out);
}

std::vector<std::string> names(const cFs& fs, const char* dir) {
  qstd::tVector<qucs::cString> list;
  qio::cDir(fs, dir).entryNames(list);
  std::vector<std::string> result;
  for (const qucs::cString& n : list) result.push_back(text(n));
  return result;
}

}  // namespace

TEST(ProxyFs, TheLongestMountPointTakesThePath) {
  cProxyFs proxy;
  cMemoryFs data, cache;
  proxy.mount("/data", data);
  proxy.mount("/data/cache", cache);
  proxy.writeAll("/data/f", "1", 1);
  proxy.writeAll("/data/cache/g", "2", 1);
  proxy.writeAll("/data/cachefile", "3", 1);  // a longer name, not below "/data/cache"
  EXPECT_EQ(content(data, "/f"), "1");
  EXPECT_EQ(content(cache, "/g"), "2");
  EXPECT_EQ(content(data, "/cachefile"), "3");

  cPath inner;
  EXPECT_EQ(proxy.resolve("/data/cache/../f", inner), data);
  EXPECT_EQ(text(inner), "/f");
  EXPECT_EQ(ioError([&] { proxy.resolve("/elsewhere", inner); }).kind(), cIOException::NotFound);
  EXPECT_FALSE(proxy.exists("/elsewhere"));
  // Without a file system at "/" the tree still leads to the mount points.
  EXPECT_EQ(names(proxy, "/"), (std::vector<std::string>{"data"}));
  EXPECT_TRUE(proxy.isDirectory("/"));
}

TEST(ProxyFs, MountPointsShowAsDirectories) {
  cProxyFs proxy;
  cMemoryFs root, disk;
  root.createDir("/etc");
  disk.writeAll("/readme", "hi", 2);
  proxy.mount("/", root);
  proxy.mount("/mnt/usb/disk", disk);
  EXPECT_TRUE(proxy.isDirectory("/mnt"));
  EXPECT_TRUE(proxy.isDirectory("/mnt/usb"));
  EXPECT_FALSE(root.exists("/mnt"));
  EXPECT_EQ(names(proxy, "/"), (std::vector<std::string>{"etc", "mnt"}));
  EXPECT_EQ(names(proxy, "/mnt/usb"), (std::vector<std::string>{"disk"}));
  EXPECT_EQ(names(proxy, "/mnt/usb/disk"), (std::vector<std::string>{"readme"}));
  // A mounted directory that also exists below is listed once.
  root.createDirs("/mnt/usb");
  EXPECT_EQ(names(proxy, "/mnt"), (std::vector<std::string>{"usb"}));
  EXPECT_EQ(names(proxy, "/mnt/usb"), (std::vector<std::string>{"disk"}));
}

TEST(ProxyFs, AcrossMountedFileSystems) {
  cProxyFs proxy;
  cMemoryFs a, b;
  proxy.mount("/a", a);
  proxy.mount("/b", b);
  proxy.writeAll("/a/f", "content", 7);
  const cIOException cross = ioError([&] { proxy.rename("/a/f", "/b/f"); });
  EXPECT_EQ(cross.kind(), cIOException::CrossDevice);
  proxy.copyFile("/a/f", "/b/f");
  EXPECT_EQ(content(b, "/f"), "content");
  // Errors name the paths the caller gave, not those inside the mount.
  const cIOException missing = ioError([&] { qio::cFile f(proxy, "/a/x/../missing", qio::cFile::Read); });
  EXPECT_EQ(text(missing.path()), "/a/x/../missing");
  proxy.rename("/a/f", "/a/f2");
  proxy.writeAll("/a/g", "g", 1);
  const cIOException taken = ioError([&] { proxy.rename("/a/f2", "/a/g"); });
  EXPECT_EQ(text(taken.path()), "/a/f2");
  EXPECT_EQ(text(taken.otherPath()), "/a/g");
}

TEST(ProxyFs, MountRules) {
  cProxyFs proxy;
  cMemoryFs m;
  proxy.mount("/m", m);
  EXPECT_TRUE(proxy.isMountPoint("/m/"));
  EXPECT_EQ(ioError([&] { proxy.mount("/m", cMemoryFs()); }).kind(), cIOException::AlreadyExists);
  EXPECT_EQ(ioError([&] { proxy.mount("relative", m); }).kind(), cIOException::InvalidName);
  EXPECT_THROW(proxy.mount("/self", proxy), qstd::cBugException);
  cProxyFs outer;
  outer.mount("/inner", proxy);
  EXPECT_THROW(proxy.mount("/loop", outer), qstd::cBugException);
  proxy.unmount("/m");
  EXPECT_FALSE(proxy.isMountPoint("/m"));
  EXPECT_EQ(ioError([&] { proxy.unmount("/m"); }).kind(), cIOException::NotFound);
}

TEST(ProxyFs, MountedFileSystemsLiveWhileAnyoneUsesThem) {
  cProxyFs proxy;
  {
    cMemoryFs m;
    m.writeAll("/f", "kept", 4);
    proxy.mount("/m", m);
  }
  EXPECT_EQ(content(proxy, "/m/f"), "kept");

  qio::cFile open(proxy, "/m/f", qio::cFile::Read);
  proxy.unmount("/m");
  proxy = cProxyFs();  // the old proxy and its file system go
  qstd::tArray<char> out;
  open.readAll(out);
  EXPECT_EQ(text(out), "kept");
}

TEST(SystemFs, ArchivesAreStoredThroughIt) {
  cMemoryFs mem;
  cProxyFs::system().mount("/qelcore-test-mem", mem);
  qsa::cSerializeBinary s;
  0x64636261u >> s;
  s.storeToFile(qucs::cString("/qelcore-test-mem/a.bin"));
  cProxyFs::system().unmount("/qelcore-test-mem");
  EXPECT_EQ(content(mem, "/a.bin"), std::string("\x04\0\0\0abcd", 8));
  EXPECT_EQ(ioError([&] { s.storeToFile(qucs::cString("/qelcore-test-mem/b.bin")); }).kind(), cIOException::NotFound);
}
