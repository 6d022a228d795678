// The same behaviour expected of every file system: the native one, the
// in-memory one, and one mounted below a proxy.
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/io/cdir.h"
#include "qelcore/io/cdiriterator.h"
#include "qelcore/io/cfile.h"
#include "qelcore/io/cfileinfo.h"
#include "qelcore/io/cfs.h"
#include "qelcore/io/cmemoryfs.h"
#include "qelcore/io/cproxyfs.h"
#include "qelcore/std/tvector.h"

#include "iotestutil.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

using iotest::ioError;
using iotest::text;
using qio::cFs;
using qio::cIOException;
using qio::cPath;

namespace {

enum Kind { Native, Memory, Proxied };

class FileSystems : public ::testing::TestWithParam<Kind> {
protected:
  void SetUp() override {
    switch (GetParam()) {
      case Native:
        mpTemp.reset(new iotest::cTempDir);
        mRoot = mpTemp->path();
        break;
      case Memory:
        mFs = qio::cMemoryFs();
        mRoot = cPath("/work");
        mFs.createDir(mRoot);
        break;
      case Proxied: {
        qio::cProxyFs proxy;
        proxy.mount("/", cFs());
        proxy.mount("/mnt/mem", qio::cMemoryFs());
        mFs = proxy;
        mRoot = cPath("/mnt/mem/work");
        mFs.createDir(mRoot);
        break;
      }
    }
  }

  cPath at(const char* rel) const { return mRoot / cPath(rel); }
  void put(const char* rel, const std::string& content) const {
    mFs.writeAll(at(rel), content.data(), static_cast<unsigned int>(content.size()), false);
  }
  std::string get(const char* rel) const {
    qstd::tArray<char> out;
    mFs.readAll(at(rel), out);
    return text(out);
  }
  // Every entry below `dir`: relative path, then its size or "/" for a directory.
  std::vector<std::string> tree(const cPath& dir) const {
    std::vector<std::string> lines;
    for (qio::cDirIterator it(mFs, dir, qio::cDirIterator::Recursive); it.next();)
      lines.push_back(text(it.path().relativeTo(dir)) + " " +
                      (it.type() == qio::cFileAttributes::Directory ? "/" : std::to_string(it.attributes().size())));
    std::sort(lines.begin(), lines.end());
    return lines;
  }

  std::unique_ptr<iotest::cTempDir> mpTemp;
  cFs mFs;
  cPath mRoot;
};

}  // namespace

TEST_P(FileSystems, CreateDirsAndRemoveAll) {
  EXPECT_TRUE(mFs.createDirs(at("a/b/c")));
  EXPECT_FALSE(mFs.createDirs(at("a/./b/c")));
  EXPECT_TRUE(mFs.isDirectory(at("a/b")));
  put("a/b/c/f", "data");
  EXPECT_TRUE(mFs.isFile(at("a/b/c/f")));
  EXPECT_EQ(ioError([&] { mFs.createDirs(at("a/b/c/f/g")); }).kind(), cIOException::NotADirectory);
  EXPECT_EQ(ioError([&] { mFs.createDir(at("a/b")); }).kind(), cIOException::AlreadyExists);
  EXPECT_EQ(ioError([&] { mFs.createDir(at("x/y")); }).kind(), cIOException::NotFound);
  EXPECT_EQ(ioError([&] { mFs.remove(at("a")); }).kind(), cIOException::DirectoryNotEmpty);

  EXPECT_EQ(mFs.removeAll(at("a")), 4u);
  EXPECT_FALSE(mFs.exists(at("a")));
  EXPECT_EQ(mFs.removeAll(at("a")), 0u);
  put("single", "1");
  EXPECT_EQ(mFs.removeAll(at("single")), 1u);
}

TEST_P(FileSystems, RenameReplacesOnlyWhenAsked) {
  put("from", "new");
  put("to", "old");
  const cIOException e = ioError([&] { mFs.rename(at("from"), at("to")); });
  EXPECT_EQ(e.kind(), cIOException::AlreadyExists);
  EXPECT_EQ(text(e.path()), text(at("from")));
  EXPECT_EQ(text(e.otherPath()), text(at("to")));
  EXPECT_EQ(get("to"), "old");
  mFs.rename(at("from"), at("to"), true);
  EXPECT_EQ(get("to"), "new");
  EXPECT_FALSE(mFs.exists(at("from")));

  mFs.createDirs(at("d1/sub"));
  qio::cDir d(mFs, at("d1"));
  d.rename(at("d2"));
  EXPECT_EQ(d.path(), at("d2"));
  EXPECT_TRUE(mFs.isDirectory(at("d2/sub")));
  EXPECT_EQ(ioError([&] { mFs.rename(at("missing"), at("x")); }).kind(), cIOException::NotFound);
}

