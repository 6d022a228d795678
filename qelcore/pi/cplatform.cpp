// The platform-neutral part of cPlatform; the factories and the system
// queries live in the platform directory's cplatform.cpp.
#include "qelcore/pi/cplatform.h"

#include <cstdlib>

namespace qpi {

qstd::cAsciiString cPlatform::getEnv(const qstd::cAsciiString& name) {
  const char* value = std::getenv(name.c_str());
  return qstd::cAsciiString(value ? value : "");
}

qstd::cAsciiString cPlatform::userName() {
  const char* user = std::getenv("USER");
  return qstd::cAsciiString(user ? user : "unknown");
}

}  // namespace qpi
