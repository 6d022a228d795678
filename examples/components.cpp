// Components: a clock that provides an interface, an alarm that depends on
// it, calls through the matched interface, and removal in dependency order.
#include <cstdio>

#include "qelcore/pi/csystem.h"
#include "qelcore/qelcore.h"

using qcs::cInterfaceDesc;
using qsa::piVoid;

namespace {

// The interface a clock provides: one public slot, "now".
class cClockApi : public qcs::cAbstractInterface {
public:
  cClockApi() : cAbstractInterface(cInterfaceDesc(cInterfaceDesc::eProvidedInterface, "Clock", "example", 1, "time")) {
    qrmi::registerPublicSlot(*this, &cClockApi::sltNow, "now");
  }
  unsigned int sltNow() { return miTicks += 60; }
  void connectInterface(cAbstractInterface&) override {}
  void disconnectInterface() override {}
  unsigned int miTicks = 0;
};

// How a user sees the clock: a signal per slot it calls.
class cClockUse : public qcs::cAbstractInterface {
public:
  cClockUse() : cAbstractInterface(cInterfaceDesc(cInterfaceDesc::eRequiredInterface, "Clock", "example", 1, "")) {}
  qrmi::localSignal0<unsigned int> now;
  void connectInterface(cAbstractInterface& clock) override { bindSlot(now, clock, "now"); }
  void disconnectInterface() override { unbindSlots(); }
};

class cClock : public qcs::cAbstractComponent {
public:
  explicit cClock(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
    addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cClockApi));
  }
  ~cClock() override { std::printf("  clock removed\n"); }
};

// Takes the first clock in the manager's list and keeps it.
class cAlarm : public qcs::cAbstractComponent {
public:
  explicit cAlarm(qcs::cModuleMgr& mgr)
      : cAbstractComponent(mgr), mClock(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {
    mClock.sigMatched.connect(*this, &cAlarm::sltClockFound);
  }
  ~cAlarm() override { std::printf("  alarm removed\n"); }
  piVoid sltClockFound(const qcs::cComponentAddr& clock) {
    std::printf("  alarm found a clock at %s; it is %u s\n", clock.toString().c_str(), mUse.now());
    return piVoid();
  }

private:
  cClockUse mUse;  // declared before the dependency that binds it
  qcs::cInterfaceDep mClock;
};

}  // namespace

int main() {
  std::printf("QELCore components\n");
  qce::cCoreExtensionMgr extensions;
  {
    qcs::cModuleMgr mgr(extensions);
    qcs::cAbstractComponent& clock =
        mgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cClock(mgr)), qcs::cComponentAddr());
    qcs::cAbstractComponent& alarm =
        mgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cAlarm(mgr)), qcs::cComponentAddr());
    alarm.addLocalRequiredComponent(&clock);  // the alarm holds on to the clock

    while (mgr.passRequested()) qpi::system().exec();  // announce, match

    clock.removeLater();  // the alarm, which requires the clock, goes first
    while (mgr.passRequested()) qpi::system().exec();
  }
  qpi::cSystem::cleanup();
  return 0;
}
