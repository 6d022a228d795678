#include "qelcore/io/cproxyfs.h"

#include <mutex>
#include <vector>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

struct cMount {
  cPath at;
  cFs fs;
  // Mounted at "/": takes every path no other mount point claims, unchanged.
  bool catchAll;
};

bool isCatchAll(const cPath& at) { return at.hasRootDirectory() && !at.hasRootName() && at.componentCount() == 0; }

// "/" followed by what `path` has below `at`.
cPath below(const cPath& path, const cPath& at) {
  const qucs::cString& s = path.toString();
  unsigned int from = at.toString().size();
  if (from < s.size() && s[from] == '/') ++from;
  qucs::cString rest("/");
  if (from < s.size()) rest.append(s.data() + from, s.size() - from);
  return cPath(rest, path.style());
}

// The exception again, naming the paths as the caller gave them.
[[noreturn]] void rethrowOuter(const cIOException& e, const cPath& innerA, const cPath& outerA, const cPath* innerB,
                               const cPath* outerB) {
  auto outer = [&](const qucs::cString& p) -> qucs::cString {
    if (p == innerA.toString()) return outerA.toString();
    if (innerB && p == innerB->toString()) return outerB->toString();
    return p;
  };
  if (e.otherPath().size())
    throw cIOException(e.kind(), e.operation(), outer(e.path()), outer(e.otherPath()), e.osErrorCode(), e.errorText(),
                       e.sourceFileName(), e.sourceFileLine());
  throw cIOException(e.kind(), e.operation(), outer(e.path()), e.osErrorCode(), e.errorText(), e.sourceFileName(),
                     e.sourceFileLine());
}

}  // namespace

class cProxyFsImpl : public cAbstractFsImpl {
public:
  // A path on its way to a mounted file system.
  struct cRoute {
    cPath outer;  // as given
    cPath inner;  // in the mounted file system
    cFs fs;
  };

  cRoute route(const cPath& path, const char* operation) const {
    std::vector<cRoute> found;
    if (!tryRoute(path, found)) cIOExceptions::throwError(cIOException::NotFound, operation, path);
    return found[0];
  }

  // Appends the route to `found`; false when no file system takes the path.
  bool tryRoute(const cPath& path, std::vector<cRoute>& found) const {
    const cPath p = path.normalised();
    std::lock_guard<std::mutex> lock(mMutex);
    const cMount* best = nullptr;
    for (const cMount& m : mMounts) {
      if (m.catchAll) {
        if (!best) best = &m;
      } else if (p.beginsWith(m.at) &&
                 (!best || best->catchAll || m.at.toString().size() > best->at.toString().size())) {
        best = &m;
      }
    }
    if (!best) return false;
    found.push_back(cRoute{path, best->catchAll ? p : below(p, best->at), best->fs});
    return true;
  }

  // Names of the mount points directly below `dir` (absolute, normalised).
  void mountsBelow(const cPath& dir, std::vector<qucs::cString>& names) const {
    const unsigned int k = dir.toString().size();
    std::lock_guard<std::mutex> lock(mMutex);
    for (const cMount& m : mMounts) {
      if (m.catchAll || m.at == dir || !m.at.beginsWith(dir)) continue;
      const qucs::cString& s = m.at.toString();
      unsigned int from = k;
      if (from < s.size() && s[from] == '/') ++from;
      unsigned int end = from;
      while (end < s.size() && s[end] != '/') ++end;
      qucs::cString name;
      name.setData(s.data() + from, end - from);
      bool known = false;
      for (const qucs::cString& n : names) known = known || n == name;
      if (!known) names.push_back(name);
    }
  }

  bool leadsToMount(const cPath& dir) const {
    std::vector<qucs::cString> names;
    mountsBelow(dir, names);
    return !names.empty();
  }

  template <typename F>
  static auto forward(const cRoute& r, F f) -> decltype(f()) {
    try {
      return f();
    } catch (const cIOException& e) {
      rethrowOuter(e, r.inner, r.outer, nullptr, nullptr);
    }
  }

  bool attributes(const cPath& path, cFileAttributes& out) override {
    std::vector<cRoute> found;
    out = cFileAttributes();
    if (tryRoute(path, found)) {
      const cRoute& r = found[0];
      if (forward(r, [&] { return r.fs.impl().attributes(r.inner, out); })) return true;
    }
    if (out.isSymLink() || !leadsToMount(path.normalised())) return false;
    out = cFileAttributes();
    out.setType(cFileAttributes::Directory);
    out.setPermissions(0555);
    return true;
  }

