#include "qelcore/io/cmemoryfs.h"

#include <atomic>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cfile.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/std/ctime.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

typedef std::vector<qucs::cString> tNames;

unsigned long long now() { return qstd::cTime().get(); }

// Bytes of file content held, shared by the nodes of one file system.
struct cUsage {
  explicit cUsage(unsigned long long capacity) : miCapacity(capacity), miUsed(0) {}
  const unsigned long long miCapacity;
  std::atomic<unsigned long long> miUsed;
};

struct cNode {
  cNode(cFileAttributes::Type type, unsigned int permissions, const std::shared_ptr<cUsage>& usage)
      : meType(type),
        miPermissions(permissions),
        mullModified(now()),
        mullAccessed(mullModified),
        mullCreated(mullModified),
        mpUsage(usage) {}
  // A node lives as long as the tree or an open file holds it; its bytes
  // count until then.
  ~cNode() { mpUsage->miUsed -= mData.size(); }

  cFileAttributes::Type meType;
  unsigned int miPermissions;
  unsigned long long mullModified, mullAccessed, mullCreated;
  std::vector<char> mData;
  std::map<qucs::cString, std::shared_ptr<cNode>> mChildren;
  std::shared_ptr<cUsage> mpUsage;
};

struct cTree {
  explicit cTree(unsigned long long capacity)
      : mpUsage(std::make_shared<cUsage>(capacity)),
        mpRoot(std::make_shared<cNode>(cFileAttributes::Directory, 0755u, mpUsage)) {}
  std::mutex mMutex;
  std::shared_ptr<cUsage> mpUsage;
  std::shared_ptr<cNode> mpRoot;
};

void fill(const cNode& node, bool hidden, cFileAttributes& out) {
  out = cFileAttributes();
  out.setType(node.meType);
  out.setSize(node.meType == cFileAttributes::File ? node.mData.size() : 0);
  out.setPermissions(node.miPermissions);
  out.setModificationTime(qstd::cTime(node.mullModified));
  out.setAccessTime(qstd::cTime(node.mullAccessed));
  out.setCreationTime(qstd::cTime(node.mullCreated));
  out.setHidden(hidden);
}

bool hiddenName(const qucs::cString& name) { return name.size() > 0 && name[0] == '.'; }

// The components of a path in this file system: relative paths start at
// "/", ".." stops there, drive and share names are not found.
void split(const cPath& path, const char* operation, tNames& out) {
  if (path.hasRootName()) cIOExceptions::throwError(cIOException::NotFound, operation, path);
  const cPath p = (cPath("/", path.style()) / path).normalised();
  const qucs::cString& s = p.toString();
  const unsigned int* c = s.data(true);
  const unsigned int n = s.size();
  out.clear();
  for (unsigned int i = 1; i < n;) {
    unsigned int end = i;
    while (end < n && c[end] != '/') ++end;
    out.push_back(qucs::cString());
    out.back().setData(c + i, end - i);
    i = end + 1;
  }
}

// The node at the first `count` names, or null with the reason in `why`.
cNode* walk(cTree& tree, const tNames& names, std::size_t count, cIOException::Kind& why) {
  cNode* node = tree.mpRoot.get();
  for (std::size_t i = 0; i < count; ++i) {
    if (node->meType != cFileAttributes::Directory) {
      why = cIOException::NotADirectory;
      return nullptr;
    }
    auto it = node->mChildren.find(names[i]);
    if (it == node->mChildren.end()) {
      why = cIOException::NotFound;
      return nullptr;
    }
    node = it->second.get();
  }
  return node;
}

// The directory that holds the last name of `names`.
cNode& parentOf(cTree& tree, const tNames& names, const char* operation, const cPath& path) {
  if (names.empty()) cIOExceptions::throwError(cIOException::PermissionDenied, operation, path);
  cIOException::Kind why = cIOException::NotFound;
  cNode* parent = walk(tree, names, names.size() - 1, why);
  if (!parent) cIOExceptions::throwError(why, operation, path);
  if (parent->meType != cFileAttributes::Directory)
    cIOExceptions::throwError(cIOException::NotADirectory, operation, path);
  return *parent;
}

