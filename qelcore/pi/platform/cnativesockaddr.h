// The platform's socket addresses (struct sockaddr_in, sockaddr_in6) built
// from and read into the library's address values. Implemented per
// platform; exported for the address modules built with the library.
#ifndef QELCORE_PI_PLATFORM_CNATIVESOCKADDR_H
#define QELCORE_PI_PLATFORM_CNATIVESOCKADDR_H

#include "qelcore/qelexport.h"

namespace qpi {

class QEL_EXPORT cNativeSockAddr {
public:
  // An IPv4 value holds the first part of the address in its lowest byte.
  // Returns the size written; 0 when `size` is too small.
  static unsigned int fromIPv4(unsigned int value, unsigned int port, void* buffer, unsigned int size);
  // False when `sockAddr` is no IPv4 socket address.
  static bool toIPv4(const void* sockAddr, unsigned int size, unsigned int& value, unsigned int& port);
  // IPv6: the 16 bytes of the address in network order.
  static unsigned int fromIPv6(const unsigned char* bytes, unsigned int port, void* buffer, unsigned int size);
  static bool toIPv6(const void* sockAddr, unsigned int size, unsigned char* bytes, unsigned int& port);
};

}  // namespace qpi

#endif
