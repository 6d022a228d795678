#include "qelcore/qce/cabstractcoreextension.h"

namespace qce {

cAbstractCoreExtension::~cAbstractCoreExtension() {}

void cAbstractCoreExtension::provides(qstd::tVector<qstd::cAsciiString>&) const {}

}  // namespace qce
