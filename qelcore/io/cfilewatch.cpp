#include "qelcore/io/cfilewatch.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "qelcore/io/cabstractfsimpl.h"
#include "qelcore/io/cabstractwatchimpl.h"
#include "qelcore/io/cioexception.h"
#include "qelcore/pi/cfdaiodata.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/ucs/cstring.h"

namespace qio {

namespace {

// What a comparison looks at.
struct cState {
  cFileAttributes::Type type;
  unsigned long long size;
  unsigned long long modified;

  bool operator!=(const cState& other) const {
    return type != other.type || size != other.size || modified != other.modified;
  }
};

cState stateOf(const cFileAttributes& a) { return cState{a.type(), a.size(), a.modificationTime().get()}; }

typedef std::vector<std::pair<cFileWatch::Change, qucs::cString>> tChanges;

class cCollector : public cAbstractWatchImpl::cSink {
public:
  explicit cCollector(tChanges& changes) : mChanges(changes) {}
  void changed(cAbstractWatchImpl::Change change, const qucs::cString& name) override {
    mChanges.push_back(std::make_pair(static_cast<cFileWatch::Change>(change), name));
  }

private:
  tChanges& mChanges;
};

}  // namespace

class cFileWatch::cWatchImpl {
public:
  cWatchImpl(const cFs& fs, const cPath& path) : mFs(fs), mPath(path), mpDestroyed(nullptr) {}
  // The work may be running the watch's slot now: it is not destroyed here
  // but left to its queue, which drops a stopped single task after the pass.
  ~cWatchImpl() {
    if (!mpWork) return;
    mpWork->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>());
    mpWork->start(0, qpi::cWork::SingleTask);
    mpWork->stop();
  }

  // The state as it is now: the watched path and, for a directory, its entries.
  void snapshot(bool& exists, cState& self, std::map<qucs::cString, cState>& entries) const {
    cFileAttributes a;
    exists = mFs.impl().attributes(mPath, a);
    self = stateOf(a);
    entries.clear();
    if (!exists || !a.isDirectory()) return;
    qstd::tAutoPtr<cAbstractDirImpl> listing = mFs.impl().openDir(mPath);
    qucs::cString name;
    cFileAttributes::Type type;
    while (listing->next(name, type)) {
      listing->attributes(a);
      entries[name] = stateOf(a);
    }
  }

  // Compares with the last snapshot and takes the new one.
  void compare(tChanges& changes) {
    bool exists;
    cState self;
    std::map<qucs::cString, cState> entries;
    snapshot(exists, self, entries);
    if (exists != mbExists)
      changes.push_back(std::make_pair(exists ? Created : Removed, qucs::cString()));
    else if (exists && self.type != cFileAttributes::Directory && self != mSelf)
      changes.push_back(std::make_pair(Modified, qucs::cString()));
    if (exists) {
      for (const auto& e : entries) {
        auto was = mEntries.find(e.first);
        if (was == mEntries.end())
          changes.push_back(std::make_pair(Created, e.first));
        else if (was->second != e.second)
          changes.push_back(std::make_pair(Modified, e.first));
      }
      for (const auto& e : mEntries)
        if (!entries.count(e.first)) changes.push_back(std::make_pair(Removed, e.first));
    }
    mbExists = exists;
    mSelf = self;
    mEntries.swap(entries);
  }

  // What the system reported, told apart by what existed: a name that comes
  // back (a rename over it) was modified, one that goes twice went once.
  void settle(tChanges& changes) {
    tChanges settled;
    for (auto& c : changes) {
      const bool self = c.second.size() == 0;
      bool existed = self ? mbExists : mEntries.count(c.second) != 0;
      if (c.first == Created && existed) c.first = Modified;
      if (c.first == Modified && !existed) c.first = Created;
      if (c.first == Removed && !existed) continue;
      const bool exists = c.first != Removed;
      if (self)
        mbExists = exists;
      else if (exists)
        mEntries[c.second];
      else
        mEntries.erase(c.second);
      // Once per name and kind within one look.
      bool seen = false;
      for (const auto& s : settled) seen = seen || (s.first == c.first && s.second == c.second);
      if (!seen) settled.push_back(c);
    }
    changes.swap(settled);
  }

  cFs mFs;
  cPath mPath;
  qstd::tAutoPtr<cAbstractWatchImpl> mpNative;
  qstd::tSharedObject<qpi::cWork> mpWork;
  bool mbExists = false;
  cState mSelf{cFileAttributes::Missing, 0, 0};
  // With the native watch only the names count.
  std::map<qucs::cString, cState> mEntries;
  // Set by the destructor while check() emits.
  bool* mpDestroyed;
};

cFileWatch::cFileWatch(const cPath& path, unsigned int interval) : cFileWatch(cFs::system(), path, interval) {}

cFileWatch::cFileWatch(const cFs& fs, const cPath& path, unsigned int interval) : mpImpl(new cWatchImpl(fs, path)) {
  sigChanged.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  cWatchImpl& d = *mpImpl;
  try {
    d.mpNative = fs.impl().createWatch(path);
    tChanges first;  // the first look finds nothing new
    d.compare(first);
  } catch (...) {
    delete mpImpl;
    throw;
  }
  qpi::cWorkQueue& queue = qpi::system().workQueue();
  d.mpWork = queue.createJob();
  d.mpWork->setName("cFileWatch");
  d.mpWork->sigTrigger.connect(*this, &cFileWatch::sltCheck);
  const int fd = d.mpNative ? d.mpNative->descriptor() : -1;
  if (fd >= 0 && queue.events() && queue.events()->supportsAIO()) {
    // Run when the descriptor turns readable.
    qpi::cFDAIOData* data = new qpi::cFDAIOData;
    data->addFd(fd, qpi::tFdInfo::Read);
    d.mpWork->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(data));
  } else {
    d.mpWork->start(interval, qpi::cWork::Periodic);
  }
}

cFileWatch::~cFileWatch() {
  if (mpImpl->mpDestroyed) *mpImpl->mpDestroyed = true;
  delete mpImpl;
}

const cPath& cFileWatch::path() const { return mpImpl->mPath; }

bool cFileWatch::isNative() const { return mpImpl->mpNative.get() != nullptr; }

void cFileWatch::check() {
  cWatchImpl& d = *mpImpl;
  tChanges changes;
  if (d.mpNative) {
    cCollector collector(changes);
    if (d.mpNative->readChanges(collector)) {
      d.settle(changes);
    } else {
      // The system lost some: compare what is there with what was.
      changes.clear();
      d.compare(changes);
    }
  } else {
    d.compare(changes);
  }
  if (changes.empty()) return;
  // A slot may destroy this watch; then the rest is not reported.
  bool destroyed = false;
  d.mpDestroyed = &destroyed;
  const cPath path = d.mPath;
  for (const auto& c : changes) {
    try {
      sigChanged(c.second.size() ? path / cPath(c.second, path.style()) : path, c.first);
    } catch (...) {
      if (!destroyed) mpImpl->mpDestroyed = nullptr;
      throw;
    }
    if (destroyed) return;
  }
  d.mpDestroyed = nullptr;
}

qsa::piVoid cFileWatch::sltCheck() {
  try {
    check();
  } catch (const cIOException& e) {
    // Looking failed this time (the directory is unreadable, say): the
    // next time may succeed; the work must not count as amuck for it.
    e.dump();
  }
  return qsa::piVoid();
}

}  // namespace qio
