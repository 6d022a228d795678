#include "qelcore/pi/csystem.h"

#include <vector>

#include "qelcore/io/cfs.h"
#include "qelcore/io/cproxyfs.h"
#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cabstractprocessevents.h"
#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/detail/builtinextensions.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/clilocale.h"

namespace qpi {

// Everything the system object refers to, in order of construction.
struct cSystem::cRecord {
  cRecord() : extensions(fs), pApp(nullptr) {
    fs.mount(qio::cPath("/"), qio::cFs());
    qce::addBuiltinExtensions(extensions);
    queue.setEvents(cPlatform::createProcessEvents());
    qstd::cNumberConversionFormat::installSystemDefault(&numberFormat);
  }
  ~cRecord() {
    releaseAll();
    qstd::cNumberConversionFormat::installSystemDefault(nullptr);
  }
  void releaseAll() {
    while (!released.empty()) {
      cReleasable* last = released.back();
      released.pop_back();
      delete last;
    }
  }

  qstd::cNumberConversionFormat numberFormat;
  qucs::cEnDecUTF8 utf8;
  qio::cProxyFs fs;
  qce::cCoreExtensionMgr extensions;
  qucs::cLILocale locale;
  cWorkQueue queue;
  std::vector<cReleasable*> released;
  cAbstractQELApp* pApp;
};

namespace {

cSystem* gSystem = nullptr;

}  // namespace

cSystem::cReleasable::~cReleasable() {}

cSystem::cSystem(cRecord& record)
    : mRecord(record),
      mDefaults{record.numberFormat, record.utf8},
      mFs(record.fs),
      mCoreExtensions(record.extensions),
      mLocale(record.locale),
      mWorkQueue(record.queue) {}

cSystem::~cSystem() {}

cSystem& system() {
  if (gSystem) return *gSystem;
  qstd::tAutoPtr<cSystem::cRecord> record(new cSystem::cRecord);
  cPlatform::buildChecks();
  gSystem = new cSystem(*record.release());
  return *gSystem;
}

void cSystem::cleanup() {
  if (!gSystem) return;
  // What is unloaded or released may still use the system.
  gSystem->mRecord.extensions.unloadPlugIns();
  gSystem->mRecord.releaseAll();
  cSystem* doomed = gSystem;
  gSystem = nullptr;
  cRecord* record = &doomed->mRecord;
  delete doomed;
  delete record;
}

bool cSystem::exists() { return gSystem != nullptr; }

cAbstractOut& cSystem::out() { return cAbstractOut::current(); }

void cSystem::setApp(cAbstractQELApp* app) { mRecord.pApp = app; }

cAbstractQELApp& cSystem::app() const {
  if (!mRecord.pApp) cPIExceptions::throwNoApp(__FILE__, __LINE__);
  return *mRecord.pApp;
}

bool cSystem::hasApp() const { return mRecord.pApp != nullptr; }

void cSystem::exec() { mWorkQueue.process(); }

void cSystem::releaseAtCleanup(qstd::tAutoPtr<cReleasable> object) {
  if (!object) return;
  mRecord.released.reserve(mRecord.released.size() + 1);
  mRecord.released.push_back(object.release());
}

}  // namespace qpi
