// The "Clock" interface, both sides of it. A provider publishes cClockApi:
// its public slots are what others may call. A user holds a cClockUse: one
// signal per slot it calls, bound to the provider's slots when its
// dependency is matched.
#ifndef EXAMPLES_GETTING_STARTED_CLOCKAPI_H
#define EXAMPLES_GETTING_STARTED_CLOCKAPI_H

#include "qelcore/qelcore.h"

// The providing side: public slot "now" answers the seconds since midnight.
class cClockApi : public qcs::cAbstractInterface {
public:
  cClockApi()
      : cAbstractInterface(
            qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "Clock", "example", 1, "the time of day")) {
    qrmi::registerPublicSlot(*this, &cClockApi::sltNow, "now");
  }
  unsigned int sltNow() { return miSeconds += 60; }
  void connectInterface(qcs::cAbstractInterface&) override {}
  void disconnectInterface() override {}

  unsigned int miSeconds = 8 * 3600;
};

// The requiring side of the same name.
class cClockUse : public qcs::cAbstractInterface {
public:
  cClockUse()
      : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eRequiredInterface, "Clock", "example", 1, "")) {}
  qrmi::localSignal0<unsigned int> now;
  void connectInterface(qcs::cAbstractInterface& clock) override { bindSlot(now, clock, "now"); }
  void disconnectInterface() override { unbindSlots(); }
};

#endif