// Grows or shrinks a file's content within the capacity (all or nothing).
void resizeData(cNode& node, unsigned long long size, const char* operation, const cPath& path) {
  const unsigned long long old = node.mData.size();
  if (size > old) {
    cUsage& usage = *node.mpUsage;
    const unsigned long long grow = size - old;
    const unsigned long long used = usage.miUsed.load();
    if (grow > usage.miCapacity || used > usage.miCapacity - grow ||
        size > static_cast<unsigned long long>(node.mData.max_size()))
      cIOExceptions::throwError(cIOException::NoSpace, operation, path);
    try {
      node.mData.resize(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
      cIOExceptions::throwError(cIOException::NoSpace, operation, path);
    }
    usage.miUsed += grow;
  } else if (size < old) {
    node.mData.resize(static_cast<std::size_t>(size));
    node.mpUsage->miUsed -= old - size;
  }
}

class cMemoryFileImpl : public cAbstractFileImpl {
public:
  cMemoryFileImpl(const cPath& path, const std::shared_ptr<cTree>& tree, const std::shared_ptr<cNode>& node,
                  bool append, const tNames* atomicTarget)
      : cAbstractFileImpl(path),
        mpTree(tree),
        mpNode(node),
        mullPos(0),
        mbAppend(append),
        mbAtomic(atomicTarget != nullptr) {
    if (atomicTarget) mTarget = *atomicTarget;
  }

  unsigned int read(char* p, unsigned int n) override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    const unsigned long long size = mpNode->mData.size();
    if (mullPos >= size) return 0;
    const unsigned int take = size - mullPos < n ? static_cast<unsigned int>(size - mullPos) : n;
    if (take) std::memcpy(p, mpNode->mData.data() + mullPos, take);
    mullPos += take;
    mpNode->mullAccessed = now();
    return take;
  }

  void write(const char* p, unsigned int n) override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    if (mbAppend) mullPos = mpNode->mData.size();
    if (n == 0) return;
    const unsigned long long end = mullPos + n;
    if (end < mullPos) cIOExceptions::throwError(cIOException::NoSpace, "write", path());
    if (end > mpNode->mData.size()) resizeData(*mpNode, end, "write", path());
    std::memcpy(mpNode->mData.data() + mullPos, p, n);
    mullPos = end;
    mpNode->mullModified = now();
  }

  void seek(unsigned long long pos) override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    mullPos = pos;
  }

  unsigned long long pos() override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    return mullPos;
  }

  unsigned long long size() override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    return mpNode->mData.size();
  }

  void resize(unsigned long long size) override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    resizeData(*mpNode, size, "resize", path());
    mpNode->mullModified = now();
  }

  void sync() override {}

  void close() override {
    if (!mbAtomic) return;
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    cNode& parent = parentOf(*mpTree, mTarget, "save", path());
    auto it = parent.mChildren.find(mTarget.back());
    if (it != parent.mChildren.end() && it->second->meType == cFileAttributes::Directory)
      cIOExceptions::throwError(cIOException::IsADirectory, "save", path());
    parent.mChildren[mTarget.back()] = mpNode;
    parent.mullModified = now();
  }

private:
  std::shared_ptr<cTree> mpTree;
  std::shared_ptr<cNode> mpNode;
  unsigned long long mullPos;
  bool mbAppend;
  bool mbAtomic;
  tNames mTarget;
};

class cMemoryDirImpl : public cAbstractDirImpl {
public:
  typedef std::vector<std::pair<qucs::cString, std::shared_ptr<cNode>>> tEntries;

  cMemoryDirImpl(const std::shared_ptr<cTree>& tree, tEntries& entries) : mpTree(tree), miNext(0) {
    mEntries.swap(entries);
  }

  bool next(qucs::cString& name, cFileAttributes::Type& type) override {
    if (miNext >= mEntries.size()) return false;
    name = mEntries[miNext].first;
    type = mEntries[miNext].second->meType;
    ++miNext;
    return true;
  }

  void attributes(cFileAttributes& out) override {
    if (miNext == 0 || miNext > mEntries.size()) {
      out = cFileAttributes();
      return;
    }
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    const auto& entry = mEntries[miNext - 1];
    fill(*entry.second, hiddenName(entry.first), out);
  }

private:
  std::shared_ptr<cTree> mpTree;
  tEntries mEntries;
  std::size_t miNext;
};

}  // namespace

