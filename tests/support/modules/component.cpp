// A module with a component only: moduleInitComponent, moduleVersion 3.7 and
// qelVersion.
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cmodulesections.h"

namespace {

class cModuleComponent : public qcs::cAbstractComponent {
public:
  cModuleComponent(qcs::cModuleMgr& mgr, qsa::cReferenceFrame& frame) : cAbstractComponent(mgr, frame) {
    moduleInfo().setName("component");
  }
};

}  // namespace

QEL_MODULE_VERSION(3, 7)
QEL_MODULE_COMPONENT(cModuleComponent)
