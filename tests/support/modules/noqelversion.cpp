// A module without qelVersion.
#include "qelcore/qcs/cmodulesections.h"

QEL_MODULE_SECTION void moduleInitPlugIn(qcs::cAbstractPlugIn** result, qsa::cReferenceFrame&) { *result = nullptr; }
QEL_MODULE_SECTION void moduleVersion(unsigned int& major, unsigned int& minor) {
  major = 1;
  minor = 0;
}
