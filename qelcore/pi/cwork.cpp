#include "qelcore/pi/cwork.h"

#include <cstdint>
#include <new>

#include "qelcore/pi/cabstractaiodata.h"
#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/detail/clifelink.h"
#include "qelcore/pi/platform/cnativetimeimpl.h"
#include "qelcore/qelinline.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/climessage.h"

namespace qpi {

namespace {

// Read when a work is constructed; set from the queue's thread.
bool gDebugAllWorks = false;

// The time now, as cTime() reads it, one call closer to the clock: every
// start reads it.
qstd::cTime now() { return qstd::cTime(cNativeTimeImpl::now()); }

}  // namespace

cWork::cWork()
    : sigTrigger(qrmi::cAbstractSignal::eMayBeUnconnected),
      sigChanged(qrmi::cAbstractSignal::eMayBeUnconnected),
      sigDestroyed(qrmi::cAbstractSignal::eMayBeUnconnected),
      mScheduled(0ull),
      mPlanned(0ull),
      meType(SingleTask),
      miInterval(0),
      mbStarted(false),
      mbForceKeep(false),
      mpAIOData(nullptr),
      mpActionError(nullptr),
      mpName(nullptr),
      mStat(gDebugAllWorks),
      miAmuck(0),
      mpParent(nullptr),
      mbDelegate(true),
      mpRuns(nullptr),
      mpEntryQueue(nullptr),
      mbChangeSlot(false) {
  macShortName[0] = '\0';
}

cWork::~cWork() {
  // Most works die unwatched, with no action running and nothing of their
  // own on the heap: one test for all of that, the rest out of line.
  const std::uintptr_t rare = reinterpret_cast<std::uintptr_t>(mpRuns) | sigDestroyed.slotCount() |
                              reinterpret_cast<std::uintptr_t>(mpParent) |
                              reinterpret_cast<std::uintptr_t>(mpActionError) |
                              reinterpret_cast<std::uintptr_t>(mpAIOData) | reinterpret_cast<std::uintptr_t>(mpName);
  if (rare == 0) return;
  [this]() QEL_COLD {
    detail::cLifeLink::cutAll(mpRuns);
    if (sigDestroyed.slotCount() != 0) {
      try {
        sigDestroyed(*this);
      } catch (...) {
        // A receiver's failure cannot stop the destruction.
      }
    }
    delete mpParent;
    delete mpActionError;
    delete mpAIOData;
    delete mpName;
  }();
}

void cWork::setName(const qstd::cAsciiString& name) {
  if (mpName)
    *mpName = name;
  else
    mpName = new qstd::cAsciiString(name);
}

void cWork::setName(const char* name) {
  if (!name) name = "";
  if (mpName) {
    *mpName = name;
    return;
  }
  // Copied as far as it fits; a longer name becomes a string (and the
  // short copy is never read). Four characters a round: names are short,
  // and the room's end is checked once per round.
  static_assert(kShortName % 4 == 0, "the copy goes in rounds of four");
  for (unsigned int i = 0; i < kShortName; i += 4) {
    if ((macShortName[i] = name[i]) == '\0') return;
    if ((macShortName[i + 1] = name[i + 1]) == '\0') return;
    if ((macShortName[i + 2] = name[i + 2]) == '\0') return;
    if ((macShortName[i + 3] = name[i + 3]) == '\0') return;
  }
  macShortName[0] = '\0';
  mpName = new qstd::cAsciiString(name);
}

const qstd::cAsciiString& cWork::settleName() const {
  if (macShortName[0] == '\0') {
    // Shared by every work without a name; never destroyed, so that works
    // that die late still have one.
    alignas(qstd::cAsciiString) static unsigned char storage[sizeof(qstd::cAsciiString)];
    static const qstd::cAsciiString* const none = new (storage) qstd::cAsciiString;
    return *none;
  }
  mpName = new qstd::cAsciiString(macShortName);
  return *mpName;
}

void cWork::enableDebug(bool on) { gDebugAllWorks = on; }

qrmi::localSignal2<qsa::piVoid, const qstd::cAbstractException&, bool>& cWork::sigActionError() {
  if (!mpActionError) mpActionError = new qrmi::localSignal2<qsa::piVoid, const qstd::cAbstractException&, bool>;
  return *mpActionError;
}

bool cWork::hasActionErrorHandler() const { return mpActionError && mpActionError->slotCount() != 0; }

void cWork::start() { internRestart(false); }

void cWork::start(unsigned int interval, Type type) { internRestart(interval, type != SingleTask, false); }

void cWork::stop() {
  mbStarted = false;
  sigChanged(this);
}

void cWork::setInheritErrorHandler(bool inherit) {
  if (!inherit) reparent(nullptr);
}

void cWork::setAIOData(qstd::tAutoPtr<cAbstractAIOData> data) {
  const bool had = mpAIOData != nullptr;
  cAbstractAIOData* old = mpAIOData;
  mpAIOData = data.release();
  delete old;
  meType = AsyncIO;
  if (had && !mpAIOData) mbStarted = false;
  if (mpAIOData) mbStarted = true;
  sigChanged(this);
}

cAbstractAIOData& cWork::aioData() {
  if (!mpAIOData) cPIExceptions::throwNoAIOData(__FILE__, __LINE__);
  return *mpAIOData;
}

const cAbstractAIOData& cWork::aioData() const {
  if (!mpAIOData) cPIExceptions::throwNoAIOData(__FILE__, __LINE__);
  return *mpAIOData;
}

void cWork::internRestart(bool) { restart(miInterval, meType, now()); }

void cWork::internRestart(unsigned int interval, bool periodic, bool) {
  restart(interval, periodic ? Periodic : SingleTask, now());
}

void cWork::restart(unsigned int interval, Type type, const qstd::cTime& now) {
  mStat.notifyStart();
  // A single task keeps no interval, but is still due `interval` from now.
  miInterval = type == SingleTask ? 0 : interval;
  mScheduled = now;
  mPlanned = now + static_cast<long long>(interval) * 1000ll;
  mbStarted = true;
  meType = type;
  miAmuck = 0;
  sigChanged(this);
}

void cWork::reparent(cWork* parent) {
  if (parent == this) parent = nullptr;
  if (!mpParent) {
    if (!parent) return;
    mpParent = new qstd::tParentWatch<cWork>;
  }
  mpParent->set(parent);
}

void cWork::action() {
  mStat.notifyTrigger();
  const detail::cLifeLink alive(mpRuns);
  try {
    sigTrigger();
    if (!alive.gone()) miAmuck = 0;
  } catch (const qstd::cAbstractException& e) {
    if (alive.gone() || !handleActionError(e, false)) throw;
  } catch (...) {
    if (alive.gone()) throw;
    qstd::cRuntimeException e(qucs::cLIMessage("$QTR$Error performing work %name%!") << name(), __FILE__, __LINE__);
    if (!handleActionError(e, false)) throw;
  }
}

bool cWork::handleActionError(const qstd::cAbstractException& e, bool) {
  if (!mbDelegate) return false;
  ++miAmuck;
  for (cWork* w = this; w; w = w->parent()) {
    QEL_DEBUG((qstd::cAsciiString("  * Checking handler in ") + w->name()).c_str());
    if (w->hasActionErrorHandler()) {
      QEL_DEBUG((qstd::cAsciiString("  * Handler found in ") + w->name()).c_str());
      (*w->mpActionError)(e, w != this);
      return true;
    }
  }
  return false;
}

}  // namespace qpi
