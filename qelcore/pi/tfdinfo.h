/// \struct qpi::tFdInfo
/// One descriptor that an asynchronous I/O work waits on, with the events it
/// waits for (tFdInfo::Read, tFdInfo::Write or both).
#ifndef QELCORE_PI_TFDINFO_H
#define QELCORE_PI_TFDINFO_H

namespace qpi {

struct tFdInfo {
  /// The events, to be or-ed.
  enum : unsigned int { Read = 0x1, Write = 0x2 };

  int fd;               ///< the descriptor (a socket on Windows)
  unsigned int events;  ///< Read, Write or both

  /// Same descriptor, same events.
  bool operator==(const tFdInfo& other) const { return fd == other.fd && events == other.events; }
  /// Not operator==.
  bool operator!=(const tFdInfo& other) const { return fd != other.fd || events != other.events; }
};

}  // namespace qpi

#endif