class cMemoryFsImpl : public cAbstractFsImpl {
public:
  explicit cMemoryFsImpl(unsigned long long capacity) : mpTree(std::make_shared<cTree>(capacity)) {}

  bool attributes(const cPath& path, cFileAttributes& out) override {
    tNames names;
    split(path, "stat", names);
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    cIOException::Kind why;
    const cNode* node = walk(*mpTree, names, names.size(), why);
    if (!node) {
      out = cFileAttributes();
      return false;
    }
    fill(*node, !names.empty() && hiddenName(names.back()), out);
    return true;
  }

  qstd::tAutoPtr<cAbstractFileImpl> open(const cPath& path, unsigned int mode) override {
    tNames names;
    split(path, "open", names);
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    cNode& parent = parentOf(*mpTree, names, "open", path);
    auto it = parent.mChildren.find(names.back());
    const bool exists = it != parent.mChildren.end();
    if (exists && it->second->meType == cFileAttributes::Directory)
      cIOExceptions::throwError(cIOException::IsADirectory, "open", path);
    if (mode & cFile::Atomic) {
      // A detached file that close() puts in place.
      std::shared_ptr<cNode> node =
          std::make_shared<cNode>(cFileAttributes::File, exists ? it->second->miPermissions : 0644u, mpTree->mpUsage);
      return qstd::tAutoPtr<cAbstractFileImpl>(new cMemoryFileImpl(path, mpTree, node, false, &names));
    }
    if (exists && (mode & cFile::Exclusive)) cIOExceptions::throwError(cIOException::AlreadyExists, "open", path);
    if (!exists && !(mode & cFile::Create)) cIOExceptions::throwError(cIOException::NotFound, "open", path);
    std::shared_ptr<cNode> node;
    if (exists) {
      node = it->second;
      const bool writes = (mode & (cFile::Write | cFile::Append)) != 0;
      if (((mode & cFile::Read) && !(node->miPermissions & cFileAttributes::OwnerRead)) ||
          (writes && !(node->miPermissions & cFileAttributes::OwnerWrite)))
        cIOExceptions::throwError(cIOException::PermissionDenied, "open", path);
      if (mode & cFile::Truncate) {
        resizeData(*node, 0, "open", path);
        node->mullModified = now();
      }
    } else {
      node = std::make_shared<cNode>(cFileAttributes::File, 0644u, mpTree->mpUsage);
      parent.mChildren[names.back()] = node;
      parent.mullModified = node->mullModified;
    }
    return qstd::tAutoPtr<cAbstractFileImpl>(
        new cMemoryFileImpl(path, mpTree, node, (mode & cFile::Append) != 0, nullptr));
  }

  qstd::tAutoPtr<cAbstractDirImpl> openDir(const cPath& path) override {
    tNames names;
    split(path, "list", names);
    cMemoryDirImpl::tEntries entries;
    {
      std::lock_guard<std::mutex> lock(mpTree->mMutex);
      cIOException::Kind why = cIOException::NotFound;
      cNode* node = walk(*mpTree, names, names.size(), why);
      if (!node) cIOExceptions::throwError(why, "list", path);
      if (node->meType != cFileAttributes::Directory)
        cIOExceptions::throwError(cIOException::NotADirectory, "list", path);
      // A snapshot: later changes do not disturb the listing.
      entries.reserve(node->mChildren.size());
      for (const auto& child : node->mChildren) entries.push_back(child);
    }
    return qstd::tAutoPtr<cAbstractDirImpl>(new cMemoryDirImpl(mpTree, entries));
  }

  void createDir(const cPath& path) override {
    tNames names;
    split(path, "createDir", names);
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    if (names.empty()) cIOExceptions::throwError(cIOException::AlreadyExists, "createDir", path);
    cNode& parent = parentOf(*mpTree, names, "createDir", path);
    if (parent.mChildren.count(names.back())) cIOExceptions::throwError(cIOException::AlreadyExists, "createDir", path);
    std::shared_ptr<cNode> node = std::make_shared<cNode>(cFileAttributes::Directory, 0755u, mpTree->mpUsage);
    parent.mChildren[names.back()] = node;
    parent.mullModified = node->mullModified;
  }

