// A component with an interface, in a module file of its own (libclock.so,
// clock.dll). Load it with mgr.loadComponent(file, qcs::cComponentAddr()).
#include "qelcore/qcs/cmodulesections.h"

#include "clockapi.h"

class cClock : public qcs::cAbstractComponent {
public:
  cClock(qcs::cModuleMgr& mgr, qsa::cReferenceFrame& frame) : cAbstractComponent(mgr, frame) {
    moduleInfo().setName("clock");
    moduleInfo().setAuthor("example");
    moduleInfo().setDescription("tells the time (interface Clock)");
    addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cClockApi));
  }
};

QEL_MODULE_VERSION(1, 0)      // moduleVersion 1.0, and the library version built against
QEL_MODULE_COMPONENT(cClock)  // moduleInitComponent: new cClock(mgr, frame)
