#include "qelcore/io/cpath.h"

#include <cstring>
#include <utility>

#include "qelcore/io/detail/cnamecodec.h"
#include "qelcore/pi/platform/cnativefsinfo.h"

namespace qio {

namespace {

typedef unsigned int tChar;

const tChar kSep = '/';

bool isLetter(tChar c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isDot(const tChar* p, unsigned int n) { return n == 1 && p[0] == '.'; }
bool isDotDot(const tChar* p, unsigned int n) { return n == 2 && p[0] == '.' && p[1] == '.'; }

const tChar* charsOf(const qucs::cString& s) { return s.data(true); }

// A result string of at most `capacity` characters written through a raw
// pointer and cut to its length at the end: one allocation per result.
class cBuilder {
public:
  explicit cBuilder(unsigned int capacity) {
    if (capacity) {
      mString.setSize(capacity);
      mp = mString.data();
    }
  }
  void put(tChar c) { mp[miLength++] = c; }
  void put(const tChar* p, unsigned int n) {
    if (n) std::memcpy(mp + miLength, p, n * sizeof(tChar));
    miLength += n;
  }
  unsigned int length() const { return miLength; }
  void setLength(unsigned int n) { miLength = n; }
  tChar at(unsigned int i) const { return mp[i]; }
  const tChar* chars() const { return mp; }
  qucs::cString& finish() {
    if (mString.size() != miLength) mString.truncate(miLength);
    return mString;
  }

private:
  qucs::cString mString;
  tChar* mp = nullptr;
  unsigned int miLength = 0;
};

}  // namespace

cPath::Style cPath::nativeStyle() { return static_cast<Style>(qpi::cNativeFsInfo::pathStyle()); }

cPath::cPath() : miRootName(0), mbRootDir(false), meStyle(static_cast<unsigned char>(nativeStyle())) {}

cPath::cPath(const qucs::cString& text)
    : miRootName(0), mbRootDir(false), meStyle(static_cast<unsigned char>(nativeStyle())) {
  parse(charsOf(text), text.size());
}

cPath::cPath(const char* utf8) : miRootName(0), mbRootDir(false), meStyle(static_cast<unsigned char>(nativeStyle())) {
  qucs::cString text;
  if (utf8) detail::cNameCodec::decode(utf8, static_cast<unsigned int>(std::strlen(utf8)), text);
  parse(charsOf(text), text.size());
}

cPath::cPath(const qucs::cString& text, Style style)
    : miRootName(0), mbRootDir(false), meStyle(static_cast<unsigned char>(style)) {
  parse(charsOf(text), text.size());
}

cPath::cPath(const char* utf8, Style style)
    : miRootName(0), mbRootDir(false), meStyle(static_cast<unsigned char>(style)) {
  qucs::cString text;
  if (utf8) detail::cNameCodec::decode(utf8, static_cast<unsigned int>(std::strlen(utf8)), text);
  parse(charsOf(text), text.size());
}

cPath::cPath(const cPath& other)
    : msPath(other.msPath), miRootName(other.miRootName), mbRootDir(other.mbRootDir), meStyle(other.meStyle) {}

cPath::cPath(cPath&& other) noexcept
    : msPath(std::move(other.msPath)),
      miRootName(other.miRootName),
      mbRootDir(other.mbRootDir),
      meStyle(other.meStyle) {
  other.miRootName = 0;
  other.mbRootDir = false;
}

cPath::~cPath() {}

cPath& cPath::operator=(const cPath& other) {
  if (this != &other) {
    cPath copy(other);
    swap(copy);
  }
  return *this;
}

cPath& cPath::operator=(cPath&& other) noexcept {
  if (this != &other) {
    cPath taken(std::move(other));
    swap(taken);
  }
  return *this;
}

void cPath::swap(cPath& other) noexcept {
  msPath.swap(other.msPath);
  std::swap(miRootName, other.miRootName);
  std::swap(mbRootDir, other.mbRootDir);
  std::swap(meStyle, other.meStyle);
}

void cPath::parse(const tChar* s, unsigned int n) {
  const bool windows = meStyle == WindowsStyle;
  auto isSep = [windows](tChar c) { return c == kSep || (windows && c == '\\'); };
  // The UNC root may gain its closing separator: one more than the input.
  cBuilder out(n + 1);
  unsigned int i = 0;
  miRootName = 0;
  mbRootDir = false;
  if (windows) {
    bool unc = false;
    // "\\?\C:\x" and "\\?\UNC\server\share\x": the prefix only switches
    // off the system's own parsing, the path behind it is an ordinary one.
    // (A server named "?" would read as the prefix again: it is the prefix.)
    if (n >= 3 && isSep(s[0]) && isSep(s[1]) && s[2] == '?' && (n == 3 || isSep(s[3]))) {
      i = n == 3 ? 3 : 4;
      if (n >= 8 && (s[4] | 0x20) == 'u' && (s[5] | 0x20) == 'n' && (s[6] | 0x20) == 'c' && isSep(s[7])) {
        i = 8;
        unc = true;
      }
    } else if (n >= 3 && isSep(s[0]) && isSep(s[1]) && !isSep(s[2])) {
      i = 2;
      unc = true;
    }
    // A UNC root is a server and a share; without both (or with the server
    // "?", whose generic form would read as the prefix) the path is merely
    // rooted.
    if (unc) {
      unsigned int serverEnd = i;
      while (serverEnd < n && !isSep(s[serverEnd])) ++serverEnd;
      unsigned int share = serverEnd;
      while (share < n && isSep(s[share])) ++share;
      if (serverEnd == i || share == n || (serverEnd == i + 1 && s[i] == '?')) {
        unc = false;
        i -= 1;
      }
    }
    if (unc) {
      out.put(kSep);
      out.put(kSep);
      while (i < n && !isSep(s[i])) out.put(s[i++]);
      while (i < n && isSep(s[i])) ++i;
      out.put(kSep);
      while (i < n && !isSep(s[i])) out.put(s[i++]);
      miRootName = out.length();
      mbRootDir = true;
      out.put(kSep);
    } else if (i + 1 < n && isLetter(s[i]) && s[i + 1] == ':') {
      out.put(s[i]);
      out.put(':');
      i += 2;
      miRootName = 2;
      if (i < n && isSep(s[i])) {
        mbRootDir = true;
        out.put(kSep);
      }
    } else if (i < n && isSep(s[i])) {
      mbRootDir = true;
      out.put(kSep);
    }
  } else if (n && s[0] == kSep) {
    mbRootDir = true;
    out.put(kSep);
  }
  while (i < n && isSep(s[i])) ++i;
  while (i < n) {
    while (i < n && !isSep(s[i])) out.put(s[i++]);
    while (i < n && isSep(s[i])) ++i;
    if (i < n) out.put(kSep);
  }
  out.finish().swap(msPath);
}

qucs::cString cPath::toNative() const {
  qucs::cString native(msPath);
  if (meStyle == WindowsStyle) native.replace(kSep, static_cast<tChar>('\\'));
  return native;
}

bool cPath::isAbsolute() const {
  if (meStyle == WindowsStyle) return mbRootDir && miRootName != 0;
  return mbRootDir;
}

cPath cPath::root() const {
  cPath r;
  r.meStyle = meStyle;
  r.miRootName = miRootName;
  r.mbRootDir = mbRootDir;
  if (rootLength()) r.msPath.setData(charsOf(msPath), rootLength());
  return r;
}

qucs::cString cPath::rootName() const {
  qucs::cString name;
  if (miRootName) name.setData(charsOf(msPath), miRootName);
  return name;
}

unsigned int cPath::componentCount() const {
  const unsigned int n = msPath.size();
  const unsigned int start = rootLength();
  if (start >= n) return 0;
  const tChar* p = charsOf(msPath);
  unsigned int count = 1;
  for (unsigned int i = start; i < n; ++i) count += p[i] == kSep;
  return count;
}

qucs::cString cPath::component(unsigned int index) const {
  const unsigned int n = msPath.size();
  const tChar* p = charsOf(msPath);
  unsigned int i = rootLength();
  for (unsigned int k = 0; k < index && i < n; ++k) {
    while (i < n && p[i] != kSep) ++i;
    ++i;
  }
  if (i >= n) qstd::cSTDExceptions::throwOutOfBounds("cPath", "component");
  unsigned int end = i;
  while (end < n && p[end] != kSep) ++end;
  qucs::cString c;
  c.setData(p + i, end - i);
  return c;
}

unsigned int cPath::fileNameStart() const {
  const unsigned int n = msPath.size();
  const unsigned int root = rootLength();
  const tChar* p = charsOf(msPath);
  unsigned int i = n;
  while (i > root && p[i - 1] != kSep) --i;
  return i;
}

qucs::cString cPath::fileName() const {
  const unsigned int start = fileNameStart();
  qucs::cString name;
  if (start < msPath.size()) name.setData(charsOf(msPath) + start, msPath.size() - start);
  return name;
}

namespace {

// Offset of the extension's dot within a file name, or its length.
unsigned int extensionAt(const tChar* p, unsigned int n) {
  if (isDot(p, n) || isDotDot(p, n)) return n;
  unsigned int i = n;
  while (i > 0 && p[i - 1] != '.') --i;
  return i > 1 ? i - 1 : n;
}

}  // namespace

qucs::cString cPath::baseName() const {
  const unsigned int start = fileNameStart();
  const tChar* p = charsOf(msPath) + start;
  qucs::cString name;
  const unsigned int n = msPath.size() - start;
  if (n) name.setData(p, extensionAt(p, n));
  return name;
}

qucs::cString cPath::extension() const {
  const unsigned int start = fileNameStart();
  const tChar* p = charsOf(msPath) + start;
  const unsigned int n = msPath.size() - start;
  qucs::cString ext;
  const unsigned int at = n ? extensionAt(p, n) : 0;
  if (at < n) ext.setData(p + at, n - at);
  return ext;
}

cPath cPath::parent() const {
  const unsigned int start = fileNameStart();
  const unsigned int root = rootLength();
  if (start >= msPath.size()) return *this;
  cPath r;
  r.meStyle = meStyle;
  r.miRootName = miRootName;
  r.mbRootDir = mbRootDir;
  // Drop the name and the separator before it, unless that belongs to the root.
  const unsigned int keep = start > root ? start - 1 : start;
  if (keep) r.msPath.setData(charsOf(msPath), keep);
  return r;
}

cPath cPath::withFileName(const qucs::cString& name) const { return parent().join(cPath(name, style())); }

cPath cPath::withExtension(const qucs::cString& ext) const {
  const unsigned int start = fileNameStart();
  const unsigned int n = msPath.size() - start;
  if (n == 0) return *this;
  const tChar* p = charsOf(msPath);
  const unsigned int at = start + extensionAt(p + start, n);
  qucs::cString text;
  text.setData(p, at);
  if (ext.size()) {
    if (ext[0] != '.') text.append(static_cast<tChar>('.'));
    text.append(ext.array());
  }
  return cPath(text, style());
}

cPath cPath::join(const cPath& other) const {
  if (other.msPath.size() == 0) return *this;
  if (msPath.size() == 0) return other;
  const bool windows = meStyle == WindowsStyle;
  if (other.isAbsolute()) return other;
  const tChar* a = charsOf(msPath);
  const tChar* b = charsOf(other.msPath);
  unsigned int na = msPath.size();
  unsigned int nb = other.msPath.size();
  if (windows && other.miRootName) {
    // "D:x": onto a path of drive D only.
    const bool sameDrive = miRootName == 2 && (a[0] | 0x20) == (b[0] | 0x20);
    if (!sameDrive) return other;
    b += 2;
    nb -= 2;
    if (nb == 0) return *this;
  } else if (other.mbRootDir) {
    // "/x" (Windows style only; on POSIX it is absolute): keeps the drive.
    cPath r(other);
    if (miRootName) {
      cBuilder out(miRootName + nb);
      out.put(a, miRootName);
      out.put(b, nb);
      out.finish().swap(r.msPath);
      r.miRootName = miRootName;
    }
    return r;
  }
  cPath r;
  r.meStyle = meStyle;
  r.miRootName = miRootName;
  r.mbRootDir = mbRootDir;
  // No separator after a root that ends in one, nor after a bare drive.
  const bool sep = na > rootLength();
  cBuilder out(na + nb + 1);
  out.put(a, na);
  if (sep) out.put(kSep);
  out.put(b, nb);
  out.finish().swap(r.msPath);
  return r;
}

cPath& cPath::operator/=(const cPath& other) {
  cPath joined = join(other);
  swap(joined);
  return *this;
}

cPath cPath::normalised() const {
  const unsigned int n = msPath.size();
  if (n == 0) return *this;
  const tChar* p = charsOf(msPath);
  const unsigned int root = rootLength();
  cPath r;
  r.meStyle = meStyle;
  r.miRootName = miRootName;
  r.mbRootDir = mbRootDir;
  cBuilder out(n + 1);
  out.put(p, root);
  const unsigned int base = root;
  unsigned int i = root;
  while (i < n) {
    unsigned int end = i;
    while (end < n && p[end] != kSep) ++end;
    const tChar* c = p + i;
    const unsigned int len = end - i;
    i = end + 1;
    if (isDot(c, len)) continue;
    if (isDotDot(c, len)) {
      const unsigned int w = out.length();
      if (w > base) {
        unsigned int last = w;
        while (last > base && out.at(last - 1) != kSep) --last;
        if (!isDotDot(out.chars() + last, w - last)) {
          out.setLength(last > base ? last - 1 : base);
          continue;
        }
      } else if (mbRootDir) {
        continue;
      }
    }
    if (out.length() > base) out.put(kSep);
    out.put(c, len);
  }
  if (out.length() == 0) out.put('.');
  out.finish().swap(r.msPath);
  return r;
}

bool cPath::isNormalised() const {
  const unsigned int n = msPath.size();
  const tChar* p = charsOf(msPath);
  const unsigned int root = rootLength();
  if (n == 1 && root == 0 && p[0] == '.') return true;
  bool leading = true;  // still inside the leading ".." of a relative path
  for (unsigned int i = root; i < n;) {
    unsigned int end = i;
    while (end < n && p[end] != kSep) ++end;
    if (isDot(p + i, end - i)) return false;
    if (isDotDot(p + i, end - i)) {
      if (!leading || mbRootDir) return false;
    } else {
      leading = false;
    }
    i = end + 1;
  }
  return true;
}

namespace {

// Offsets of the components after `root`; a lone "." counts as none.
void components(const tChar* p, unsigned int n, unsigned int root, unsigned int* starts, unsigned int& count) {
  count = 0;
  if (n == root + 1 && p[root] == '.') return;
  for (unsigned int i = root; i < n;) {
    starts[count++] = i;
    while (i < n && p[i] != kSep) ++i;
    ++i;
  }
}

unsigned int componentEnd(const tChar* p, unsigned int n, unsigned int at) {
  while (at < n && p[at] != kSep) ++at;
  return at;
}

}  // namespace

cPath cPath::relativeTo(const cPath& base) const {
  const cPath self = normalised();
  const cPath from = base.normalised();
  const unsigned int root = self.rootLength();
  const tChar* a = charsOf(self.msPath);
  const tChar* b = charsOf(from.msPath);
  if (root != from.rootLength() || self.mbRootDir != from.mbRootDir ||
      (root && std::memcmp(a, b, root * sizeof(tChar)) != 0))
    return self;
  const unsigned int na = self.msPath.size();
  const unsigned int nb = from.msPath.size();
  // At most one component per two characters (plus one).
  qstd::tArray<unsigned int> starts(na / 2 + nb / 2 + 2);
  unsigned int* sa = starts.data();
  unsigned int ca = 0, cb = 0;
  components(a, na, root, sa, ca);
  unsigned int* sb = sa + ca;
  components(b, nb, root, sb, cb);
  unsigned int common = 0;
  while (common < ca && common < cb) {
    const unsigned int la = componentEnd(a, na, sa[common]) - sa[common];
    const unsigned int lb = componentEnd(b, nb, sb[common]) - sb[common];
    if (la != lb || std::memcmp(a + sa[common], b + sb[common], la * sizeof(tChar)) != 0) break;
    ++common;
  }
  // Each component left of the base becomes ".."; a ".." there cannot be undone.
  for (unsigned int k = common; k < cb; ++k)
    if (isDotDot(b + sb[k], componentEnd(b, nb, sb[k]) - sb[k])) return self;
  const unsigned int ups = cb - common;
  const unsigned int restAt = common < ca ? sa[common] : na;
  cPath r;
  r.meStyle = meStyle;
  cBuilder out(ups * 3 + (na - restAt) + 1);
  for (unsigned int k = 0; k < ups; ++k) {
    if (k) out.put(kSep);
    out.put('.');
    out.put('.');
  }
  if (restAt < na) {
    if (ups) out.put(kSep);
    out.put(a + restAt, na - restAt);
  }
  if (out.length() == 0) out.put('.');
  out.finish().swap(r.msPath);
  return r;
}

cPath cPath::absoluteTo(const cPath& base) const {
  if (isAbsolute()) return normalised();
  return base.join(*this).normalised();
}

bool cPath::beginsWith(const cPath& prefix) const {
  const unsigned int n = prefix.msPath.size();
  if (n == 0) return true;
  if (n > msPath.size()) return false;
  const tChar* a = charsOf(msPath);
  const tChar* b = charsOf(prefix.msPath);
  if (std::memcmp(a, b, n * sizeof(tChar)) != 0) return false;
  // A root prefix needs the same root ("C:" does not begin "C:/x": the
  // drive's current directory is not its root).
  if (n == prefix.rootLength()) return rootLength() == n;
  return n == msPath.size() || a[n] == kSep;
}

int cPath::compare(const cPath& other) const {
  const tChar* a = charsOf(msPath);
  const tChar* b = charsOf(other.msPath);
  const unsigned int na = msPath.size();
  const unsigned int nb = other.msPath.size();
  const unsigned int n = na < nb ? na : nb;
  for (unsigned int i = 0; i < n; ++i) {
    if (a[i] == b[i]) continue;
    // The separator sorts before every character: component-wise order.
    const unsigned long long ca = a[i] == kSep ? 0 : a[i] + 1ull;
    const unsigned long long cb = b[i] == kSep ? 0 : b[i] + 1ull;
    return ca < cb ? -1 : 1;
  }
  return na == nb ? 0 : (na < nb ? -1 : 1);
}

bool cPath::operator==(const cPath& other) const {
  const unsigned int n = msPath.size();
  return n == other.msPath.size() &&
         (n == 0 || std::memcmp(charsOf(msPath), charsOf(other.msPath), n * sizeof(tChar)) == 0);
}

unsigned int cPath::hash() const {
  unsigned int h = 2166136261u;
  const tChar* p = charsOf(msPath);
  for (unsigned int i = 0; i < msPath.size(); ++i) h = (h ^ p[i]) * 16777619u;
  return h;
}

}  // namespace qio
