// The body of cNativeSockAddr, the same on every platform once the system's
// socket headers are in: each platform's cnativesockaddr.cpp includes them
// and then this file.
#ifndef QELCORE_PI_PLATFORM_CNATIVESOCKADDRIMPL_H
#define QELCORE_PI_PLATFORM_CNATIVESOCKADDRIMPL_H

#include <cstring>

#include "qelcore/pi/platform/cnativesockaddr.h"

namespace qpi {

unsigned int cNativeSockAddr::fromIPv4(unsigned int value, unsigned int port, void* buffer, unsigned int size) {
  if (size < sizeof(sockaddr_in)) return 0;
  sockaddr_in sa;
  std::memset(&sa, 0, sizeof sa);
  sa.sin_family = AF_INET;
  sa.sin_port = htons(static_cast<unsigned short>(port));
  const unsigned char bytes[4] = {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8),
                                  static_cast<unsigned char>(value >> 16), static_cast<unsigned char>(value >> 24)};
  std::memcpy(&sa.sin_addr, bytes, 4);
  std::memcpy(buffer, &sa, sizeof sa);
  return sizeof sa;
}

bool cNativeSockAddr::toIPv4(const void* sockAddr, unsigned int size, unsigned int& value, unsigned int& port) {
  if (size < sizeof(sockaddr_in)) return false;
  sockaddr_in sa;
  std::memcpy(&sa, sockAddr, sizeof sa);
  if (sa.sin_family != AF_INET) return false;
  unsigned char bytes[4];
  std::memcpy(bytes, &sa.sin_addr, 4);
  value = bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<unsigned int>(bytes[3]) << 24;
  port = ntohs(sa.sin_port);
  return true;
}

unsigned int cNativeSockAddr::fromIPv6(const unsigned char* bytes, unsigned int port, void* buffer,
                                       unsigned int size) {
  if (size < sizeof(sockaddr_in6)) return 0;
  sockaddr_in6 sa;
  std::memset(&sa, 0, sizeof sa);
  sa.sin6_family = AF_INET6;
  sa.sin6_port = htons(static_cast<unsigned short>(port));
  std::memcpy(&sa.sin6_addr, bytes, 16);
  std::memcpy(buffer, &sa, sizeof sa);
  return sizeof sa;
}

bool cNativeSockAddr::toIPv6(const void* sockAddr, unsigned int size, unsigned char* bytes, unsigned int& port) {
  if (size < sizeof(sockaddr_in6)) return false;
  sockaddr_in6 sa;
  std::memcpy(&sa, sockAddr, sizeof sa);
  if (sa.sin6_family != AF_INET6) return false;
  std::memcpy(bytes, &sa.sin6_addr, 16);
  port = ntohs(sa.sin6_port);
  return true;
}

}  // namespace qpi

#endif
