#include "qelcore/io/cfs.h"

#include <vector>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cfile.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/io/cproxyfs.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

// Whether a listed entry is a directory to descend into (links are not).
bool isRealDirectory(cAbstractDirImpl& dir, cFileAttributes::Type hint) {
  if (hint == cFileAttributes::Directory) return true;
  if (hint != cFileAttributes::Missing) return false;
  cFileAttributes a;
  dir.attributes(a);
  return a.isDirectory() && !a.isSymLink();
}

}  // namespace

cFs::cFs() : mpImpl(nullptr) {
  qstd::tAutoPtr<cAbstractFsImpl> impl = qpi::cPlatform::createFsImpl(*this);
  mpImpl = impl.release();
  mpImpl->addRef();
}

cFs::cFs(qstd::tAutoPtr<cAbstractFsImpl> impl) : mpImpl(impl.release()) {
  QEL_ASSERT(mpImpl != nullptr, "io/cfs");
  mpImpl->addRef();
}

cFs::cFs(cAbstractFsImpl& shared) : mpImpl(&shared) { mpImpl->addRef(); }

cFs::cFs(const cFs& other) : mpImpl(other.mpImpl) {
  if (mpImpl) mpImpl->addRef();
}

cFs& cFs::operator=(const cFs& other) {
  cFs copy(other);
  swap(copy);
  return *this;
}

cFs::~cFs() {
  if (mpImpl && mpImpl->releaseRef()) delete mpImpl;
}

void cFs::swap(cFs& other) noexcept {
  cAbstractFsImpl* p = mpImpl;
  mpImpl = other.mpImpl;
  other.mpImpl = p;
}

cFs cFs::system() { return qpi::system().fs(); }

bool cFs::exists(const cPath& path) const {
  cFileAttributes a;
  return mpImpl->attributes(path, a);
}

bool cFs::isFile(const cPath& path) const {
  cFileAttributes a;
  return mpImpl->attributes(path, a) && a.isFile();
}

bool cFs::isDirectory(const cPath& path) const {
  cFileAttributes a;
  return mpImpl->attributes(path, a) && a.isDirectory();
}

cFileAttributes cFs::attributes(const cPath& path) const {
  cFileAttributes a;
  if (!mpImpl->attributes(path, a)) cIOExceptions::throwError(cIOException::NotFound, "stat", path);
  return a;
}

bool cFs::tryAttributes(const cPath& path, cFileAttributes& out) const { return mpImpl->attributes(path, out); }

void cFs::createDir(const cPath& path) const { mpImpl->createDir(path); }

bool cFs::createDirs(const cPath& path) const {
  const cPath target = path.normalised();
  cFileAttributes a;
  if (mpImpl->attributes(target, a)) {
    if (a.isDirectory()) return false;
    cIOExceptions::throwError(cIOException::AlreadyExists, "createDirs", target);
  }
  // The missing ones, deepest first; a root is its own parent.
  std::vector<cPath> missing(1, target);
  for (cPath up = target.parent(); !up.isEmpty() && up != missing.back(); up = up.parent()) {
    if (mpImpl->attributes(up, a)) {
      if (!a.isDirectory()) cIOExceptions::throwError(cIOException::NotADirectory, "createDirs", up);
      break;
    }
    missing.push_back(up);
  }
  for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
    try {
      mpImpl->createDir(*it);
    } catch (const cIOException& e) {
      // Someone else was faster: fine, as long as it is a directory.
      if (e.kind() != cIOException::AlreadyExists || !isDirectory(*it)) throw;
    }
  }
  return true;
}

void cFs::remove(const cPath& path) const { mpImpl->remove(path); }

unsigned long long cFs::removeAll(const cPath& path) const {
  cFileAttributes a;
  if (!mpImpl->attributes(path, a) && !a.isSymLink()) return 0;
  if (!a.isDirectory() || a.isSymLink()) {
    mpImpl->remove(path);
    return 1;
  }
  unsigned long long count = 0;
  removeTree(path, count);
  return count;
}

