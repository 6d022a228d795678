// Fuzzes path parsing, normalisation and the part functions in both styles:
// no input may crash or hang, and the laws every path keeps must hold.
//
// Input: one style byte (bit 0: Windows style), then two paths separated by
// a zero byte, as UTF-8 (bytes that are not UTF-8 included).
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

using qio::cPath;

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

void laws(const cPath& p) {
  const qucs::cString& s = p.toString();
  // Tidy: parsing again changes nothing, no empty component, no trailing separator but a root's.
  check(cPath(s, p.style()) == p);
  for (unsigned int i = 1; i < s.size(); ++i)
    if (s[i] == '/' && s[i - 1] == '/') check(i == 1 && p.style() == cPath::WindowsStyle && p.hasRootName());
  const cPath root = p.root();
  if (s.size() && s[s.size() - 1] == '/') check(root == p);

  const cPath n = p.normalised();
  check(n.isNormalised());
  check(n.normalised() == n);
  check(n.toString().size() <= s.size() + 1);
  check(n.root() == root);

  // The name splits into base name and extension.
  check(p.baseName() + p.extension() == p.fileName());
  // Parents end at the root (or at nothing) within the number of components.
  cPath up = p;
  for (unsigned int k = 0; k <= p.componentCount(); ++k) {
    const cPath next = up.parent();
    if (!up.isEmpty() && !(next == up)) check(up.beginsWith(next) || next.isEmpty());
    up = next;
  }
  check(up.componentCount() == 0);
  check(p.componentCount() == 0 || p.beginsWith(p.parent()) || p.parent().isEmpty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1 || size > 4096) return 0;
  const cPath::Style style = (data[0] & 1) ? cPath::WindowsStyle : cPath::PosixStyle;
  const std::string rest(reinterpret_cast<const char*>(data + 1), size - 1);
  const std::size_t split = rest.find('\0');
  const std::string first = rest.substr(0, split);
  const std::string second = split == std::string::npos ? std::string() : rest.substr(split + 1);
  const cPath a(first.c_str(), style);
  const cPath b(second.c_str(), style);
  laws(a);
  laws(b);

  const cPath joined = a / b;
  laws(joined);
  if (!b.hasRootName() && !b.hasRootDirectory() && !a.isEmpty() && joined.root() == a.root())
    check(joined.beginsWith(a) && joined.componentCount() == a.componentCount() + b.componentCount());

  // Where a way from b to a exists, following it leads to a.
  const cPath na = a.normalised(), nb = b.normalised();
  const cPath rel = a.relativeTo(b);
  if (na.isAbsolute() && nb.isAbsolute() && na.root() == nb.root()) {
    check(rel.isRelative());
    check((nb / rel).normalised() == na);
  }
  return 0;
}
