#include "qelcore/io/cpath.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/std/cbugexception.h"

#include "iotestutil.h"

using iotest::text;
using qio::cPath;

namespace {

const cPath::Style Posix = cPath::PosixStyle;
const cPath::Style Win = cPath::WindowsStyle;

std::string posix(const char* s) { return text(cPath(s, Posix)); }
std::string win(const char* s) { return text(cPath(s, Win)); }

}  // namespace

TEST(PathParsing, TidiesSeparatorsAndNothingElse) {
  EXPECT_EQ(posix("a//b///c/"), "a/b/c");
  EXPECT_EQ(posix("//usr/./lib/"), "/usr/./lib");
  EXPECT_EQ(posix("/"), "/");
  EXPECT_EQ(posix("///"), "/");
  EXPECT_EQ(posix(""), "");
  EXPECT_EQ(posix("a\\b"), "a\\b");  // a name character on POSIX
  EXPECT_EQ(cPath("a//b/", Posix), cPath("a/b", Posix));
}

TEST(PathParsing, WindowsDrivesSharesAndLongPathPrefixes) {
  EXPECT_EQ(win("C:\\Users\\\\me\\"), "C:/Users/me");
  EXPECT_EQ(win("c:relative\\x"), "c:relative/x");
  EXPECT_EQ(win("\\\\server\\share\\dir\\f.txt"), "//server/share/dir/f.txt");
  EXPECT_EQ(win("\\\\server\\share"), "//server/share/");
  EXPECT_EQ(win("\\\\server\\"), "/server");  // no share: merely rooted
  EXPECT_EQ(win("\\\\?\\C:\\very\\long"), "C:/very/long");
  EXPECT_EQ(win("\\\\?\\UNC\\srv\\sh\\x"), "//srv/sh/x");
  EXPECT_EQ(win("\\\\?\\UNC\\"), "/");
  EXPECT_EQ(win("\\x"), "/x");
  EXPECT_EQ(text(cPath("C:/a/b", Win).toNative()), "C:\\a\\b");
  EXPECT_EQ(text(cPath("a/b", Posix).toNative()), "a/b");

  EXPECT_TRUE(cPath("C:/x", Win).isAbsolute());
  EXPECT_TRUE(cPath("//s/h/x", Win).isAbsolute());
  EXPECT_FALSE(cPath("C:x", Win).isAbsolute());
  EXPECT_FALSE(cPath("/x", Win).isAbsolute());  // rooted, but on the current drive
  EXPECT_TRUE(cPath("/x", Posix).isAbsolute());
  EXPECT_FALSE(cPath("C:/x", Posix).isAbsolute());  // just a name on POSIX
  EXPECT_EQ(text(cPath("//s/h/x", Win).rootName()), "//s/h");
  EXPECT_EQ(text(cPath("C:/x/y", Win).root()), "C:/");
  EXPECT_EQ(text(cPath("C:x", Win).root()), "C:");
}

TEST(PathParts, NameBaseNameAndExtension) {
  struct {
    const char* path;
    const char* name;
    const char* base;
    const char* ext;
  } cases[] = {
      {"/a/archive.tar.gz", "archive.tar.gz", "archive.tar", ".gz"},
      {"dir/.profile", ".profile", ".profile", ""},
      {"a.", "a.", "a", "."},
      {"x/..", "..", "..", ""},
      {".", ".", ".", ""},
      {"/", "", "", ""},
      {"", "", "", ""},
      {"noext", "noext", "noext", ""},
  };
  for (const auto& c : cases) {
    const cPath p(c.path, Posix);
    EXPECT_EQ(text(p.fileName()), c.name) << c.path;
    EXPECT_EQ(text(p.baseName()), c.base) << c.path;
    EXPECT_EQ(text(p.extension()), c.ext) << c.path;
  }
  EXPECT_EQ(text(cPath("C:file.txt", Win).fileName()), "file.txt");
  EXPECT_EQ(text(cPath("C:/", Win).fileName()), "");
}

