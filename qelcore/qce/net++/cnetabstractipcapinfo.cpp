#include "qelcore/qce/net++/cnetabstractipcapinfo.h"

namespace qce {

cNetAbstractIPCapInfo::~cNetAbstractIPCapInfo() {}

}  // namespace qce