  void remove(const cPath& path) override {
    tNames names;
    split(path, "remove", names);
    std::shared_ptr<cNode> removed;  // dies after the lock is released
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    cNode& parent = parentOf(*mpTree, names, "remove", path);
    auto it = parent.mChildren.find(names.back());
    if (it == parent.mChildren.end()) cIOExceptions::throwError(cIOException::NotFound, "remove", path);
    if (!it->second->mChildren.empty()) cIOExceptions::throwError(cIOException::DirectoryNotEmpty, "remove", path);
    removed = it->second;
    parent.mChildren.erase(it);
    parent.mullModified = now();
  }

  void rename(const cPath& from, const cPath& to, bool replace) override {
    tNames a, b;
    split(from, "rename", a);
    split(to, "rename", b);
    std::shared_ptr<cNode> replaced;
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    cNode& source = parentOf(*mpTree, a, "rename", from);
    auto it = source.mChildren.find(a.back());
    if (it == source.mChildren.end()) fail(cIOException::NotFound, from, to);
    if (a == b) return;
    // A directory cannot move below itself.
    if (b.size() > a.size() && std::equal(a.begin(), a.end(), b.begin())) fail(cIOException::InvalidName, from, to);
    cIOException::Kind why = cIOException::NotFound;
    cNode* target = walk(*mpTree, b, b.size() - 1, why);
    if (!target) fail(why, from, to);
    if (target->meType != cFileAttributes::Directory) fail(cIOException::NotADirectory, from, to);
    auto existing = target->mChildren.find(b.back());
    if (existing != target->mChildren.end()) {
      if (!replace) fail(cIOException::AlreadyExists, from, to);
      const bool dirFrom = it->second->meType == cFileAttributes::Directory;
      const bool dirTo = existing->second->meType == cFileAttributes::Directory;
      if (dirFrom && !dirTo) fail(cIOException::NotADirectory, from, to);
      if (!dirFrom && dirTo) fail(cIOException::IsADirectory, from, to);
      if (dirTo && !existing->second->mChildren.empty()) fail(cIOException::DirectoryNotEmpty, from, to);
      replaced = existing->second;
    }
    std::shared_ptr<cNode> node = it->second;
    source.mChildren.erase(it);
    target->mChildren[b.back()] = node;
    source.mullModified = target->mullModified = now();
  }

  void setPermissions(const cPath& path, unsigned int permissions) override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    nodeAt(path, "setPermissions").miPermissions = permissions & 07777u;
  }

  void setModificationTime(const cPath& path, const qstd::cTime& time) override {
    std::lock_guard<std::mutex> lock(mpTree->mMutex);
    nodeAt(path, "setModificationTime").mullModified = time.get();
  }

  unsigned long long usedBytes() const { return mpTree->mpUsage->miUsed.load(); }
  unsigned long long capacity() const { return mpTree->mpUsage->miCapacity; }

private:
  // Called with the lock held.
  cNode& nodeAt(const cPath& path, const char* operation) {
    tNames names;
    split(path, operation, names);
    cIOException::Kind why = cIOException::NotFound;
    cNode* node = walk(*mpTree, names, names.size(), why);
    if (!node) cIOExceptions::throwError(why, operation, path);
    return *node;
  }

  [[noreturn]] static void fail(cIOException::Kind kind, const cPath& from, const cPath& to) {
    cIOExceptions::throwError(kind, "rename", from, to);
  }

  std::shared_ptr<cTree> mpTree;
};

cMemoryFs::cMemoryFs() : cFs(qstd::tAutoPtr<cAbstractFsImpl>(new cMemoryFsImpl(~0ull))) {}

cMemoryFs::cMemoryFs(unsigned long long capacity) : cFs(qstd::tAutoPtr<cAbstractFsImpl>(new cMemoryFsImpl(capacity))) {}

unsigned long long cMemoryFs::usedBytes() const { return static_cast<cMemoryFsImpl&>(impl()).usedBytes(); }

unsigned long long cMemoryFs::capacity() const { return static_cast<cMemoryFsImpl&>(impl()).capacity(); }

}  // namespace qio