TEST(PathParts, ParentsEndAtTheRoot) {
  EXPECT_EQ(text(cPath("/a/b/c", Posix).parent()), "/a/b");
  EXPECT_EQ(text(cPath("/a", Posix).parent()), "/");
  EXPECT_EQ(text(cPath("/", Posix).parent()), "/");
  EXPECT_EQ(text(cPath("a", Posix).parent()), "");
  EXPECT_EQ(text(cPath("C:/a", Win).parent()), "C:/");
  EXPECT_EQ(text(cPath("C:a", Win).parent()), "C:");
  EXPECT_EQ(text(cPath("//s/h/a", Win).parent()), "//s/h/");
  EXPECT_EQ(text(cPath("//s/h/", Win).parent()), "//s/h/");

  const cPath p("/usr/local/lib", Posix);
  EXPECT_EQ(p.componentCount(), 3u);
  EXPECT_EQ(text(p.component(1)), "local");
  EXPECT_THROW(p.component(3), qstd::cBugException);
}

TEST(PathParts, ReplacingNameAndExtension) {
  const cPath p("/doc/report.txt", Posix);
  EXPECT_EQ(text(p.withExtension(".pdf")), "/doc/report.pdf");
  EXPECT_EQ(text(p.withExtension("md")), "/doc/report.md");
  EXPECT_EQ(text(p.withExtension("")), "/doc/report");
  EXPECT_EQ(text(p.withFileName("other")), "/doc/other");
  EXPECT_EQ(text(cPath(".bashrc", Posix).withExtension(".bak")), ".bashrc.bak");
  EXPECT_EQ(text(cPath("/", Posix).withExtension(".x")), "/");
}

TEST(PathJoin, RelativeJoinsAndRootsReplace) {
  EXPECT_EQ(text(cPath("/a", Posix) / cPath("b/c", Posix)), "/a/b/c");
  EXPECT_EQ(text(cPath("/", Posix) / cPath("b", Posix)), "/b");
  EXPECT_EQ(text(cPath("", Posix) / cPath("b", Posix)), "b");
  EXPECT_EQ(text(cPath("a", Posix) / cPath("", Posix)), "a");
  EXPECT_EQ(text(cPath("/a", Posix) / cPath("/etc", Posix)), "/etc");

  EXPECT_EQ(text(cPath("C:/a", Win) / cPath("b", Win)), "C:/a/b");
  EXPECT_EQ(text(cPath("C:", Win) / cPath("b", Win)), "C:b");
  EXPECT_EQ(text(cPath("C:/a", Win) / cPath("/x", Win)), "C:/x");
  EXPECT_EQ(text(cPath("//s/h/a", Win) / cPath("/x", Win)), "//s/h/x");
  EXPECT_EQ(text(cPath("C:/a", Win) / cPath("D:x", Win)), "D:x");
  EXPECT_EQ(text(cPath("d:/a", Win) / cPath("D:x", Win)), "d:/a/x");
  EXPECT_EQ(text(cPath("C:/a", Win) / cPath("D:/x", Win)), "D:/x");

  cPath p("/a", Posix);
  p /= cPath("b", Posix);
  EXPECT_EQ(text(p), "/a/b");
  EXPECT_TRUE((p / cPath("c", Posix)).parent() == p);
}

