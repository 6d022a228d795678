#include "qelcore/io/cdiriterator.h"

#include <vector>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

class cDirIterator::cIteratorImpl {
public:
  struct cLevel {
    cPath dir;
    cAbstractDirImpl* listing;
  };

  cIteratorImpl(const cFs& fs, unsigned int flags) : mFs(fs), miFlags(flags), mbHaveAttributes(false) {}
  ~cIteratorImpl() {
    for (cLevel& l : mLevels) delete l.listing;
  }

  void push(const cPath& dir) {
    qstd::tAutoPtr<cAbstractDirImpl> listing = mFs.impl().openDir(dir);
    mLevels.push_back(cLevel{dir, listing.get()});
    listing.release();
  }

  void pop() {
    delete mLevels.back().listing;
    mLevels.pop_back();
  }

  cFs mFs;
  unsigned int miFlags;
  std::vector<cLevel> mLevels;
  qucs::cString mName;
  cFileAttributes::Type meType = cFileAttributes::Missing;
  cFileAttributes mAttributes;
  bool mbHaveAttributes;
  bool mbDescend = false;
};

cDirIterator::cDirIterator(const cPath& dir, unsigned int flags) : cDirIterator(cFs::system(), dir, flags) {}

cDirIterator::cDirIterator(const cFs& fs, const cPath& dir, unsigned int flags) : mpImpl(new cIteratorImpl(fs, flags)) {
  try {
    mpImpl->push(dir);
  } catch (...) {
    delete mpImpl;
    throw;
  }
}

cDirIterator::~cDirIterator() { delete mpImpl; }

bool cDirIterator::next() {
  cIteratorImpl& d = *mpImpl;
  if (d.mbDescend) {
    d.mbDescend = false;
    d.push(path());
  }
  while (!d.mLevels.empty()) {
    d.mbHaveAttributes = false;
    if (d.mLevels.back().listing->next(d.mName, d.meType)) {
      // A listed directory is no link; one found through attributes() may be.
      if (d.miFlags & Recursive)
        d.mbDescend = type() == cFileAttributes::Directory && !(d.mbHaveAttributes && d.mAttributes.isSymLink());
      return true;
    }
    d.pop();
  }
  return false;
}

const qucs::cString& cDirIterator::name() const { return mpImpl->mName; }

cPath cDirIterator::path() const {
  QEL_ASSERT(!mpImpl->mLevels.empty(), "io/cdiriterator");
  const cPath& dir = mpImpl->mLevels.back().dir;
  return dir / cPath(mpImpl->mName, dir.style());
}

cFileAttributes::Type cDirIterator::type() {
  if (mpImpl->meType == cFileAttributes::Missing) mpImpl->meType = attributes().type();
  return mpImpl->meType;
}

const cFileAttributes& cDirIterator::attributes() {
  cIteratorImpl& d = *mpImpl;
  if (!d.mbHaveAttributes) {
    QEL_ASSERT(!d.mLevels.empty(), "io/cdiriterator");
    d.mLevels.back().listing->attributes(d.mAttributes);
    d.mbHaveAttributes = true;
  }
  return d.mAttributes;
}

unsigned int cDirIterator::depth() const {
  return mpImpl->mLevels.empty() ? 0 : static_cast<unsigned int>(mpImpl->mLevels.size() - 1);
}

}  // namespace qio
