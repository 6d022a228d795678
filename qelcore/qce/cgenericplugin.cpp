#include "qelcore/qce/cgenericplugin.h"

namespace qce {

cGenericPlugIn::cGenericPlugIn(qsa::cReferenceFrame& frame, const qstd::cAsciiString& name)
    : cAbstractPlugIn(frame), mExtension(name, cAbstractCoreExtension::eEnDec) {}

cGenericPlugIn::~cGenericPlugIn() {}

}  // namespace qce