TEST(PathNormalise, DotsResolveLexically) {
  struct {
    const char* in;
    const char* out;
  } cases[] = {
      {"/a/./b/../c", "/a/c"},
      {"/../a", "/a"},
      {"../a/../..", "../.."},
      {"a/..", "."},
      {"./", "."},
      {"a/b/../../../x", "../x"},
      {"/a/b/..", "/a"},
      {"/..", "/"},
      {"", ""},
      {"x/./y/.", "x/y"},
      {"../../a", "../../a"},
      {"a/../../b/..", ".."},
  };
  for (const auto& c : cases) {
    const cPath n = cPath(c.in, Posix).normalised();
    EXPECT_EQ(text(n), c.out) << c.in;
    EXPECT_TRUE(n.isNormalised()) << c.in;
    EXPECT_EQ(n.normalised(), n) << c.in;
  }
  EXPECT_FALSE(cPath("a/./b", Posix).isNormalised());
  EXPECT_FALSE(cPath("/../a", Posix).isNormalised());
  EXPECT_EQ(text(cPath("C:/../x", Win).normalised()), "C:/x");
  EXPECT_EQ(text(cPath("C:a/../..", Win).normalised()), "C:..");
  EXPECT_EQ(text(cPath("//s/h/a/../../x", Win).normalised()), "//s/h/x");
}

TEST(PathRelative, LeadsFromTheBaseToThePath) {
  struct {
    const char* path;
    const char* base;
    const char* rel;
  } cases[] = {
      {"/srv/etc/app.conf", "/srv/app/data", "../../etc/app.conf"},
      {"/a/b", "/a/b", "."},
      {"/a/b/c", "/a", "b/c"},
      {"/a", "/a/b/c", "../.."},
      {"/a/bc", "/a/b", "../bc"},
      {"a/b", "a/./c/..", "b"},
      {"x", ".", "x"},
      {"a", "../b", "a"},  // the base climbs out: no way back, the path stays
      {"/x", "y", "/x"},   // other roots
  };
  for (const auto& c : cases)
    EXPECT_EQ(text(cPath(c.path, Posix).relativeTo(cPath(c.base, Posix))), c.rel) << c.path << " from " << c.base;
  EXPECT_EQ(text(cPath("D:/x", Win).relativeTo(cPath("C:/x", Win))), "D:/x");
  EXPECT_EQ(text(cPath("b/c", Posix).absoluteTo(cPath("/a/x/..", Posix))), "/a/b/c");
}

TEST(PathCompare, WholeComponentsAndComponentOrder) {
  EXPECT_TRUE(cPath("/a/b", Posix).beginsWith(cPath("/a", Posix)));
  EXPECT_TRUE(cPath("/a/b", Posix).beginsWith(cPath("/", Posix)));
  EXPECT_TRUE(cPath("/a/b", Posix).beginsWith(cPath("/a/b", Posix)));
  EXPECT_FALSE(cPath("/a/bc", Posix).beginsWith(cPath("/a/b", Posix)));
  EXPECT_FALSE(cPath("a/b", Posix).beginsWith(cPath("/a", Posix)));
  EXPECT_FALSE(cPath("C:/x", Win).beginsWith(cPath("C:", Win)));
  EXPECT_TRUE(cPath("C:x", Win).beginsWith(cPath("C:", Win)));

  std::vector<cPath> paths = {cPath("a-b", Posix), cPath("a/b", Posix), cPath("a", Posix), cPath("a/b/c", Posix)};
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> sorted;
  for (const cPath& p : paths) sorted.push_back(text(p));
  EXPECT_EQ(sorted, (std::vector<std::string>{"a", "a/b", "a/b/c", "a-b"}));
  EXPECT_EQ(cPath("a/b", Posix).hash(), cPath("a//b/", Posix).hash());
  EXPECT_NE(cPath("a/b", Posix), cPath("a/B", Posix));
}

TEST(PathText, Utf8AndBytesThatAreNotUtf8) {
  const cPath p(
      "/tmp/gr\xC3\xBC\xC3\x9F"
      "e",
      Posix);
  EXPECT_EQ(p.fileName().size(), 5u);
  EXPECT_EQ(p.fileName()[3], 0xDFu);
  // A stray byte is kept as an escaped character, not replaced.
  const cPath raw("bad\xFFname", Posix);
  EXPECT_EQ(raw.toString().size(), 8u);
  EXPECT_EQ(raw.toString()[3], 0xDCFFu);
}
