#include "qelcore/rmi/cabstractrmifactory.h"

namespace qrmi {

cAbstractRMIFactory::~cAbstractRMIFactory() {}

}  // namespace qrmi
