#include "qelcore/io/cfilewatch.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/io/cmemoryfs.h"
#include "qelcore/pi/csystem.h"

#include "iotestutil.h"

using iotest::text;
using qio::cFileWatch;
using qio::cPath;

namespace {

// Notes every change as "<what> <path relative to the watched one>".
class cRecorder : public qrmi::cConnectable {
public:
  explicit cRecorder(const cPath& base) : mBase(base) {}
  qsa::piVoid sltChanged(const cPath& path, cFileWatch::Change change) {
    const char* what =
        change == cFileWatch::Created ? "created" : (change == cFileWatch::Modified ? "modified" : "removed");
    const std::string rel = path == mBase ? std::string(".") : text(path.relativeTo(mBase));
    mSeen.push_back(std::string(what) + " " + rel);
    if (mAction) mAction();
    return qsa::piVoid();
  }

  // Runs the main loop until `expected` was seen (in this order among
  // everything else) or a generous time is over; forgets what it saw.
  bool saw(const std::vector<std::string>& expected) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (;;) {
      std::size_t next = 0;
      for (const std::string& s : mSeen)
        if (next < expected.size() && s == expected[next]) ++next;
      if (next == expected.size()) {
        mSeen.clear();
        return true;
      }
      if (std::chrono::steady_clock::now() > deadline) {
        for (const std::string& s : mSeen) ADD_FAILURE() << "seen: " << s;
        return false;
      }
      qpi::system().exec();
    }
  }

  std::vector<std::string> mSeen;
  std::function<void()> mAction;

private:
  cPath mBase;
};

void put(const qio::cFs& fs, const cPath& path, const std::string& content, bool atomic) {
  fs.writeAll(path, content.data(), static_cast<unsigned int>(content.size()), atomic);
}

// The same story told by every kind of watch on a directory.
void directoryStory(const qio::cFs& fs, const cPath& dir) {
  cFileWatch watch(fs, dir, 20);
  cRecorder r(dir);
  watch.sigChanged.connect(r, &cRecorder::sltChanged);
  put(fs, dir / "a.txt", "one", false);
  EXPECT_TRUE(r.saw({"created a.txt"}));
  put(fs, dir / "a.txt", "two, longer", false);
  EXPECT_TRUE(r.saw({"modified a.txt"}));
  put(fs, dir / "a.txt", "three: saved atomically", true);
  EXPECT_TRUE(r.saw({"modified a.txt"}));
  fs.remove(dir / "a.txt");
  EXPECT_TRUE(r.saw({"removed a.txt"}));
  for (const std::string& s : r.mSeen) EXPECT_EQ(s.find("created a.txt"), std::string::npos) << s;
}

}  // namespace

TEST(FileWatch, DirectoryOnTheNativeFileSystem) {
  iotest::cTempDir dir;
  directoryStory(qio::cFs::system(), dir.path());
  EXPECT_TRUE(cFileWatch(dir.path()).isNative());
}

TEST(FileWatch, DirectoryOnAFileSystemWithoutNotifications) {
  qio::cMemoryFs fs;
  fs.createDir("/d");
  directoryStory(fs, "/d");
  EXPECT_FALSE(cFileWatch(fs, "/d").isNative());
}

TEST(FileWatch, AFileFollowedThroughReplacementsAndRemoval) {
  iotest::cTempDir dir;
  const cPath file = dir / "settings.ini";
  cFileWatch watch(file, 20);
  cRecorder r(file);
  watch.sigChanged.connect(r, &cRecorder::sltChanged);
  put(qio::cFs::system(), dir / "other", "x", false);  // not the watched file
  put(qio::cFs::system(), file, "a=1", true);
  EXPECT_TRUE(r.saw({"created ."}));
  put(qio::cFs::system(), file, "a=2", true);
  EXPECT_TRUE(r.saw({"modified ."}));
  qio::cFs::system().remove(file);
  EXPECT_TRUE(r.saw({"removed ."}));
  for (const std::string& s : r.mSeen) EXPECT_EQ(s.find("other"), std::string::npos) << s;
}

TEST(FileWatch, DestroyedFromItsOwnSlot) {
  qio::cMemoryFs fs;
  cFileWatch* watch = new cFileWatch(fs, "/", 20);
  cRecorder r(cPath("/"));
  watch->sigChanged.connect(r, &cRecorder::sltChanged);
  r.mAction = [&] {
    delete watch;
    watch = nullptr;
  };
  put(fs, "/one", "1", false);
  put(fs, "/two", "2", false);
  while (r.mSeen.empty()) qpi::system().exec();
  EXPECT_EQ(r.mSeen.size(), 1u);  // the rest went with the watch
  EXPECT_EQ(watch, nullptr);
  qpi::system().exec();
}

TEST(FileWatch, OutlivesTheSystemObject) {
  qio::cMemoryFs fs;
  cFileWatch watch(fs, "/", 20);
  qpi::cSystem::cleanup();  // the main queue goes first
  put(fs, "/late", "x", false);
  cRecorder r(cPath("/"));
  watch.sigChanged.connect(r, &cRecorder::sltChanged);
  watch.check();  // still answers when asked
  EXPECT_EQ(r.mSeen, (std::vector<std::string>{"created late"}));
}
