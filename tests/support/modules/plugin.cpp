// A module with a plug-in only: moduleInitPlugIn, moduleVersion 1.2 and
// qelVersion.
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cmodulesections.h"

namespace {

class cModulePlugIn : public qcs::cAbstractPlugIn {
public:
  explicit cModulePlugIn(qsa::cReferenceFrame& frame) : cAbstractPlugIn(frame) { moduleInfo().setName("plugin"); }
  qstd::cAsciiString pluginTypeName() override { return "test"; }
};

}  // namespace

QEL_MODULE_VERSION(1, 2)
QEL_MODULE_PLUGIN(cModulePlugIn)
