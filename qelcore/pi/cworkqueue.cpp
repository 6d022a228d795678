#include "qelcore/pi/cworkqueue.h"

#include <atomic>
#include <mutex>
#include <new>
#include <type_traits>
#include <vector>

#include "qelcore/pi/cabstractaiodata.h"
#include "qelcore/pi/clocaleventloop.h"
#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/detail/clifelink.h"
#include "qelcore/pi/platform/cnativetimeimpl.h"
#include "qelcore/qelinline.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/ctime.h"
#include "qelcore/std/detail/tpointermap.h"

// The steps of a pass, and of adding a work, are separate functions for
// reading's sake; compiled, the common path through them is one call deep.
#define QEL_WQ_STEP QEL_ALWAYS_INLINE

namespace qpi {

using qsa::piVoid;
using qstd::cAsciiString;
using qstd::tSharedObject;

// Works handed over from other threads, waiting for the queue's next pass.
// The flag lets a pass skip the lock while nothing waits.
class cWorkQueue::cInbox {
public:
  ~cInbox() {
    for (cWork* w : mvWorks) delete w;
  }
  void put(cWork* work) {
    std::lock_guard<std::mutex> lock(mMutex);
    mvWorks.push_back(work);
    mbPending.store(true, std::memory_order_release);
  }
  bool pending() const { return mbPending.load(std::memory_order_acquire); }
  void take(std::vector<cWork*>& out) {
    std::lock_guard<std::mutex> lock(mMutex);
    out.swap(mvWorks);
    mbPending.store(false, std::memory_order_relaxed);
  }

private:
  std::mutex mMutex;
  std::vector<cWork*> mvWorks;
  std::atomic<bool> mbPending{false};
};

// The live entry of each work: adding checks for the work and removing finds
// its entry without walking the list, so that adding and removing many works
// stays linear. The first queue that holds a work keeps the entry in the work
// itself; a work held by several queues is found in the others' maps.
class cWorkQueue::cJobIndex {
public:
  explicit cJobIndex(cWorkQueue& queue) : mQueue(queue) {}
  tJobs::iterator* find(const cWork* work) {
    if (work->mpEntryQueue == &mQueue) return inWork(work);
    return mMap.size() ? mMap.find(work) : nullptr;
  }
  // The entry of a work that has none yet.
  void insert(cWork* work, const tJobs::iterator& entry) {
    if (!work->mpEntryQueue)
      insertNew(work, entry);
    else
      mMap.insert(work) = entry;
  }
  // The same for a work that no queue holds.
  void insertNew(cWork* work, const tJobs::iterator& entry) {
    work->mpEntryQueue = &mQueue;
    ::new (static_cast<void*>(work->macEntry)) tJobs::iterator(entry);
  }
  void erase(cWork* work) {
    if (work->mpEntryQueue == &mQueue)
      work->mpEntryQueue = nullptr;
    else if (mMap.size())
      mMap.erase(work);
  }
  // Forgets every entry; `jobs` are the queue's entries.
  void clear(tJobs& jobs) {
    for (tJobs::iterator it = jobs.begin(); it != jobs.end(); ++it)
      if (cWork* w = it->get())
        if (w->mpEntryQueue == &mQueue) w->mpEntryQueue = nullptr;
    mMap.clear();
  }

private:
  static_assert(sizeof(tJobs::iterator) <= sizeof(cWork::macEntry) && alignof(tJobs::iterator) <= alignof(void*),
                "a work keeps one list position");
  static_assert(std::is_trivially_copyable<tJobs::iterator>::value &&
                    std::is_trivially_destructible<tJobs::iterator>::value,
                "list positions are plain values");
  static tJobs::iterator* inWork(const cWork* work) {
    return std::launder(reinterpret_cast<tJobs::iterator*>(const_cast<unsigned char*>(work->macEntry)));
  }

