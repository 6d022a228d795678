#include "qelcore/qce/ccoreextensionmgr.h"

#include <utility>

#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/pi/cabstractplatforminfo.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/qce/cabstractendecextension.h"
#include "qelcore/qce/cabstractsaextension.h"
#include "qelcore/qce/cqceexceptions.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetabstractaddressextension.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cpluginguard.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/cabstractendec.h"
#include "qelcore/ucs/cstring.h"

namespace qce {

namespace {

// The module file name of a module name on this platform.
qucs::cString moduleFileName(const qucs::cString& name) {
  qucs::cString file(name);
  qpi::cPlatform::createPlatformInfo()->osSpecificSOName(file);
  return file;
}

}  // namespace

cCoreExtensionMgr::cCoreExtensionMgr() { initModulePaths(); }

cCoreExtensionMgr::cCoreExtensionMgr(const qio::cFs& fs) : mModulePaths(fs) { initModulePaths(); }

void cCoreExtensionMgr::initModulePaths() {
  mModulePaths.appendList(qucs::cString(qpi::cPlatform::getEnv("QELCORE_MODULE_PATH"), '?'));
  mModulePaths.append(qio::cPath(qpi::cPlatform::moduleDirectory()));
}

cCoreExtensionMgr::cCoreExtensionMgr(cCoreExtensionMgr& other)
    : mExtensions(std::move(other.mExtensions)), mModulePaths(other.mModulePaths) {}

cCoreExtensionMgr& cCoreExtensionMgr::operator=(cCoreExtensionMgr& other) {
  if (this != &other) {
    clear();
    mExtensions = std::move(other.mExtensions);
    mModulePaths = other.mModulePaths;
  }
  return *this;
}

cCoreExtensionMgr::~cCoreExtensionMgr() { clear(); }

void cCoreExtensionMgr::add(qstd::tAutoPtr<cAbstractCoreExtension> extension) {
  mExtensions.append(new cExtensionPair(extension));
}

qcs::cAbstractModule& cCoreExtensionMgr::add(qstd::tAutoPtr<qcs::cPlugInGuard> plugIn) {
  QEL_ASSERT(plugIn.get() != nullptr, "qce/ccoreextensionmgr");
  const qcs::cAbstractPlugIn& module = plugIn->plugIn();
  if (!module.isCoreExtension()) {
    const qpi::cAbstractClassLoader* loader = module.classLoader();
    qcs::cQCSExceptions::throwNoCoreExtension(loader ? loader->libFileName()
                                                     : qucs::cString(module.moduleInfo().name(), '?'));
  }
  qstd::tAutoPtr<cExtensionPair> pair(new cExtensionPair(plugIn));
  qcs::cAbstractModule& listed = *pair->plugIn();
  mExtensions.append(pair);
  return listed;
}

qcs::cAbstractModule& cCoreExtensionMgr::load(const qucs::cString& fileName, qsa::cReferenceFrame& frame) {
  return add(qcs::cPlugInGuard::open(fileName, frame));
}

qcs::cAbstractModule& cCoreExtensionMgr::load(const qucs::cString& fileName) {
  qsa::cReferenceFrame frame;
  return load(fileName, frame);
}

qcs::cAbstractModule& cCoreExtensionMgr::load(const qstd::cAsciiString& name, qsa::cReferenceFrame& frame) {
  const qucs::cString file = moduleFileName(qucs::cString(name, '?'));
  const qio::cPath found = mModulePaths.tryFind(qio::cPath(file));
  return load(found.isEmpty() ? file : found.toNative(), frame);
}

bool cCoreExtensionMgr::has(const qucs::cString& fileName) const {
  return qpi::system().fs().exists(qio::cPath(moduleFileName(fileName)));
}

cAbstractCoreExtension* cCoreExtensionMgr::hasExtension(const qstd::cAsciiString& typeName) const {
  for (const cExtensionPair* pair : mExtensions)
    if (pair->extension().supports(typeName)) return &pair->extension();
  return nullptr;
}

void cCoreExtensionMgr::provides(cAbstractCoreExtension::ExtensionType type,
                                 qstd::tVector<qstd::cAsciiString>& names) const {
  for (const cExtensionPair* pair : mExtensions)
    if (pair->extension().extensionType() == type) pair->extension().provides(names);
}

cAbstractCoreExtension& cCoreExtensionMgr::find(cAbstractCoreExtension::ExtensionType type, const char* kindText,
                                                const qstd::cAsciiString& typeName) const {
  bool otherFound = false;
  for (const cExtensionPair* pair : mExtensions) {
    if (pair->extension().extensionType() != type) continue;
    otherFound = true;
    if (pair->extension().supports(typeName)) return pair->extension();
  }
  cQCEExceptions::throwUnsupportedExtension(kindText, typeName, otherFound);
}

qstd::tAutoPtr<cNetAbstractAddress> cCoreExtensionMgr::createNetAddress(const qstd::cAsciiString& typeName) const {
  return static_cast<const cNetAbstractAddressExtension&>(
             find(cAbstractCoreExtension::eNetAddress, "netwok address", typeName))
      .createNetAddress(typeName);
}

qstd::tAutoPtr<qsa::cAbstractSerializer> cCoreExtensionMgr::createSerializer(const qstd::cAsciiString& typeName,
                                                                             const qstd::cAsciiString& second) const {
  return static_cast<const cAbstractSAExtension&>(find(cAbstractCoreExtension::eSerializer, "serializer", typeName))
      .createSerializer(typeName, second);
}

qstd::tAutoPtr<qsa::cAbstractDeserializer> cCoreExtensionMgr::createDeserializer(
    const qstd::cAsciiString& typeName, qstd::tConstArrayRef<char> data) const {
  return static_cast<const cAbstractSAExtension&>(find(cAbstractCoreExtension::eSerializer, "serializer", typeName))
      .createDeserializer(typeName, data);
}

qstd::tAutoPtr<qsa::cAbstractDeserializer> cCoreExtensionMgr::createDeserializer(
    const qstd::cAsciiString& typeName, const qucs::cString& fileName) const {
  return static_cast<const cAbstractSAExtension&>(find(cAbstractCoreExtension::eSerializer, "serializer", typeName))
      .createDeserializer(typeName, fileName);
}

qstd::tAutoPtr<qucs::cAbstractEnDec> cCoreExtensionMgr::createEnDec(const qstd::cAsciiString& typeName) const {
  return static_cast<const cAbstractEnDecExtension&>(
             find(cAbstractCoreExtension::eEnDec, "Encoder / Decoder", typeName))
      .createEnDec(typeName);
}

void cCoreExtensionMgr::unloadPlugIns() {
  for (bool found = true; found;) {
    found = false;
    const cExtensionPair* last = nullptr;
    for (const cExtensionPair* pair : mExtensions)
      if (pair->plugIn()) last = pair;
    if (last) found = mExtensions.remove(const_cast<cExtensionPair*>(last));
  }
}

void cCoreExtensionMgr::clear() {
  unloadPlugIns();
  mExtensions.clear();
}

}  // namespace qce
