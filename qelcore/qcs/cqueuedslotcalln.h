/// \class qcs::cQueuedSlotCallN
/// A slot call that hands every call on to another, typed slot call through a
/// work on a work queue: how a dependency's local interface reaches a public
/// slot of a provider that asked for its calls to run on its own queue
/// (cAbstractInterface::setCallQueue). Emitting only posts the work, from any
/// thread; the slot runs when the provider's queue gets to it, with copies of
/// the arguments, and its result is dropped (the emitter gets a default R).
///
/// The receiver is the provided interface. Works still waiting when this
/// connection ends (unbound, the signal or the provided interface gone) do
/// nothing when they run.
#ifndef QELCORE_QCS_CQUEUEDSLOTCALLN_H
#define QELCORE_QCS_CQUEUEDSLOTCALLN_H

#include <type_traits>

#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qcs/cforwardingslotcalln.h"
#include "qelcore/rmi/cabstractboundcall.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"
#include "qelcore/std/tautoptr.h"

namespace qcs {

template <class R, class... A>
class cQueuedSlotCallN : public cForwardingSlotCallN<R, A...> {
  static_assert((std::is_copy_constructible<std::decay_t<A>>::value && ...),
                "calls through a queue keep copies of their arguments");

public:
  /// The forwarding call this one builds on.
  typedef cForwardingSlotCallN<R, A...> tBase;
  /// The slot call that runs on the queue.
  typedef typename tBase::tTarget tTarget;

  /// `target` must belong to a public slot of `receiver`; `queue` must outlive
  /// the connection.
  cQueuedSlotCallN(qrmi::cConnectable& receiver, const tTarget& target, qpi::cWorkQueue& queue)
      : tBase(receiver, target), mpQueue(&queue), mpToken(nullptr) {}
  ~cQueuedSlotCallN() override {
    if (mpToken) qrmi::cSlotTargetToken::drop(&mpToken);
  }

  /// Posts the call; `result` is left as it is.
  void invoke(R&, A... args) const override { mpQueue->post(qstd::tAutoPtr<qpi::cWork>(createWork(args...))); }
  /// A work that makes the call with copies of the arguments; the caller owns it.
  qpi::cWork* createWork(A... args) const override {
    qrmi::cSlotTargetToken* token = qrmi::cSlotTargetToken::ensure(&mpToken);
    return qrmi::cAbstractBoundCall::createWork(new cCall(token, this->target(), args...));
  }

  /// The queue the calls are posted to.
  qpi::cWorkQueue& queue() const { return *mpQueue; }

private:
  /// One posted call with copies of its arguments.
  class cCall : public qrmi::cAbstractBoundCall {
  public:
    cCall(qrmi::cSlotTargetToken* token, const tTarget& target, A... args)
        : mpToken(token), mpTarget(&target), mArgs(args...) {
      mpToken->addRef();
    }
    ~cCall() override { mpToken->release(); }
    void call() override {
      if (!mpToken->alive()) return;
      const tTarget* target = mpTarget;
      mArgs.apply([target](auto&... args) {
        R result = R();
        target->invoke(result, args...);
      });
    }

  private:
    qrmi::cSlotTargetToken* mpToken;
    const tTarget* mpTarget;
    qrmi::detail::tBoundArgs<std::decay_t<A>...> mArgs;
  };

  qpi::cWorkQueue* mpQueue;
  mutable qrmi::cSlotTargetToken* mpToken;
};

}  // namespace qcs

#endif
