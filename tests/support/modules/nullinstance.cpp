// A module whose init sections make no instance.
#include "qelcore/qcs/cmodulesections.h"

QEL_MODULE_VERSION(1, 0)

QEL_MODULE_SECTION void moduleInitComponent(qcs::cAbstractComponent** result, qcs::cModuleMgr&,
                                            qsa::cReferenceFrame&) {
  *result = nullptr;
}

QEL_MODULE_SECTION void moduleInitPlugIn(qcs::cAbstractPlugIn** result, qsa::cReferenceFrame&) { *result = nullptr; }
