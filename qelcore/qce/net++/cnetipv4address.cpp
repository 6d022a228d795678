#include "qelcore/qce/net++/cnetipv4address.h"

#include "qelcore/pi/platform/cnativesockaddr.h"

namespace qce {

cNetIPv4Address::~cNetIPv4Address() {}

void cNetIPv4Address::setAddress(unsigned int value, unsigned int port) {
  miValue = value;
  miPort = port & 0xFFFF;
}

void cNetIPv4Address::getAddress(unsigned int& value, unsigned int& port) const {
  value = miValue;
  port = miPort;
}

cNetAbstractAddress* cNetIPv4Address::clone() const { return new cNetIPv4Address(*this); }

bool cNetIPv4Address::equals(const cNetAbstractAddress& other) const {
  const cNetIPv4Address* same = dynamic_cast<const cNetIPv4Address*>(&other);
  return same && same->miValue == miValue && same->miPort == miPort;
}

unsigned int cNetIPv4Address::toSockAddr(void* buffer, unsigned int size) const {
  return qpi::cNativeSockAddr::fromIPv4(miValue, miPort, buffer, size);
}

bool cNetIPv4Address::fromSockAddr(const void* sockAddr, unsigned int size) {
  unsigned int value = 0, port = 0;
  if (!qpi::cNativeSockAddr::toIPv4(sockAddr, size, value, port)) return false;
  setAddress(value, port);
  return true;
}

}  // namespace qce