TEST_P(FileSystems, CopyAllReplicatesATree) {
  mFs.createDirs(at("src/empty"));
  mFs.createDirs(at("src/deep/er"));
  put("src/a.txt", "alpha");
  put("src/deep/er/b.bin", std::string(70000, 'b'));
  qio::cDir(mFs, at("src")).copyTo(at("dst"));
  EXPECT_EQ(tree(at("dst")), tree(at("src")));
  EXPECT_EQ(tree(at("dst")),
            (std::vector<std::string>{"a.txt 5", "deep /", "deep/er /", "deep/er/b.bin 70000", "empty /"}));

  put("src/a.txt", "changed");
  EXPECT_EQ(ioError([&] { mFs.copyAll(at("src"), at("dst")); }).kind(), cIOException::AlreadyExists);
  EXPECT_EQ(get("dst/a.txt"), "alpha");
  mFs.copyAll(at("src"), at("dst"), true);
  EXPECT_EQ(get("dst/a.txt"), "changed");
  EXPECT_THROW(mFs.copyAll(at("src"), at("src/inside")), cIOException);

  mFs.copyFile(at("src/a.txt"), at("src/a.txt"), true);  // onto itself: stays whole
  EXPECT_EQ(get("src/a.txt"), "changed");
  EXPECT_EQ(ioError([&] { mFs.copyFile(at("src"), at("x")); }).kind(), cIOException::IsADirectory);
}

TEST_P(FileSystems, ListingsWithAttributes) {
  mFs.createDirs(at("l/sub"));
  put("l/b.txt", "bb");
  put("l/a.txt", "a");
  put("l/sub/c", "ccc");
  qstd::tVector<qio::cFileInfo> entries;
  qio::cDir(mFs, at("l")).entries(entries);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(text(entries[0].fileName()), "a.txt");
  EXPECT_EQ(entries[0].size(), 1u);
  EXPECT_EQ(text(entries[1].fileName()), "b.txt");
  EXPECT_EQ(entries[1].size(), 2u);
  EXPECT_TRUE(entries[2].isDirectory());

  // A directory's entries follow it directly.
  std::vector<std::string> order;
  for (qio::cDirIterator it(mFs, at("l"), qio::cDirIterator::Recursive); it.next();)
    order.push_back(std::to_string(it.depth()) + text(it.name()));
  ASSERT_EQ(order.size(), 4u);
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (order[i] == "0sub") {
      EXPECT_EQ(order.at(i + 1), "1c");
    }
  }

  EXPECT_FALSE(qio::cDir(mFs, at("l")).isEmpty());
  EXPECT_TRUE(qio::cDir(mFs, at("l/sub")).exists());
  EXPECT_EQ(ioError([&] { qio::cDirIterator it(mFs, at("l/a.txt")); }).kind(), cIOException::NotADirectory);
  EXPECT_EQ(ioError([&] { qio::cDirIterator it(mFs, at("nothing")); }).kind(), cIOException::NotFound);
}

TEST_P(FileSystems, TimesAndPermissions) {
  put("t", "x");
  const qstd::cTime when(1600000000ull * 1000000ull);
  mFs.setModificationTime(at("t"), when);
  EXPECT_EQ(mFs.attributes(at("t")).modificationTime().toSec(), 1600000000ull);
  EXPECT_EQ(ioError([&] { mFs.attributes(at("none")); }).kind(), cIOException::NotFound);

  mFs.setPermissions(at("t"), 0444);
  EXPECT_EQ(mFs.attributes(at("t")).permissions() & 0222u, 0u);
  // Root ignores permissions, also under wine (which maps the read-only
  // attribute onto them).
#ifndef _WIN32
  const bool mayOverride = GetParam() != Memory && geteuid() == 0;
#else
  const bool mayOverride =
      GetParam() != Memory && GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
#endif
  if (!mayOverride) {
    EXPECT_EQ(ioError([&] { qio::cFile f(mFs, at("t"), qio::cFile::Write); }).kind(), cIOException::PermissionDenied);
  }
  mFs.setPermissions(at("t"), 0644);
  qio::cFile(mFs, at("t"), qio::cFile::Write).writeText("y");
  EXPECT_EQ(get("t"), "y");
}

TEST_P(FileSystems, AtomicSaveThroughEachFileSystem) {
  put("s", "old");
  try {
    qio::cFile f(mFs, at("s"), qio::cFile::Overwrite | qio::cFile::Atomic);
    f.writeText("new");
    EXPECT_EQ(get("s"), "old");
    throw 1;
  } catch (int) {
  }
  EXPECT_EQ(get("s"), "old");
  {
    qio::cFile f(mFs, at("s"), qio::cFile::Overwrite | qio::cFile::Atomic);
    f.writeText("new");
  }
  EXPECT_EQ(get("s"), "old");  // only close() saves
  mFs.writeAll(at("s"), "new", 3);
  EXPECT_EQ(get("s"), "new");
  EXPECT_EQ(tree(mRoot), (std::vector<std::string>{"s 3"}));
}

INSTANTIATE_TEST_SUITE_P(Io, FileSystems, ::testing::Values(Native, Memory, Proxied),
                         [](const ::testing::TestParamInfo<Kind>& info) {
                           return std::string(info.param == Native ? "Native"
                                                                   : (info.param == Memory ? "Memory" : "Proxied"));
                         });
