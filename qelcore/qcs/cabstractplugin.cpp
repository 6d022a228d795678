#include "qelcore/qcs/cabstractplugin.h"

#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qcs {

cAbstractPlugIn::cAbstractPlugIn(qsa::cReferenceFrame& frame) : cAbstractModule(frame) {}

cAbstractPlugIn::~cAbstractPlugIn() {}

bool cAbstractPlugIn::isCoreExtension() const { return false; }

const qce::cAbstractCoreExtension& cAbstractPlugIn::coreExtension() const {
  cQCSExceptions::throwNoCoreExtension(qucs::cString(moduleInfo().name(), '?'));
}

qstd::cAsciiString cAbstractPlugIn::pluginTypeName() { return "none"; }

}  // namespace qcs
