#include "qelcore/io/cmemoryfs.h"

#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/io/cdiriterator.h"
#include "qelcore/io/cfile.h"
#include "qelcore/io/cproxyfs.h"

#include "iotestutil.h"

using iotest::ioError;
using iotest::text;
using qio::cFile;
using qio::cIOException;
using qio::cMemoryFs;

namespace {

std::string content(const qio::cFs& fs, const char* path) {
  qstd::tArray<char> out;
  fs.readAll(path, out);
  return text(out);
}

}  // namespace

TEST(MemoryFs, AFullFileSystemChangesNothing) {
  cMemoryFs fs(10);
  fs.writeAll("/settings", "12345678", 8);
  EXPECT_EQ(fs.usedBytes(), 8u);
  // The new content would need 8 more bytes while the old is still there.
  const cIOException full = ioError([&] { fs.writeAll("/settings", "abcdefgh", 8); });
  EXPECT_EQ(full.kind(), cIOException::NoSpace);
  EXPECT_EQ(content(fs, "/settings"), "12345678");
  EXPECT_EQ(fs.usedBytes(), 8u);

  cFile f(fs, "/other", cFile::Overwrite);
  f.writeText("ab");
  f.flush();
  EXPECT_EQ(ioError([&] {
              f.write("cde", 3);
              f.flush();
            }).kind(),
            cIOException::NoSpace);
  f.close();
  EXPECT_EQ(content(fs, "/other"), "ab");

  fs.remove("/settings");
  EXPECT_EQ(fs.usedBytes(), 2u);
  fs.writeAll("/settings", "abcdefgh", 8);
  EXPECT_EQ(fs.usedBytes(), 10u);
}

TEST(MemoryFs, OpenFilesOutliveTheirNames) {
  cMemoryFs fs;
  fs.writeAll("/f", "first", 5);
  cFile open(fs, "/f", cFile::Read);
  fs.writeAll("/f", "second", 6);  // replaced by an atomic save
  fs.remove("/f");
  qstd::tArray<char> out;
  open.readAll(out);
  EXPECT_EQ(text(out), "first");
  EXPECT_FALSE(fs.exists("/f"));
}

TEST(MemoryFs, PathsStayInsideItsRoot) {
  cMemoryFs fs;
  fs.writeAll("rel", "r", 1);
  EXPECT_EQ(content(fs, "/rel"), "r");
  EXPECT_EQ(content(fs, "/../../rel"), "r");
  EXPECT_EQ(ioError([&] { fs.attributes(qio::cPath("C:/rel", qio::cPath::WindowsStyle)); }).kind(),
            cIOException::NotFound);
  EXPECT_EQ(ioError([&] { fs.remove("/"); }).kind(), cIOException::PermissionDenied);
  fs.createDirs("/a/b");
  EXPECT_EQ(ioError([&] { fs.rename("/a", "/a/b/c"); }).kind(), cIOException::InvalidName);
  fs.createDir("/.hidden");
  EXPECT_TRUE(fs.attributes("/.hidden").isHidden());
}

// Several threads on one file system through a proxy, each with its files,
// while others list: no lost entries, no torn content.
TEST(MemoryFs, SharedBetweenThreads) {
  cMemoryFs mem;
  qio::cProxyFs proxy;
  proxy.mount("/mem", mem);
  const int threads = 4, files = 50;
  std::vector<std::thread> workers;
  for (int t = 0; t < threads; ++t) {
    workers.emplace_back([=] {
      qio::cFs fs = proxy;  // a handle of its own
      const std::string dir = "/mem/t" + std::to_string(t);
      fs.createDirs(dir.c_str());
      for (int i = 0; i < files; ++i) {
        const std::string name = dir + "/f" + std::to_string(i);
        fs.writeAll(name.c_str(), name.data(), static_cast<unsigned int>(name.size()));
        unsigned int seen = 0;
        for (qio::cDirIterator it(fs, "/mem", qio::cDirIterator::Recursive); it.next();) ++seen;
        EXPECT_GE(seen, static_cast<unsigned int>(i + 2));
      }
    });
  }
  for (std::thread& w : workers) w.join();
  unsigned int total = 0;
  for (qio::cDirIterator it(mem, "/", qio::cDirIterator::Recursive); it.next();) {
    if (it.type() != qio::cFileAttributes::File) continue;
    EXPECT_EQ(content(mem, text(it.path()).c_str()), "/mem" + text(it.path()));
    ++total;
  }
  EXPECT_EQ(total, static_cast<unsigned int>(threads * files));
}
