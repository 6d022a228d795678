#include "qelcore/qce/cabstractsaextension.h"

namespace qce {

cAbstractSAExtension::~cAbstractSAExtension() {}

}  // namespace qce
