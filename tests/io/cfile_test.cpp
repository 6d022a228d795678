#include "qelcore/io/cfile.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/io/cdiriterator.h"
#include "qelcore/io/cfs.h"
#include "qelcore/io/cioexception.h"
#include "qelcore/std/cbugexception.h"

#include "iotestutil.h"

using iotest::cTempDir;
using iotest::ioError;
using iotest::text;
using qio::cFile;
using qio::cIOException;

namespace {

std::string readBack(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::string readAll(cFile& f) {
  qstd::tArray<char> out;
  f.readAll(out);
  return text(out);
}

unsigned int countEntries(const qio::cPath& dir) {
  unsigned int n = 0;
  for (qio::cDirIterator it(dir); it.next();) ++n;
  return n;
}

}  // namespace

TEST(FileIO, SmallAndLargeWritesReadBackInOrder) {
  cTempDir dir;
  std::string expected;
  {
    cFile f(dir / "data.bin", cFile::Overwrite);
    const std::string big(100000, 'x');
    for (int i = 0; i < 50; ++i) {
      const std::string small = "line " + std::to_string(i) + "\n";
      f.writeText(small.c_str());
      expected += small;
    }
    f.write(big.data(), static_cast<unsigned int>(big.size()));  // past the buffer, after buffered bytes
    expected += big;
    f.writeText("end");
    expected += "end";
    EXPECT_EQ(f.pos(), expected.size());
    EXPECT_EQ(f.size(), expected.size());
  }
  EXPECT_EQ(readBack(dir.native() / "data.bin"), expected);

  cFile in(dir / "data.bin", cFile::Read);
  char head[5];
  in.readExactly(head, 5);
  EXPECT_EQ(std::string(head, 5), "line ");
  EXPECT_EQ(in.pos(), 5u);
  EXPECT_FALSE(in.atEnd());
  EXPECT_EQ(readAll(in), expected.substr(5));
  EXPECT_TRUE(in.atEnd());
  char more[4];
  EXPECT_EQ(in.read(more, 4), 0u);
  EXPECT_EQ(ioError([&] { in.readExactly(more, 1); }).kind(), cIOException::UnexpectedEnd);
}

TEST(FileIO, ReadsAndWritesInterleaveAtTheRightPositions) {
  cTempDir dir;
  cFile f(dir / "rw.bin", cFile::ReadWrite | cFile::Create);
  f.writeText("0123456789");
  f.seek(2);
  char c[3];
  f.readExactly(c, 3);
  EXPECT_EQ(std::string(c, 3), "234");
  f.writeText("ab");  // at 5, although the read went ahead into the buffer
  EXPECT_EQ(f.pos(), 7u);
  f.seek(0);
  EXPECT_EQ(readAll(f), "01234ab789");
  f.resize(4);
  EXPECT_EQ(f.size(), 4u);
  f.seek(0);
  EXPECT_EQ(readAll(f), "0123");
}

TEST(FileIO, AppendWritesAtTheEnd) {
  cTempDir dir;
  {
    cFile a(dir / "log", cFile::AppendOrCreate);
    a.writeText("one\n");
  }
  cFile a(dir / "log", cFile::AppendOrCreate | cFile::Read);
  a.seek(0);
  a.writeText("two\n");
  EXPECT_EQ(a.pos(), 8u);
  a.close();
  EXPECT_EQ(readBack(dir.native() / "log"), "one\ntwo\n");
}

TEST(FileIO, OffsetsBeyondFourGigabytes) {
  cTempDir dir;
  const unsigned long long far = 5ull << 30;
  cFile f(dir / "sparse", cFile::ReadWrite | cFile::Create);
  f.seek(far);
  f.writeText("tail");
  EXPECT_EQ(f.size(), far + 4);
  EXPECT_EQ(f.pos(), far + 4);
  f.seek(far + 1);
  char c[3];
  f.readExactly(c, 3);
  EXPECT_EQ(std::string(c, 3), "ail");
  f.seek(far - 2);
  f.readExactly(c, 3);
  EXPECT_EQ(std::string(c, 3), std::string("\0\0t", 3));
  EXPECT_EQ(qio::cFs::system().attributes(dir / "sparse").size(), far + 4);
}

TEST(FileOpen, ModesAndTheirFailures) {
  cTempDir dir;
  const qio::cPath missing = dir / "nope/file.txt";
  const cIOException notFound = ioError([&] { cFile f(missing, cFile::Read); });
  EXPECT_EQ(notFound.kind(), cIOException::NotFound);
  EXPECT_EQ(std::string(notFound.operation().c_str()), "open");
  EXPECT_EQ(text(notFound.path()), text(missing));
  EXPECT_GT(notFound.errorText().size(), 0u);
  EXPECT_NE(notFound.osErrorCode(), 0);

  cFile(dir / "f", cFile::CreateNew).writeText("x");
  EXPECT_EQ(ioError([&] { cFile f(dir / "f", cFile::CreateNew); }).kind(), cIOException::AlreadyExists);
  EXPECT_EQ(ioError([&] { cFile f(dir.path(), cFile::Read); }).kind(), cIOException::IsADirectory);
  { cFile t(dir / "f", cFile::Write | cFile::Truncate); }
  EXPECT_EQ(readBack(dir.native() / "f"), "");

  EXPECT_THROW(cFile(dir / "f", 0), qstd::cBugException);
  EXPECT_THROW(cFile(dir / "f", cFile::Read | cFile::Truncate), qstd::cBugException);
  EXPECT_THROW(cFile(dir / "f", cFile::Read | cFile::Atomic), qstd::cBugException);
  EXPECT_THROW(cFile(dir / "f", cFile::Write | cFile::Atomic), qstd::cBugException);

  cFile readOnly(dir / "f", cFile::Read);
  EXPECT_EQ(ioError([&] { readOnly.writeText("x"); }).kind(), cIOException::NotOpen);
}

TEST(FileOpen, ClosedFilesRefuseEveryOperation) {
  cTempDir dir;
  cFile f(dir / "c", cFile::Overwrite);
  f.close();
  f.close();  // a second close does nothing
  EXPECT_FALSE(f.isOpen());
  const cIOException e = ioError([&] { f.writeText("late"); });
  EXPECT_EQ(e.kind(), cIOException::NotOpen);
  EXPECT_EQ(text(e.errorText()), "Inavalid handle when writing to file!");
  EXPECT_EQ(text(e.path()), text(dir / "c"));
  char c;
  EXPECT_EQ(ioError([&] { f.read(&c, 1); }).kind(), cIOException::NotOpen);
  EXPECT_EQ(ioError([&] { f.seek(0); }).kind(), cIOException::NotOpen);
  EXPECT_EQ(ioError([&] { cFile().writeText("x"); }).kind(), cIOException::NotOpen);
}

TEST(FileAtomicSave, ReplacesInOneStepOrNotAtAll) {
  cTempDir dir;
  const qio::cPath target = dir / "settings.ini";
  qio::cFs::system().writeAll(target, "old", 3, false);
  {
    cFile f(target, cFile::Overwrite | cFile::Atomic);
    f.writeText("new content");
    EXPECT_EQ(readBack(dir.native() / "settings.ini"), "old");  // nothing visible before close
    f.close();
  }
  EXPECT_EQ(readBack(dir.native() / "settings.ini"), "new content");

  // Destroyed while an exception passes: the old file stays.
  try {
    cFile f(target, cFile::Overwrite | cFile::Atomic);
    f.writeText("half");
    throw 1;
  } catch (int) {
  }
  EXPECT_EQ(readBack(dir.native() / "settings.ini"), "new content");
  {
    cFile f(target, cFile::Overwrite | cFile::Atomic);
    f.writeText("dropped");
    f.discard();
  }
  EXPECT_EQ(readBack(dir.native() / "settings.ini"), "new content");
  {
    cFile f(target, cFile::Overwrite | cFile::Atomic);
    f.writeText("forgotten");  // no close(): not saved
  }
  EXPECT_EQ(readBack(dir.native() / "settings.ini"), "new content");
  EXPECT_EQ(countEntries(dir.path()), 1u);  // no temporary file left behind

  // Into a missing directory: fails at open, nothing created.
  EXPECT_EQ(ioError([&] { cFile f(dir / "no/x.ini", cFile::Overwrite | cFile::Atomic); }).kind(),
            cIOException::NotFound);
}

#ifndef _WIN32
TEST(FileAtomicSave, KeepsThePermissionsOfTheOldFile) {
  cTempDir dir;
  const qio::cPath target = dir / "secret";
  qio::cFs fs = qio::cFs::system();
  fs.writeAll(target, "a", 1, false);
  fs.setPermissions(target, 0600);
  fs.writeAll(target, "b", 1);
  EXPECT_EQ(fs.attributes(target).permissions(), 0600u);
}

TEST(FileIO, FullDiskIsReportedAsNoSpace) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  cFile f("/dev/full", cFile::Write);
  f.writeText("buffered");
  const cIOException e = ioError([&] { f.flush(); });
  EXPECT_EQ(e.kind(), cIOException::NoSpace);
  EXPECT_EQ(std::string(e.operation().c_str()), "write");
}

