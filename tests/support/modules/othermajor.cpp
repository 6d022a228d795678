// A plug-in module built against another major version of the library.
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cmodulesections.h"

namespace {

class cOldPlugIn : public qcs::cAbstractPlugIn {
public:
  explicit cOldPlugIn(qsa::cReferenceFrame& frame) : cAbstractPlugIn(frame) {}
};

}  // namespace

QEL_MODULE_SECTION void moduleVersion(unsigned int& major, unsigned int& minor) {
  major = 1;
  minor = 0;
}
QEL_MODULE_SECTION void qelVersion(unsigned int& major, unsigned int& minor) {
  major = QELCORE_VERSION_MAJOR + 1;
  minor = 4;
}
QEL_MODULE_PLUGIN(cOldPlugIn)
