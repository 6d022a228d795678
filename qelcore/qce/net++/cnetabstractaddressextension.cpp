#include "qelcore/qce/net++/cnetabstractaddressextension.h"

namespace qce {

cNetAbstractAddressExtension::~cNetAbstractAddressExtension() {}

}  // namespace qce