  qstd::tAutoPtr<cAbstractFileImpl> open(const cPath& path, unsigned int mode) override {
    const cRoute r = route(path, "open");
    return forward(r, [&] { return r.fs.impl().open(r.inner, mode); });
  }

  qstd::tAutoPtr<cAbstractDirImpl> openDir(const cPath& path) override;

  void createDir(const cPath& path) override {
    const cRoute r = route(path, "createDir");
    forward(r, [&] { r.fs.impl().createDir(r.inner); });
  }

  void remove(const cPath& path) override {
    const cRoute r = route(path, "remove");
    forward(r, [&] { r.fs.impl().remove(r.inner); });
  }

  void rename(const cPath& from, const cPath& to, bool replace) override {
    const cRoute a = route(from, "rename");
    const cRoute b = route(to, "rename");
    if (a.fs != b.fs) cIOExceptions::throwError(cIOException::CrossDevice, "rename", from, to);
    try {
      a.fs.impl().rename(a.inner, b.inner, replace);
    } catch (const cIOException& e) {
      rethrowOuter(e, a.inner, a.outer, &b.inner, &b.outer);
    }
  }

  void copyFile(const cPath& from, const cPath& to, bool replace) override {
    const cRoute a = route(from, "copy");
    const cRoute b = route(to, "copy");
    // Across file systems the bytes go through this proxy.
    if (a.fs != b.fs) return cAbstractFsImpl::copyFile(from, to, replace);
    try {
      a.fs.impl().copyFile(a.inner, b.inner, replace);
    } catch (const cIOException& e) {
      rethrowOuter(e, a.inner, a.outer, &b.inner, &b.outer);
    }
  }

  void setPermissions(const cPath& path, unsigned int permissions) override {
    const cRoute r = route(path, "setPermissions");
    forward(r, [&] { r.fs.impl().setPermissions(r.inner, permissions); });
  }

  void setModificationTime(const cPath& path, const qstd::cTime& time) override {
    const cRoute r = route(path, "setModificationTime");
    forward(r, [&] { r.fs.impl().setModificationTime(r.inner, time); });
  }

  cPath currentDirectory() override {
    std::vector<cFs> root = catchAll();
    return root.empty() ? cAbstractFsImpl::currentDirectory() : root[0].impl().currentDirectory();
  }

  cPath tempDirectory() override {
    std::vector<cFs> root = catchAll();
    return root.empty() ? cAbstractFsImpl::tempDirectory() : root[0].impl().tempDirectory();
  }

  qstd::tAutoPtr<cAbstractWatchImpl> createWatch(const cPath& path) override {
    const cRoute r = route(path, "watch");
    return forward(r, [&] { return r.fs.impl().createWatch(r.inner); });
  }

  void mount(const cPath& at, const cFs& fs) {
    const cPath point = at.normalised();
    if (!point.hasRootDirectory())
      cIOExceptions::throwError(cIOException::InvalidName, "mount", at, "A mount point must be absolute");
    if (contains(&fs.impl(), this)) cIOExceptions::throwMountCycle(at);
    std::lock_guard<std::mutex> lock(mMutex);
    for (const cMount& m : mMounts)
      if (m.at == point) cIOExceptions::throwError(cIOException::AlreadyExists, "mount", at);
    mMounts.push_back(cMount{point, fs, isCatchAll(point)});
  }

  void unmount(const cPath& at) {
    const cPath point = at.normalised();
    std::vector<cFs> released;  // dies after the lock is released
    {
      std::lock_guard<std::mutex> lock(mMutex);
      for (std::size_t i = 0; i < mMounts.size(); ++i) {
        if (mMounts[i].at != point) continue;
        released.push_back(mMounts[i].fs);
        mMounts.erase(mMounts.begin() + static_cast<long>(i));
        return;
      }
    }
    cIOExceptions::throwError(cIOException::NotFound, "unmount", at);
  }

  bool isMountPoint(const cPath& at) const {
    const cPath point = at.normalised();
    std::lock_guard<std::mutex> lock(mMutex);
    for (const cMount& m : mMounts)
      if (m.at == point) return true;
    return false;
  }

private:
  // The file system mounted at "/", if there is one.
  std::vector<cFs> catchAll() const {
    std::vector<cFs> root;
    std::lock_guard<std::mutex> lock(mMutex);
    for (const cMount& m : mMounts)
      if (m.catchAll) root.push_back(m.fs);
    return root;
  }

