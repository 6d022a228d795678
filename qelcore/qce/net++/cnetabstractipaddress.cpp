#include "qelcore/qce/net++/cnetabstractipaddress.h"

namespace qce {

cNetAbstractIPAddress::~cNetAbstractIPAddress() {}

}  // namespace qce
