#include "qelcore/qce/cabstractendecextension.h"

namespace qce {

cAbstractEnDecExtension::~cAbstractEnDecExtension() {}

}  // namespace qce
