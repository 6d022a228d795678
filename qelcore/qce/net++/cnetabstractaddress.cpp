#include "qelcore/qce/net++/cnetabstractaddress.h"

#include "qelcore/qce/cqceexceptions.h"

namespace qce {

cNetAbstractAddress::~cNetAbstractAddress() {}

cNetAbstractIPAddress* cNetAbstractAddress::isIPAddress() { return nullptr; }

const cNetAbstractIPAddress* cNetAbstractAddress::isIPAddress() const { return nullptr; }

cNetAbstractIPAddress& cNetAbstractAddress::ipAddress() {
  cNetAbstractIPAddress* ip = isIPAddress();
  if (!ip) cQCEExceptions::throwNotAnIPAddress();
  return *ip;
}

const cNetAbstractIPAddress& cNetAbstractAddress::ipAddress() const {
  const cNetAbstractIPAddress* ip = isIPAddress();
  if (!ip) cQCEExceptions::throwNotAnIPAddress();
  return *ip;
}

}  // namespace qce
