#include "qelcore/rmi/cconnection.h"

#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

cConnection::cConnection(cAbstractSlotCall& call, tRemover remove) : mpCall(&call), mpfRemove(remove) {
  // A slot call has at most one handle: a newer one takes over.
  if (call.mpHandle) call.mpHandle->mpCall = nullptr;
  call.mpHandle = this;
}

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

cConnection::~cConnection() { release(); }

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
