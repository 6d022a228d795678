// A module without moduleVersion.
#include "qelcore/qcs/cmodulesections.h"

QEL_MODULE_SECTION void moduleInitPlugIn(qcs::cAbstractPlugIn** result, qsa::cReferenceFrame&) { *result = nullptr; }
QEL_MODULE_SECTION void qelVersion(unsigned int& major, unsigned int& minor) {
  major = QELCORE_VERSION_MAJOR;
  minor = QELCORE_VERSION_MINOR;
}
