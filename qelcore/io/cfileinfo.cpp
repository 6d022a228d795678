#include "qelcore/io/cfileinfo.h"

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

bool endsWith(const qucs::cString& s, const qucs::cString& end) {
  const unsigned int n = s.size(), m = end.size();
  if (m > n) return false;
  for (unsigned int i = 0; i < m; ++i)
    if (s[n - m + i] != end[i]) return false;
  return true;
}

bool beginsWith(const qucs::cString& s, const qucs::cString& start) {
  if (start.size() > s.size()) return false;
  for (unsigned int i = 0; i < start.size(); ++i)
    if (s[i] != start[i]) return false;
  return true;
}

}  // namespace

cFileInfo::cFileInfo() : mFs(cFs::cNone()), mbRead(false) {}

cFileInfo::cFileInfo(const cPath& path) : mFs(cFs::cNone()), mPath(path), mbRead(false) {}

cFileInfo::cFileInfo(const cFs& fs, const cPath& path) : mFs(fs), mPath(path), mbRead(false) {}

cFileInfo::cFileInfo(const cFs& fs, const cPath& path, const cFileAttributes& attributes)
    : mFs(fs), mPath(path), mAttributes(attributes), mbRead(true) {}

const cFs& cFileInfo::fs() const {
  if (!mFs.mpImpl) mFs = cFs::system();
  return mFs;
}

void cFileInfo::setPath(const cPath& path) {
  mPath = path;
  mbRead = false;
}

void cFileInfo::refresh() {
  mbRead = false;
  attributes();
}

const cFileAttributes& cFileInfo::attributes() const {
  if (!mbRead) {
    if (mPath.isEmpty())
      mAttributes = cFileAttributes();
    else
      fs().impl().attributes(mPath, mAttributes);
    mbRead = true;
  }
  return mAttributes;
}

void cFileInfo::setFileName(const qucs::cString& name) { setPath(mPath.withFileName(name)); }

void cFileInfo::setFileNamePrefix(const qucs::cString& prefix) {
  const qucs::cString name = mPath.fileName();
  if (!beginsWith(name, prefix)) setFileName(prefix + name);
}

void cFileInfo::setFileNameSuffix(const qucs::cString& suffix) {
  const qucs::cString base = mPath.baseName();
  if (endsWith(base, suffix)) return;
  setFileName(base + suffix + mPath.extension());
}

void cFileInfo::setFileNameExtension(const qucs::cString& extension) { setPath(mPath.withExtension(extension)); }

}  // namespace qio
