#include "qelcore/rmi/cconnection.h"

#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

cConnection::cConnection(cConnection&& other) noexcept : mpCall(other.mpCall), mpfRemove(other.mpfRemove) {
  other.mpCall = nullptr;
  if (mpCall) mpCall->mpHandle = this;
}

cConnection& cConnection::operator=(cConnection&& other) noexcept {
  if (this != &other) {
    release();
    mpCall = other.mpCall;
    mpfRemove = other.mpfRemove;
    other.mpCall = nullptr;
    if (mpCall) mpCall->mpHandle = this;
  }
  return *this;
}

void cConnection::release() noexcept {
  if (mpCall) mpCall->mpHandle = nullptr;
  mpCall = nullptr;
}

bool cConnection::disconnect() {
  cAbstractSlotCall* call = mpCall;
  if (!call) return false;
  QEL_ASSERT(call->signal() != nullptr, "rmi/cconnection");
  // The slot call's destruction clears this handle.
  return mpfRemove(*call->signal(), *call);
}

}  // namespace qrmi