void cFs::removeTree(const cPath& path, unsigned long long& count) const {
  // Depth first without recursion: a deep tree must not exhaust the stack.
  struct cFrame {
    cPath dir;
    bool listed;
  };
  std::vector<cFrame> stack(1, cFrame{path, false});
  std::vector<cPath> files;
  qucs::cString name;
  while (!stack.empty()) {
    if (stack.back().listed) {
      mpImpl->remove(stack.back().dir);
      ++count;
      stack.pop_back();
      continue;
    }
    stack.back().listed = true;
    const cPath dir = stack.back().dir;
    files.clear();
    {
      // Listed in full before anything goes, so no listing sees its
      // directory change.
      qstd::tAutoPtr<cAbstractDirImpl> listing = mpImpl->openDir(dir);
      cFileAttributes::Type type;
      while (listing->next(name, type)) {
        cPath entry = dir / cPath(name, dir.style());
        if (isRealDirectory(*listing, type))
          stack.push_back(cFrame{entry, false});
        else
          files.push_back(entry);
      }
    }
    for (const cPath& f : files) {
      mpImpl->remove(f);
      ++count;
    }
  }
}

void cFs::rename(const cPath& from, const cPath& to, bool replace) const { mpImpl->rename(from, to, replace); }

void cFs::copyFile(const cPath& from, const cPath& to, bool replace) const { mpImpl->copyFile(from, to, replace); }

void cFs::copyAll(const cPath& from, const cPath& to, bool replace) const {
  const cFileAttributes a = attributes(from);
  if (!a.isDirectory()) {
    mpImpl->copyFile(from, to, replace);
    return;
  }
  if (absolute(to).beginsWith(absolute(from)))
    cIOExceptions::throwError(cIOException::InvalidName, "copy", to, "A directory cannot be copied into itself");
  createDirs(to);
  std::vector<std::pair<cPath, cPath>> stack(1, std::make_pair(from, to));
  qucs::cString name;
  while (!stack.empty()) {
    const std::pair<cPath, cPath> dirs = stack.back();
    stack.pop_back();
    std::vector<std::pair<cPath, cPath>> files, subdirs;
    {
      qstd::tAutoPtr<cAbstractDirImpl> listing = mpImpl->openDir(dirs.first);
      cFileAttributes::Type type;
      while (listing->next(name, type)) {
        const cPath source = dirs.first / cPath(name, dirs.first.style());
        const cPath target = dirs.second / cPath(name, dirs.second.style());
        if (type == cFileAttributes::Missing) {
          cFileAttributes e;
          listing->attributes(e);
          if (e.isDirectory() && e.isSymLink()) continue;
          type = e.type();
        }
        if (type == cFileAttributes::Directory)
          subdirs.push_back(std::make_pair(source, target));
        else if (type != cFileAttributes::Missing)
          files.push_back(std::make_pair(source, target));
      }
    }
    for (const auto& f : files) mpImpl->copyFile(f.first, f.second, replace);
    for (const auto& d : subdirs) {
      if (!isDirectory(d.second)) mpImpl->createDir(d.second);
      stack.push_back(d);
    }
  }
}

void cFs::setPermissions(const cPath& path, unsigned int permissions) const {
  mpImpl->setPermissions(path, permissions);
}

void cFs::setModificationTime(const cPath& path, const qstd::cTime& time) const {
  mpImpl->setModificationTime(path, time);
}

void cFs::readAll(const cPath& path, qstd::tArray<char>& out) const {
  cFile file(*this, path, cFile::Read);
  file.readAll(out);
  file.close();
}

void cFs::writeAll(const cPath& path, const char* p, unsigned int n, bool atomic) const {
  cFile file(*this, path, cFile::Overwrite | (atomic ? cFile::Atomic : 0u));
  file.write(p, n);
  file.close();
}

void cFs::writeAll(const cPath& path, const qstd::tArray<char>& bytes, bool atomic) const {
  writeAll(path, bytes.data(true), bytes.size(), atomic);
}

cPath cFs::currentDirectory() const { return mpImpl->currentDirectory(); }

cPath cFs::absolute(const cPath& path) const {
  if (path.isAbsolute()) return path.normalised();
  return path.absoluteTo(mpImpl->currentDirectory());
}

cPath cFs::tempDirectory() const { return mpImpl->tempDirectory(); }

}  // namespace qio
