#include "qelcore/rmi/cabstractboundcall.h"

#include <atomic>

#include "qelcore/pi/cwork.h"
#include "qelcore/rmi/cconnectable.h"

namespace qrmi {

namespace {

// The count lives beside the token so that its header needs no atomics.
struct cCountedToken : cSlotTargetToken {
  std::atomic<unsigned int> miRefs{1};
};

// A work that owns one bound call and makes it when triggered.
class cCallWork : public qpi::cWork, public cConnectable {
public:
  explicit cCallWork(cAbstractBoundCall* call) : mpCall(call) {
    setName("qrmi::cAbstractBoundCall");
    sigTrigger.connect(*this, &cCallWork::sltCall);
  }
  ~cCallWork() override { delete mpCall; }

private:
  qsa::piVoid sltCall() {
    mpCall->call();
    return qsa::piVoid();
  }

  cAbstractBoundCall* mpCall;
};

}  // namespace

cSlotTargetToken* cSlotTargetToken::ensure(cSlotTargetToken** slot) {
  cSlotTargetToken* token = __atomic_load_n(slot, __ATOMIC_ACQUIRE);
  if (token) return token;
  cSlotTargetToken* fresh = new cCountedToken;
  if (__atomic_compare_exchange_n(slot, &token, fresh, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE)) return fresh;
  delete static_cast<cCountedToken*>(fresh);  // another thread was first
  return token;
}

void cSlotTargetToken::drop(cSlotTargetToken** slot) {
  cSlotTargetToken* token = __atomic_exchange_n(slot, nullptr, __ATOMIC_ACQ_REL);
  if (!token) return;
  token->clear();
  token->release();
}

void cSlotTargetToken::addRef() { static_cast<cCountedToken*>(this)->miRefs.fetch_add(1, std::memory_order_relaxed); }

void cSlotTargetToken::release() {
  cCountedToken* self = static_cast<cCountedToken*>(this);
  if (self->miRefs.fetch_sub(1, std::memory_order_acq_rel) == 1) delete self;
}

cAbstractBoundCall::~cAbstractBoundCall() {}

qpi::cWork* cAbstractBoundCall::createWork(cAbstractBoundCall* call) {
  cCallWork* work;
  try {
    work = new cCallWork(call);
  } catch (...) {
    delete call;
    throw;
  }
  work->start(0, qpi::cWork::SingleTask);
  return work;
}

}  // namespace qrmi
