#include "qelcore/qce/cgenericextension.h"

namespace qce {

cGenericExtension::cGenericExtension(const qstd::cAsciiString& name, ExtensionType type)
    : msName(name), meType(type) {}

cGenericExtension::~cGenericExtension() {}

}  // namespace qce