TEST(FileOpen, NamesThatCannotBeNamesAreRefused) {
  cTempDir dir;
  qucs::cString name = (dir / "a").toString();
  name.append(0u);
  name.appendC("b");
  EXPECT_EQ(ioError([&] { cFile f(qio::cPath(name), cFile::Overwrite); }).kind(), cIOException::InvalidName);
  // Bytes that are not UTF-8 survive the way through a name.
  const qio::cPath raw = dir.path() / qio::cPath("bad\xFFname");
  cFile(raw, cFile::Overwrite).writeText("ok");
  EXPECT_EQ(readBack(dir.native() / "bad\xFFname"), "ok");
  qio::cDirIterator it(dir.path());
  ASSERT_TRUE(it.next());
  EXPECT_EQ(it.path(), raw);
}
#endif

TEST(FileIO, MovedFilesStayOpen) {
  cTempDir dir;
  cFile a(dir / "m", cFile::Overwrite);
  a.writeText("abc");
  cFile b(std::move(a));
  EXPECT_FALSE(a.isOpen());
  b.writeText("def");
  b.close();
  EXPECT_EQ(readBack(dir.native() / "m"), "abcdef");
}

TEST(FileIO, PathsLongerThanTheClassicLimit) {
  cTempDir dir;
  qio::cFs fs = qio::cFs::system();
  qio::cPath deep = dir.path();
  for (int i = 0; i < 8; ++i) deep /= qio::cPath(("a-rather-long-directory-name-number-" + std::to_string(i)).c_str());
  ASSERT_GT(deep.toString().size(), 300u);
  EXPECT_TRUE(fs.createDirs(deep));
  const qio::cPath file = deep / "f.txt";
  fs.writeAll(file, "deep", 4);
  qstd::tArray<char> back;
  fs.readAll(file / ".." / "." / "f.txt", back);  // normalised on the way where the system needs it
  EXPECT_EQ(text(back), "deep");
  EXPECT_EQ(fs.attributes(file).size(), 4u);
  EXPECT_EQ(fs.removeAll(dir / "a-rather-long-directory-name-number-0"), 9u);
}

TEST(FileIO, RelativePathsStartAtTheCurrentDirectory) {
  qio::cFs fs = qio::cFs::system();
  const qio::cPath cwd = fs.currentDirectory();
  EXPECT_TRUE(cwd.isAbsolute());
  EXPECT_EQ(fs.absolute("x/../y"), cwd / "y");
  EXPECT_TRUE(fs.isDirectory("."));
}
