#include "qelcore/qcs/cmodulemgr.h"

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/detail/cmodulemgrimpl.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/cstdexceptions.h"

namespace qcs {

cModuleMgr::cModuleMgr(const qce::cCoreExtensionMgr& coreExtensions)
    : mpImpl(nullptr), mCoreExtensions(coreExtensions) {
  sigIdle.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigComponentAdded.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigComponentRegistered.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigComponentRemoved.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigComponentDepsChanged.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigInterfaceDepsChanged.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  mpImpl = new cModuleMgrImpl(*this);
}

cModuleMgr::~cModuleMgr() { delete mpImpl; }

void cModuleMgr::setApp(qpi::cAbstractQELApp& app) { mpImpl->mpApp = &app; }

qpi::cAbstractQELApp& cModuleMgr::app() {
  if (!mpImpl->mpApp) cQCSExceptions::throwNoApplication();
  return *mpImpl->mpApp;
}

const qpi::cAbstractQELApp& cModuleMgr::app() const {
  if (!mpImpl->mpApp) cQCSExceptions::throwNoApplication();
  return *mpImpl->mpApp;
}

cAbstractComponent& cModuleMgr::addComponent(cAbstractComponent& component, const cComponentAddr& deployedBy) {
  return mpImpl->addComponent(component, qstd::tAutoPtr<cAbstractComponent>(), deployedBy);
}

cAbstractComponent& cModuleMgr::addComponent(qstd::tAutoPtr<cAbstractComponent> component,
                                             const cComponentAddr& deployedBy) {
  if (!component.get()) cManagedComponent refused(component);
  cAbstractComponent& c = *component;
  return mpImpl->addComponent(c, component, deployedBy);
}

cAbstractComponent& cModuleMgr::loadComponent(const qucs::cString& file, const cComponentAddr& deployedBy) {
  qstd::tAutoPtr<qpi::cAbstractClassLoader> loader = qpi::cPlatform::createClassLoader(file);
  qsa::cReferenceFrame frame;
  qstd::tAutoPtr<cAbstractComponent> component(loader->instance(frame, *this));
  component->setClassLoader(loader.get(), file.ascii());
  registerClassLoader(loader);
  // A refused component dies here; its unused loader goes after the next pass.
  return addComponent(component, deployedBy);
}

const cModuleMgr::tComponents& cModuleMgr::components() const { return mpImpl->mComponents; }

cAbstractComponent& cModuleMgr::findComponent(const cComponentAddr& address) const {
  cAbstractComponent* c = mpImpl->hasComponent(address);
  if (!c) cQCSExceptions::throwNoSuchModule(address);
  return *c;
}

cAbstractComponent& cModuleMgr::findComponent(const cComponentLocation& location) const {
  cAbstractComponent* c = mpImpl->hasComponent(location);
  if (!c) cQCSExceptions::throwNoSuchModule(location);
  return *c;
}

cAbstractComponent& cModuleMgr::findComponent(const qstd::cAsciiString& context) const {
  cAbstractComponent* c = mpImpl->hasComponent(context);
  if (!c) cQCSExceptions::throwNoSuchModule(context);
  return *c;
}

cAbstractComponent& cModuleMgr::findComponent(const qrmi::cConnectable& iface) const {
  cAbstractComponent* c = mpImpl->hasComponent(iface);
  if (!c) cQCSExceptions::throwNoPublicInterface(iface);
  return *c;
}

cAbstractComponent* cModuleMgr::hasComponent(const cComponentAddr& address) const {
  return mpImpl->hasComponent(address);
}

cAbstractComponent* cModuleMgr::hasComponent(const cComponentLocation& location) const {
  return mpImpl->hasComponent(location);
}

cAbstractComponent* cModuleMgr::hasComponent(const qstd::cAsciiString& context) const {
  return mpImpl->hasComponent(context);
}

bool cModuleMgr::exists(const cComponentLocation& location) const { return mpImpl->hasComponent(location) != nullptr; }

void cModuleMgr::removeComponent(const cComponentAddr& address) {
  findComponent(address).removeLater();
  handleComponentIterationLater();
}

void cModuleMgr::componentsReferencedBy(const cAbstractComponent& c, cAbstractComponent::tComponentList& out) const {
  mpImpl->componentsReferencedBy(c, out);
}

bool cModuleMgr::applicationCloseAdvisable(qpi::cAbstractQELApp& app) { return mpImpl->applicationCloseAdvisable(app); }

void cModuleMgr::submitShortlyRemove() { mpImpl->submitShortlyRemove(); }

void cModuleMgr::removeAllComponentsNow() { mpImpl->removeAllComponentsNow(); }

void cModuleMgr::handleComponentIterationLater() { mpImpl->handleComponentIterationLater(); }

bool cModuleMgr::passRequested() const { return mpImpl->mComponentWork.isStarted(); }

void cModuleMgr::registerClassLoader(qstd::tAutoPtr<qpi::cAbstractClassLoader> loader) {
  QEL_ASSERT(loader.get() != 0, "qcs/cmodulemgr");
  mpImpl->mClassLoaders.append(loader);
}

qstd::tAutoPtr<qstd::cAbstractException> cModuleMgr::createRemoteException(const cComponentLocation&,
                                                                           const qstd::cAsciiString& typeName,
                                                                           qsa::cAbstractDeserializer& d) {
  return mpImpl->createRemoteException(typeName, d);
}

}  // namespace qcs