  // Whether `fs` is `proxy` or has it mounted somewhere below.
  static bool contains(cAbstractFsImpl* fs, const cProxyFsImpl* proxy) {
    if (fs == proxy) return true;
    const cProxyFsImpl* inner = dynamic_cast<const cProxyFsImpl*>(fs);
    if (!inner) return false;
    std::vector<cFs> mounted;
    {
      std::lock_guard<std::mutex> lock(inner->mMutex);
      for (const cMount& m : inner->mMounts) mounted.push_back(m.fs);
    }
    for (const cFs& m : mounted)
      if (contains(&m.impl(), proxy)) return true;
    return false;
  }

  mutable std::mutex mMutex;
  std::vector<cMount> mMounts;
};

namespace {

// The listing of a proxy directory: the mounted file system's entries, then
// the mount points below the directory that it does not have.
class cProxyDirImpl : public cAbstractDirImpl {
public:
  cProxyDirImpl(const cFs& proxy, const cPath& dir, qstd::tAutoPtr<cAbstractDirImpl> inner,
                std::vector<qucs::cString>& mounts)
      : mProxy(proxy), mDir(dir), mpInner(inner), miMount(0), mbCurrentIsMount(false) {
    mMounts.swap(mounts);
    mSeen.assign(mMounts.size(), false);
  }

  bool next(qucs::cString& name, cFileAttributes::Type& type) override {
    if (mpInner && mpInner->next(name, type)) {
      mbCurrentIsMount = false;
      for (std::size_t i = 0; i < mMounts.size(); ++i) {
        if (mSeen[i] || !(mMounts[i] == name)) continue;
        mSeen[i] = true;
        mbCurrentIsMount = true;
        type = cFileAttributes::Directory;
      }
      if (mbCurrentIsMount) mCurrent = name;
      return true;
    }
    mpInner.reset();
    while (miMount < mMounts.size() && mSeen[miMount]) ++miMount;
    if (miMount >= mMounts.size()) return false;
    name = mCurrent = mMounts[miMount++];
    type = cFileAttributes::Directory;
    mbCurrentIsMount = true;
    return true;
  }

  void attributes(cFileAttributes& out) override {
    if (!mbCurrentIsMount && mpInner) return mpInner->attributes(out);
    if (!mProxy.tryAttributes(mDir / cPath(mCurrent, mDir.style()), out)) out = cFileAttributes();
  }

private:
  cFs mProxy;
  cPath mDir;
  qstd::tAutoPtr<cAbstractDirImpl> mpInner;
  std::vector<qucs::cString> mMounts;
  std::vector<bool> mSeen;
  std::size_t miMount;
  bool mbCurrentIsMount;
  qucs::cString mCurrent;
};

}  // namespace

qstd::tAutoPtr<cAbstractDirImpl> cProxyFsImpl::openDir(const cPath& path) {
  const cPath dir = path.normalised();
  std::vector<qucs::cString> mounts;
  if (dir.hasRootDirectory()) mountsBelow(dir, mounts);
  std::vector<cRoute> found;
  qstd::tAutoPtr<cAbstractDirImpl> inner;
  if (tryRoute(path, found)) {
    const cRoute& r = found[0];
    try {
      inner = r.fs.impl().openDir(r.inner);
    } catch (const cIOException& e) {
      // A directory that only leads to mount points lists just those.
      if (mounts.empty() || e.kind() != cIOException::NotFound) rethrowOuter(e, r.inner, r.outer, nullptr, nullptr);
    }
  } else if (mounts.empty()) {
    cIOExceptions::throwError(cIOException::NotFound, "list", path);
  }
  return qstd::tAutoPtr<cAbstractDirImpl>(new cProxyDirImpl(cFs(*this), dir, inner, mounts));
}

cProxyFs::cProxyFs() : cFs(qstd::tAutoPtr<cAbstractFsImpl>(new cProxyFsImpl)) {}

cProxyFs::cProxyFs(const cFs& fs) : cFs(fs) {
  QEL_ASSERT(dynamic_cast<cProxyFsImpl*>(&impl()) != nullptr, "io/cproxyfs");
}

cProxyFs cProxyFs::system() { return cProxyFs(cFs::system()); }

void cProxyFs::mount(const cPath& at, const cFs& fs) { static_cast<cProxyFsImpl&>(impl()).mount(at, fs); }

void cProxyFs::unmount(const cPath& at) { static_cast<cProxyFsImpl&>(impl()).unmount(at); }

bool cProxyFs::isMountPoint(const cPath& at) const { return static_cast<cProxyFsImpl&>(impl()).isMountPoint(at); }

cFs cProxyFs::resolve(const cPath& path, cPath& inner) const {
  const cProxyFsImpl::cRoute r = static_cast<cProxyFsImpl&>(impl()).route(path, "resolve");
  inner = r.inner;
  return r.fs;
}

}  // namespace qio