  cWorkQueue& mQueue;
  qstd::detail::tPointerMap<cWork, tJobs::iterator> mMap;
};

// The connection of a queue's sltNotifyWorkChanged to a work's sigChanged,
// made inside the work (cWork::macChangeSlot) when its room there is free.
// The signal deletes its slot calls: for this one that only ends it, and the
// work's room is free again.
class cWorkQueue::cChangeSlot final : public qrmi::cDirectLocalSlotCallN<cWorkQueue, piVoid, cWork*> {
public:
  cChangeSlot(cWorkQueue& queue, cWork& work)
      : cDirectLocalSlotCallN(queue, &cWorkQueue::sltNotifyWorkChanged, nullptr), mWork(work) {
    mWork.mbChangeSlot = true;
  }
  ~cChangeSlot() override { mWork.mbChangeSlot = false; }
  static void* operator new(std::size_t) = delete;
  static void operator delete(void*) noexcept {}

private:
  cWork& mWork;
};

namespace {

// Whole milliseconds from `now` until `planned`; 0 when it has passed. A
// work less than a millisecond ahead is due, which lets zero-delay works
// added during a pass run in that pass.
unsigned int msUntil(const qstd::cTime& planned, const qstd::cTime& now) {
  return planned > now ? static_cast<unsigned int>((planned.get() - now.get()) / 1000ull) : 0;
}

// Raises a counter for the lifetime of the guard, also on exceptions.
class cRaise {
public:
  explicit cRaise(unsigned int& counter) : miCounter(counter) { ++miCounter; }
  ~cRaise() { --miCounter; }
  cRaise(const cRaise&) = delete;
  cRaise& operator=(const cRaise&) = delete;

private:
  unsigned int& miCounter;
};

// One level of nested passes, entered for the lifetime of the guard (also on
// exceptions); a queue that died meanwhile is left alone.
class cPassLevel {
public:
  cPassLevel(unsigned int& level, detail::cLifeLink*& passes) : mAlive(passes), miLevel(level) { ++miLevel; }
  ~cPassLevel() {
    if (!mAlive.gone()) --miLevel;
  }
  cPassLevel(const cPassLevel&) = delete;
  cPassLevel& operator=(const cPassLevel&) = delete;
  bool gone() const { return mAlive.gone(); }

private:
  const detail::cLifeLink mAlive;
  unsigned int& miLevel;
};

// "HH:MM:SS" of a point in time, local time.
cAsciiString clockText(const qstd::cTime& t) {
  const long long seconds = static_cast<long long>(t.toSec());
  long long local = seconds + cNativeTimeImpl::localOffsetAtUTC(seconds);
  local %= 86400;
  if (local < 0) local += 86400;
  const unsigned int fields[3] = {static_cast<unsigned int>(local / 3600), static_cast<unsigned int>(local / 60 % 60),
                                  static_cast<unsigned int>(local % 60)};
  cAsciiString text;
  for (unsigned int i = 0; i < 3; ++i) {
    if (i) text += ':';
    text += static_cast<char>('0' + fields[i] / 10);
    text += static_cast<char>('0' + fields[i] % 10);
  }
  return text;
}

}  // namespace

cWorkQueue::cWorkQueue()
    : mJobs(tJobs::ShowMarked),
      miLevel(0),
      mbRescan(false),
      miLocalLoops(0),
      miClearing(0),
      mpCurrent(nullptr),
      miTimed(0),
      miAsync(0),
      mpLoops(nullptr),
      mpInbox(new cInbox),
      mpIndex(new cJobIndex(*this)),
      mpPasses(nullptr),
      mKnownNow(0ull),
      mbExecuted(false),
      mbAsyncEvents(false),
      mbAIOEvents(false) {}

cWorkQueue::~cWorkQueue() {
  // Passes further up the stack return without touching the queue again.
  detail::cLifeLink::cutAll(mpPasses);
  // No more calls into this queue: neither from its works nor its processor.
  qrmi::cConnectable::clear();
  for (cLocalEventLoop* loop = mpLoops; loop; loop = loop->mpNext) loop->mpQueue = nullptr;
  delete mpInbox;
  ++miClearing;
  // Works that outlive the queue must not keep an entry of it.
  mpIndex->clear(mJobs);
  mJobs.clear();
  delete mpIndex;
}

void cWorkQueue::setEvents(qstd::tAutoPtr<cAbstractProcessEvents> events) {
  if (!events) clear();
  mpEvents = events;
  readCapabilities();
  if (mpEvents) mpEvents->sigFinished.connect(*this, &cWorkQueue::sltNotifyPEFinished);
}

void cWorkQueue::readCapabilities() {
  mbAsyncEvents = mpEvents && mpEvents->isAsynchronous();
  mbAIOEvents = mpEvents && mpEvents->supportsAIO();
}

QEL_WQ_STEP void cWorkQueue::noteChange() {
  if (miClearing != 0 || !mpEvents) return;
  const bool immediate = mbAsyncEvents && miLevel == 0;
  if (immediate) {
    updateNow();
  } else {
    mbRescan = true;
    if (miLocalLoops >= miLevel) mpEvents->wakeUp();
  }
}

tSharedObject<cWork> cWorkQueue::createJob() {
  tSharedObject<cWork> work = tSharedObject<cWork>::create();
  // appendJob() for a work just made: it has no parent, no entry and no
  // change slot yet, and was never started.
  cWork* const w = work.rawObject();
  if (mpCurrent) w->reparent(mpCurrent);
  mpIndex->insertNew(w, mJobs.append(work));
  w->sigChanged.connectWithoutHandle(::new (static_cast<void*>(w->macChangeSlot)) cChangeSlot(*this, *w));
  noteChange();
  return work;
}

void cWorkQueue::addJob(tSharedObject<cWork> work) {
  if (work.null() || mpIndex->find(work.get())) return;
  appendJob(work);
}

QEL_WQ_STEP void cWorkQueue::append(const tSharedObject<cWork>& work) {
  mpIndex->insert(work.get(), mJobs.append(work));
}

QEL_WQ_STEP void cWorkQueue::dropEntry(const tJobs::iterator& entry) {
  // A marked entry was dropped before: its work may have a new entry by now.
  if (entry.isMarked()) return;
  if (cWork* w = entry->get()) mpIndex->erase(w);
  entry.eraseLater();
}

QEL_WQ_STEP void cWorkQueue::appendJob(const tSharedObject<cWork>& work) {
  cWork* w = work.get();
  if (mpCurrent || w->parent()) w->reparent(mpCurrent);
  append(work);
  listenTo(*w);
  sltNotifyWorkChanged(w);
}

QEL_WQ_STEP void cWorkQueue::listenTo(cWork& work) {
  static_assert(sizeof(cChangeSlot) <= sizeof(work.macChangeSlot) && alignof(cChangeSlot) <= alignof(void*),
                "a work has room for one change slot");
  if (work.mbChangeSlot) {
    work.sigChanged.connect(*this, &cWorkQueue::sltNotifyWorkChanged);
    return;
  }
  work.sigChanged.connectWithoutHandle(::new (static_cast<void*>(work.macChangeSlot)) cChangeSlot(*this, work));
}

void cWorkQueue::addJob(cWork& work) {
  if (!mpIndex->find(&work)) {
    const tSharedObject<cWork> shared(work);
    work.sigDestroyed.connect(*this, &cWorkQueue::sltWorkDestroyed);
    listenTo(work);
    work.setForceKeep(true);
    work.reparent(mpCurrent);
    append(shared);
  }
  sltNotifyWorkChanged(&work);
}

void cWorkQueue::removeJob(const cWork& work) {
  if (mpCurrent == &work) mpCurrent = nullptr;
  // A work has one live entry at most: adding never repeats it.
  if (tJobs::iterator* entry = mpIndex->find(&work)) {
    const tJobs::iterator it = *entry;
    dropEntry(it);
    it->reset();
  }
}

void cWorkQueue::clear() {
  cRaise clearing(miClearing);
  mpIndex->clear(mJobs);
  for (tJobs::iterator it = mJobs.begin(); it != mJobs.end(); ++it) {
    it.eraseLater();
    it->reset();
  }
  sltNotifyWorkChanged(nullptr);
}

void cWorkQueue::checkEvents() const {
  if (mpEvents) return;
  QEL_ERROR("*** WORKQUEUE HAS BEEN FOUND A BUG ***");
  debugDump(cAbstractOut::LevelError);
  cAbstractOut::current().writeStackTrace(cAbstractOut::LevelError, "Stack trace:", __FILE__, __LINE__);
  cPIExceptions::throwNoProcessEvents(__FILE__, __LINE__);
}

QEL_WQ_STEP unsigned int cWorkQueue::internProcess(bool doProcess, unsigned int& executed) {
  // updateTimer(), the only caller, runs a pass only while a processor is set.
  miTimed = 0;
  miAsync = 0;
  // The clock is read once per pass, and only when needed: a work whose
  // planned time has been reached by the latest reading this queue knows of
  // (its own passes', or a work's start) is due now as well. A work that is
  // not due by it, and every restart, takes a fresh reading.
  qstd::cTime now = mKnownNow;
  bool fresh = false;
  auto readClock = [&] {
    if (fresh) return;
    now = qstd::cTime();
    if (mKnownNow < now) mKnownNow = now;
    fresh = true;
  };
  // Above every wait: no timed work met yet.
  const unsigned long long noWait = ~0ull;
  unsigned long long minWait = noWait;
  bool removed = false;
  executed = 0;
  const bool aio = mbAIOEvents;
  // Actions (and receivers of a work's sigChanged) may destroy the queue or
  // the work at hand; every call out is followed by a look at these marks.
  // The queue's is the mark of the pass level that updateTimer(), the only
  // caller, has just entered: the innermost one, on the caller's stack.
  const detail::cLifeLink& queueAlive = *mpPasses;

  for (tJobs::iterator it = mJobs.begin(); it != mJobs.end(); ++it) {
    cWork* w = it->get();
    if (!w) {
      it.eraseLater();
      removed = true;
      continue;
    }
    if (!w->mbStarted) continue;
    // Keeps a shared work alive until its entry is done with.
    const tSharedObject<cWork> running(*it);
    const detail::cLifeLink workAlive(w->mpRuns);
    if (w->mPlanned > now) readClock();
    unsigned int wait = msUntil(w->mPlanned, now);
    bool due = wait == 0;
    if (w->meType == cWork::AsyncIO) {
      if (aio) {
        due = w->mpAIOData && w->mpAIOData->isEvent();
      } else {
        // Without I/O support the work is polled at its interval.
        readClock();
        w->restart(w->miInterval, cWork::Periodic, now);
        if (queueAlive.gone()) return 0;
        if (workAlive.gone()) {
          removed = true;
          continue;
        }
        due = true;
      }
    }
    const bool timed = w->meType != cWork::AsyncIO;
    if (timed)
      ++miTimed;
    else
      ++miAsync;

    if (doProcess && due) {
      if (w->meType == cWork::SingleTask) {
        w->markDone();
      } else if (w->meType == cWork::Periodic) {
        w->markDone();
        // From the pass's reading of the clock: one reading per pass.
        readClock();
        w->restart(w->miInterval, w->meType, now);
        if (queueAlive.gone()) return 0;
        if (!workAlive.gone()) wait = msUntil(w->mPlanned, now);
      }
      if (!workAlive.gone()) {
        if (w->isAmuck()) {
          w->stop();
          cPIExceptions::throwAmuckWork(w->name(), __FILE__, __LINE__);
        }
        cWork* const previous = mpCurrent;
        mpCurrent = w;
        if (!previous) {
          try {
            w->action();
          } catch (...) {
            if (!queueAlive.gone()) mpCurrent = nullptr;
            throw;
          }
          if (queueAlive.gone()) return 0;
          mpCurrent = nullptr;
        } else {
          // The outer current work may die in this action too (from a nested
          // loop); then there is none to go back to.
          const detail::cLifeLink previousAlive(previous->mpRuns);
          try {
            w->action();
          } catch (...) {
            if (!queueAlive.gone()) mpCurrent = previousAlive.gone() ? nullptr : previous;
            throw;
          }
          if (queueAlive.gone()) return 0;
          mpCurrent = previousAlive.gone() ? nullptr : previous;
        }
        ++executed;
      }
      if (workAlive.gone()) {
        // Died on the way: its destruction took the entry out already.
        if (timed)
          --miTimed;
        else
          --miAsync;
        removed = true;
        continue;
      }
      if (w->mpAIOData) w->mpAIOData->setEvent(false);
      if (!w->mbStarted && !w->isKeep()) {
        dropEntry(it);
        if (timed)
          --miTimed;
        else
          --miAsync;
        removed = true;
      }
    }
    if (timed && wait < minWait) minWait = wait;
  }

  // Only the outermost pass purges, and only when it removed something
  // itself: nested passes run inside a walk of an outer one, whose position
  // must stay valid. Entries marked by removeJob outside any pass are null,
  // so the next pass counts them as removed.
  if (miLevel == 1 && removed) mJobs.purge();
  if (miTimed == 0 && miAsync != 0) return 10000;
  return minWait == noWait ? 0 : static_cast<unsigned int>(minWait);
}

QEL_WQ_STEP bool cWorkQueue::updateTimer(bool doProcess, unsigned int& lastWait) {
  mbRescan = true;
  const cPassLevel level(miLevel, mpPasses);
  if (mpInbox->pending()) drainInbox();
  lastWait = 0;
  bool executedAny = false;
  // An action may have dropped the processor: then there is nothing to
  // rescan for. Only the first round runs works.
  while (mbRescan && mpEvents) {
    mbRescan = false;
    unsigned int executed = 0;
    lastWait = internProcess(doProcess, executed);
    if (level.gone()) return false;
    doProcess = false;
    if (executed) executedAny = true;
  }
  mbExecuted = executedAny;
  return true;
}

QEL_WQ_STEP unsigned int cWorkQueue::processEvents(bool doProcess) {
  if (!mpEvents) checkEvents();
  unsigned int wait = 0;
  // An action may have destroyed the queue or dropped its processor.
  if (!updateTimer(doProcess, wait) || !mpEvents) return 0;
  bool yieldNeeded = true;
  if (!mbAsyncEvents) {
    // The processor waits when something is asynchronous, or timed and not
    // yet due.
    yieldNeeded = miAsync != 0 || (miTimed != 0 && wait != 0);
    if (mbExecuted) {
      // After running works a synchronous processor is handed no wait, so
      // that the caller sees at once what they did; whether it is called at
      // all still follows the pass's own wait.
      wait = 0;
    } else if (miTimed == 0 && miAsync == 0 && mpEvents->waitsWhenIdle()) {
      // Nothing ran, and nothing can become due by itself: wait until woken.
      // A pass that ran works returns first, so that its caller sees what
      // they did.
      yieldNeeded = true;
      wait = ~0u;
    }
  }
  if (yieldNeeded) mpEvents->yield(miLevel, mJobs, wait);
  return miTimed + miAsync;
}

void cWorkQueue::process() {
  readCapabilities();
  if (mbAsyncEvents)
    mpEvents->poll();
  else
    processEvents(true);
}

void cWorkQueue::post(qstd::tAutoPtr<cWork> work) {
  if (!work) return;
  mpInbox->put(work.release());
  if (mpEvents) mpEvents->wakeUpFromAnyThread();
}

void cWorkQueue::drainInbox() {
  std::vector<cWork*> arrived;
  mpInbox->take(arrived);
  // Handed-over works have no parent among this queue's works.
  cWork* const current = mpCurrent;
  mpCurrent = nullptr;
  for (std::size_t i = 0; i < arrived.size(); ++i) {
    tSharedObject<cWork> work(arrived[i]);
    arrived[i] = nullptr;
    appendJob(work);
  }
  mpCurrent = current;
}

piVoid cWorkQueue::sltNotifyWorkChanged(cWork* work) {
  // A start is a reading of the clock that the next pass can use.
  if (work && mKnownNow < work->mScheduled) mKnownNow = work->mScheduled;
  noteChange();
  return piVoid();
}

// Kept out of line: the pass inlined here would make every notification pay
// for its frame.
QEL_NOINLINE void cWorkQueue::updateNow() {
  processEvents(false);
}

piVoid cWorkQueue::sltNotifyPEFinished() {
  if (mpEvents && mbAsyncEvents) {
    unsigned int wait = 0;
    if (!updateTimer(true, wait)) return piVoid();
    if (mpEvents && mbAsyncEvents && (miTimed != 0 || miAsync != 0)) mpEvents->yield(miLevel, mJobs, wait);
  }
  return piVoid();
}

piVoid cWorkQueue::sltWorkDestroyed(const cWork& work) {
  removeJob(work);
  return piVoid();
}

void cWorkQueue::debugDump(cAbstractOut::Level level) const {
  cAbstractOut& out = cAbstractOut::current();
  if (!out.enabled(level, __FILE__)) return;
  auto line = [&](const cAsciiString& text) { out.write(level, text.c_str(), __FILE__, __LINE__); };
  line("WorkQueue status:");
  if (!mpEvents)
    line("No event processor!");
  else
    line(cAsciiString("Have event object (") +
         (mpEvents->isAsynchronous() ? "asynchronous event processor" : "synchronous event processor") + ")");
  line("Tasks:");
  const qstd::cTime now;
  for (tJobs::const_iterator it = mJobs.begin(); it != mJobs.end(); ++it) {
    const cWork* w = it->get();
    if (!w) {
      line(" * zero item");
      continue;
    }
    cAsciiString text(" * Work (");
    text += w->name();
    text += ") ";
    switch (w->type()) {
      case cWork::SingleTask:
        text += "Single task (planned in ";
        text.addUNum32(msUntil(w->plannedTime(), now));
        text += "ms)";
        break;
      case cWork::Periodic:
        text += "Periodic (";
        text.addUNum32(w->interval());
        text += "ms interval)";
        break;
      case cWork::AsyncIO:
        text += "Asynchronous I/O";
        break;
      default:
        text += "unknown";
    }
    if (w->isStarted()) text += " (scheduled)";
    if (w->isKeep()) text += " (keep)";
    line(text);
    cAsciiString counts("   * Triggered: ");
    counts.addUNum32(w->statistic().numTriggered());
    counts += " / numStarted: ";
    counts.addUNum32(w->statistic().numStarted());
    line(counts);
    if (const cWorkStat::cDebugInfo* debug = w->statistic().debugInfo()) {
      line(cAsciiString("   * Last start at: ") + clockText(debug->lastStart));
      line(cAsciiString("   * Last triggered: ") + clockText(debug->lastTrigger));
      out.writeBacktrace(level, "   * Started from:", debug->startTrace, debug->startTraceLength, __FILE__, __LINE__);
    }
  }
}

}  // namespace qpi
