#include "qelcore/qcs/cmanagedcomponent.h"

#include "qelcore/std/cstdexceptions.h"

namespace qcs {

cManagedComponent::cManagedComponent(cAbstractComponent& component) : mpComponent(&component) {}

cManagedComponent::cManagedComponent(qstd::tAutoPtr<cAbstractComponent> component)
    : mpComponentGuard(component), mpComponent(mpComponentGuard.get()) {
  QEL_ASSERT(mpComponentGuard.get(), "qcs/cmanagedcomponent");
}

cManagedComponent::cManagedComponent(cManagedComponent& other)
    : mpComponentGuard(other.mpComponentGuard), mpComponent(other.mpComponent) {}

cManagedComponent& cManagedComponent::operator=(cManagedComponent& other) {
  if (this != &other) {
    mpComponentGuard = other.mpComponentGuard;
    mpComponent = other.mpComponent;
  }
  return *this;
}

cManagedComponent::~cManagedComponent() {}

}  // namespace qcs
