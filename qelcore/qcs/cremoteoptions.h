// The settings that remote component connections share: the secret with
// which both ends authenticate, and the limits that keep a hostile or broken
// peer from making this process allocate or wait without bound.
//
//   qcs::cRemoteOptions options;
//   options.loadSecretFile("/etc/myapp/remote.secret");   // readable by its owner only
//   options.setCallTimeout(5000);                         // milliseconds
//
// What the connections protect: only peers that know the secret get past the
// handshake (a challenge and response over random numbers of both ends, so
// that a recorded handshake cannot be replayed), and the secret itself never
// travels. What they do not protect: nothing is encrypted and, after the
// handshake, frames are not signed, so anybody who can read or change the
// traffic sees every call and can inject into an established connection.
// Across networks that are not trusted, run the connection through an
// encrypting tunnel (a VPN or an SSH port forward) and keep the server on the
// loopback address.
#ifndef QELCORE_QCS_CREMOTEOPTIONS_H
#define QELCORE_QCS_CREMOTEOPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qucs {
class cString;
}

namespace qcs {

/// Secret and limits of remote component connections (a plain value).
class QEL_EXPORT cRemoteOptions {
public:
  /// Default limits, no secret yet.
  cRemoteOptions();
  /// Overwrites the secret's bytes before they are freed.
  ~cRemoteOptions();
  /// Copies the secret and the limits.
  cRemoteOptions(const cRemoteOptions& other);
  /// Copies the secret and the limits.
  cRemoteOptions& operator=(const cRemoteOptions& other);

  /// Uses `size` bytes at `data` as the shared secret. An empty secret is
  /// refused (a bug exception).
  void setSecret(const char* data, unsigned int size);
  /// Reads the shared secret from a file; one trailing line break is dropped.
  /// On POSIX systems a file that its group or others may read is refused
  /// (a runtime exception) before it is read. On Windows the file's access
  /// list is not examined: keep the file in the user's profile. An empty
  /// file or one longer than 4096 bytes is refused too.
  void loadSecretFile(const qucs::cString& path);
  /// Whether a secret has been set.
  bool hasSecret() const { return !msSecret.empty(); }
  /// The secret's bytes.
  const qstd::cAsciiString& secret() const { return msSecret; }

  /// Largest frame accepted from a peer, in bytes (default 1 MiB). A peer
  /// announcing a longer one is disconnected before anything is allocated
  /// for it.
  void setMaxFrameSize(unsigned int bytes) { miMaxFrameSize = bytes; }
  /// The frame size limit in bytes.
  unsigned int maxFrameSize() const { return miMaxFrameSize; }
  /// Most calls that may wait for their results on one connection (default
  /// 64); one more fails at once with cRMIException.
  void setMaxPendingCalls(unsigned int calls) { miMaxPendingCalls = calls; }
  /// The limit of waiting calls per connection.
  unsigned int maxPendingCalls() const { return miMaxPendingCalls; }
  /// How long a remote slot call waits for its result, in milliseconds
  /// (default 30000).
  void setCallTimeout(unsigned int milliseconds) { miCallTimeout = milliseconds; }
  /// The call timeout in milliseconds.
  unsigned int callTimeout() const { return miCallTimeout; }
  /// How long a peer may take from connecting to proving the secret, in
  /// milliseconds (default 10000); then the connection is dropped.
  void setHandshakeTimeout(unsigned int milliseconds) { miHandshakeTimeout = milliseconds; }
  /// The handshake timeout in milliseconds.
  unsigned int handshakeTimeout() const { return miHandshakeTimeout; }
  /// Most components one peer may announce (default 1024).
  void setMaxComponents(unsigned int components) { miMaxComponents = components; }
  /// The limit of components per peer.
  unsigned int maxComponents() const { return miMaxComponents; }
  /// Most bytes that may wait to be written to a peer (default 16 MiB). A
  /// peer that stops reading while this process keeps sending (results,
  /// signal emissions) is disconnected when its backlog would pass this,
  /// instead of making the process buffer without bound.
  void setMaxSendBacklog(unsigned int bytes) { miMaxSendBacklog = bytes; }
  /// The send backlog limit in bytes.
  unsigned int maxSendBacklog() const { return miMaxSendBacklog; }

private:
  qstd::cAsciiString msSecret;
  unsigned int miMaxFrameSize;
  unsigned int miMaxPendingCalls;
  unsigned int miCallTimeout;
  unsigned int miHandshakeTimeout;
  unsigned int miMaxComponents;
  unsigned int miMaxSendBacklog;
};

}  // namespace qcs

#endif
