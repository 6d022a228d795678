// A consumer with a dependency, in a module file of its own (libalarm.so,
// alarm.dll). It wants the "Clock" interface from whichever component offers
// it first, and while it has one it rings every 100 ms: a periodic work on the
// main work queue that calls the clock through the matched interface.
#include <cstdio>

#include "qelcore/qcs/cmodulesections.h"

#include "clockapi.h"

class cAlarm : public qcs::cAbstractComponent {
public:
  cAlarm(qcs::cModuleMgr& mgr, qsa::cReferenceFrame& frame)
      : cAbstractComponent(mgr, frame), mClock(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {
    moduleInfo().setName("alarm");
    moduleInfo().setAuthor("example");
    moduleInfo().setDescription("rings with the time of the first clock it finds");
    mClock.sigMatched.connect(*this, &cAlarm::sltClockFound);
    mClock.sigUnmatched.connect(*this, &cAlarm::sltClockLost);
  }
  ~cAlarm() override { stopRinging(); }

  bool applicationCloseAdvisable(qpi::cAbstractQELApp&) override {
    std::printf("  alarm   agrees to close\n");
    return true;
  }
  void notifyShortlyRemove() override {
    std::printf("  alarm   will be removed shortly: stops ringing\n");
    stopRinging();
  }

  qsa::piVoid sltClockFound(const qcs::cComponentAddr& clock) {
    std::printf("  alarm   matched the clock at %s; rings every 100 ms\n", clock.toString().c_str());
    mRing = qpi::schedule(*this, &cAlarm::sltRing, 100, qpi::cWork::Periodic, "alarm ring");
    return qsa::piVoid();
  }
  qsa::piVoid sltClockLost() {
    std::printf("  alarm   lost its clock\n");
    stopRinging();
    return qsa::piVoid();
  }
  qsa::piVoid sltRing() {
    if (!mClock.match().valid()) return qsa::piVoid();  // the clock has just gone
    const unsigned int now = mUse.now();                // a call through the interface
    std::printf("  alarm   ring: the clock at %s says %02u:%02u\n", mClock.address().toString().c_str(), now / 3600,
                now / 60 % 60);
    return qsa::piVoid();
  }

private:
  void stopRinging() {
    if (!mRing.get()) return;
    qpi::unschedule(*mRing);
    mRing.reset();
  }

  cClockUse mUse;  // declared before the dependency that binds it
  qcs::cInterfaceDep mClock;
  qstd::tSharedObject<qpi::cWork> mRing;
};

QEL_MODULE_VERSION(1, 0)
QEL_MODULE_COMPONENT(cAlarm)
