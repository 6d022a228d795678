#include "qelcore/qcs/cregisteredinterface.h"

#include "qelcore/qcs/cabstractinterface.h"

namespace qcs {

cRegisteredInterface::cRegisteredInterface(qstd::tAutoPtr<cAbstractInterface> iface)
    : mpInterface(iface.release()), mbOwned(true), mpProvider(nullptr), mpNextOfInterface(nullptr) {}

cRegisteredInterface::cRegisteredInterface(cAbstractInterface& iface)
    : mpInterface(&iface), mbOwned(false), mpProvider(nullptr), mpNextOfInterface(nullptr) {}

cRegisteredInterface::~cRegisteredInterface() {
  unlink();
  if (mbOwned) delete mpInterface;
}

void cRegisteredInterface::link() {
  if (!mpInterface) return;
  mpNextOfInterface = mpInterface->mpRegistrations;
  mpInterface->mpRegistrations = this;
}

void cRegisteredInterface::unlink() {
  if (!mpInterface) return;
  for (cRegisteredInterface** p = &mpInterface->mpRegistrations; *p; p = &(*p)->mpNextOfInterface) {
    if (*p == this) {
      *p = mpNextOfInterface;
      break;
    }
  }
  mpNextOfInterface = nullptr;
}

}  // namespace qcs
