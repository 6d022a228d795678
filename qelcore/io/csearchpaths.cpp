#include "qelcore/io/csearchpaths.h"

#include <vector>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/pi/platform/cnativefsinfo.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarrayops.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

class cSearchPaths::cListImpl {
public:
  explicit cListImpl(const cFs& fs) : mFs(fs) {}

  // The index of `dir`, or the count.
  std::size_t indexOf(const cPath& dir) const {
    std::size_t i = 0;
    while (i < mDirs.size() && mDirs[i] != dir) ++i;
    return i;
  }

  bool matches(const cPath& path) const {
    cFileAttributes a;
    return mFs.impl().attributes(path, a) && !a.isDirectory();
  }

  cFs mFs;
  std::vector<cPath> mDirs;
};

cSearchPaths::cSearchPaths() : mpImpl(new cListImpl(cFs::system())) {}

cSearchPaths::cSearchPaths(const cFs& fs) : mpImpl(new cListImpl(fs)) {}

cSearchPaths::cSearchPaths(const cSearchPaths& other) : mpImpl(new cListImpl(*other.mpImpl)) {}

cSearchPaths& cSearchPaths::operator=(const cSearchPaths& other) {
  if (this != &other) {
    cListImpl* copy = new cListImpl(*other.mpImpl);
    delete mpImpl;
    mpImpl = copy;
  }
  return *this;
}

cSearchPaths::~cSearchPaths() { delete mpImpl; }

void cSearchPaths::append(const cPath& dir) {
  if (mpImpl->indexOf(dir) == mpImpl->mDirs.size()) mpImpl->mDirs.push_back(dir);
}

void cSearchPaths::prepend(const cPath& dir) {
  remove(dir);
  mpImpl->mDirs.insert(mpImpl->mDirs.begin(), dir);
}

void cSearchPaths::appendList(const qucs::cString& list) { appendList(list, qpi::cNativeFsInfo::listSeparator()); }

void cSearchPaths::appendList(const qucs::cString& list, unsigned int separator) {
  const unsigned int n = list.size();
  for (unsigned int i = 0; i <= n;) {
    unsigned int end = i;
    while (end < n && list[end] != separator) ++end;
    if (end > i) {
      qucs::cString dir;
      dir.setData(list.data() + i, end - i);
      append(cPath(dir));
    }
    i = end + 1;
  }
}

bool cSearchPaths::remove(const cPath& dir) {
  const std::size_t i = mpImpl->indexOf(dir);
  if (i == mpImpl->mDirs.size()) return false;
  mpImpl->mDirs.erase(mpImpl->mDirs.begin() + static_cast<long>(i));
  return true;
}

void cSearchPaths::clear() { mpImpl->mDirs.clear(); }

unsigned int cSearchPaths::count() const { return static_cast<unsigned int>(mpImpl->mDirs.size()); }

const cPath& cSearchPaths::at(unsigned int index) const {
  qstd::arrayops::checkIndex("cSearchPaths", "at", index, count());
  return mpImpl->mDirs[index];
}

bool cSearchPaths::contains(const cPath& dir) const { return mpImpl->indexOf(dir) < mpImpl->mDirs.size(); }

cPath cSearchPaths::find(const cPath& name) const {
  cPath found = tryFind(name);
  if (found.isEmpty()) cIOExceptions::throwError(cIOException::NotFound, "find", name);
  return found;
}

cPath cSearchPaths::tryFind(const cPath& name) const {
  if (name.isEmpty()) return cPath();
  if (name.isAbsolute()) return mpImpl->matches(name) ? name : cPath();
  for (const cPath& dir : mpImpl->mDirs) {
    cPath candidate = dir / name;
    if (mpImpl->matches(candidate)) return candidate;
  }
  return cPath();
}

void cSearchPaths::findAll(const cPath& name, qstd::tVector<cPath>& out) const {
  qstd::tVector<cPath> found;
  if (name.isAbsolute()) {
    if (mpImpl->matches(name)) found.append(name);
  } else if (!name.isEmpty()) {
    for (const cPath& dir : mpImpl->mDirs) {
      cPath candidate = dir / name;
      if (mpImpl->matches(candidate)) found.append(candidate);
    }
  }
  out.swap(found);
}

}  // namespace qio
