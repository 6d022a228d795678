#include "qelcore/qcs/cabstractmodule.h"

#include "qelcore/pi/cabstractclassloader.h"

namespace qcs {

cAbstractModule::cAbstractModule() : mpClassLoader(nullptr) {}

cAbstractModule::cAbstractModule(qsa::cReferenceFrame&) : mpClassLoader(nullptr) {}

cAbstractModule::~cAbstractModule() {
  if (mpClassLoader) mpClassLoader->decRef();
}

void cAbstractModule::loadSettings(qsa::cAbstractDeserializer&) {}
void cAbstractModule::storeSettings(qsa::cAbstractSerializer&) const {}
void cAbstractModule::applySettings() {}

void cAbstractModule::setClassLoader(qpi::cAbstractClassLoader* loader, const qstd::cAsciiString& name) {
  mModuleInfo.setContext(name);
  mpClassLoader = loader;
}

}  // namespace qcs
