// A plug-in module that only needs to be loaded and kept: a generic plug-in
// named "generic".
#include "qelcore/qce/cgenericplugin.h"
#include "qelcore/qcs/cmodulesections.h"

namespace {

class cKeptPlugIn : public qce::cGenericPlugIn {
public:
  explicit cKeptPlugIn(qsa::cReferenceFrame& frame) : cGenericPlugIn(frame, "generic") {}
};

}  // namespace

QEL_MODULE_VERSION(1, 0)
QEL_MODULE_PLUGIN(cKeptPlugIn)
