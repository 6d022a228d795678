#include "qelcore/io/cdir.h"

#include <algorithm>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cdiriterator.h"
#include "qelcore/io/cfileinfo.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

bool byName(const cFileInfo& a, const cFileInfo& b) { return a.path() < b.path(); }
// Names hold no separator: their order is the paths' order.
bool byNameText(const qucs::cString& a, const qucs::cString& b) { return a < b; }

}  // namespace

cDir::cDir(const cPath& path) : mFs(cFs::system()), mPath(path) {}

cDir::cDir(const cFs& fs, const cPath& path) : mFs(fs), mPath(path) {}

bool cDir::exists() const { return mFs.isDirectory(mPath); }

bool cDir::isEmpty() const {
  cDirIterator it(mFs, mPath);
  return !it.next();
}

void cDir::entries(qstd::tVector<cFileInfo>& out) const {
  qstd::tVector<cFileInfo> list;
  for (cDirIterator it(mFs, mPath); it.next();) list.append(cFileInfo(mFs, it.path(), it.attributes()));
  std::sort(list.begin(), list.end(), byName);
  out.swap(list);
}

void cDir::entryNames(qstd::tVector<qucs::cString>& out) const {
  qstd::tVector<qucs::cString> list;
  for (cDirIterator it(mFs, mPath); it.next();) list.append(it.name());
  std::sort(list.begin(), list.end(), byNameText);
  out.swap(list);
}

void cDir::create() const { mFs.createDir(mPath); }

bool cDir::createAll() const { return mFs.createDirs(mPath); }

void cDir::remove() const { mFs.remove(mPath); }

unsigned long long cDir::removeAll() const { return mFs.removeAll(mPath); }

void cDir::copyTo(const cPath& target, bool replace) const { mFs.copyAll(mPath, target, replace); }

void cDir::rename(const cPath& to, bool replace) {
  mFs.rename(mPath, to, replace);
  mPath = to;
}

}  // namespace qio
