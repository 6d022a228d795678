#include "qelcore/pi/platform/dependend/native_posix/cposixwatchimpl.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

#ifdef __linux__
#include <sys/inotify.h>
#endif

#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/detail/cnamecodec.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixfileinfoimpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixname.h"

namespace qpi {

#ifdef __linux__

qio::cAbstractWatchImpl* cPosixWatchImpl::create(const qio::cPath& path) {
  qio::cFileAttributes a;
  cPosixName name(path, "watch");
  const bool directory = cPosixFileInfoImpl::read(name.c_str(), path, a, "watch") && a.isDirectory();
  const int fd = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (fd < 0) return nullptr;
  const unsigned int mask = IN_CREATE | IN_DELETE | IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB | IN_MOVED_FROM |
                            IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;
  int watch;
  if (directory) {
    watch = ::inotify_add_watch(fd, name.c_str(), mask);
  } else {
    // The directory that holds the name: a file replaced by a rename stays watched.
    qio::cPath parent = path.parent();
    if (parent.isEmpty()) parent = qio::cPath(".");
    cPosixName dir(parent, "watch");
    watch = ::inotify_add_watch(fd, dir.c_str(), mask & ~(IN_DELETE_SELF | IN_MOVE_SELF));
  }
  if (watch < 0) {
    ::close(fd);
    return nullptr;
  }
  return new cPosixWatchImpl(fd, directory, directory ? qucs::cString() : path.fileName());
}

cPosixWatchImpl::cPosixWatchImpl(int fd, bool directory, const qucs::cString& name)
    : miFd(fd), mbDirectory(directory), mName(name) {}

cPosixWatchImpl::~cPosixWatchImpl() { ::close(miFd); }

bool cPosixWatchImpl::readChanges(cSink& sink) {
  alignas(struct inotify_event) char buffer[8192];
  bool complete = true;
  qucs::cString name;
  for (;;) {
    const ssize_t got = ::read(miFd, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;  // EAGAIN: nothing more waits
    for (ssize_t at = 0; at + static_cast<ssize_t>(sizeof(struct inotify_event)) <= got;) {
      const struct inotify_event* e = reinterpret_cast<const struct inotify_event*>(buffer + at);
      at += static_cast<ssize_t>(sizeof(struct inotify_event) + e->len);
      if (e->mask & IN_Q_OVERFLOW) {
        complete = false;
        continue;
      }
      name.truncate(0);
      if (e->len) qio::detail::cNameCodec::decode(e->name, static_cast<unsigned int>(std::strlen(e->name)), name);
      if (e->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) {
        // The watched directory went; the system watches it no more.
        if (mbDirectory && (e->mask & (IN_DELETE_SELF | IN_MOVE_SELF))) sink.changed(Removed, qucs::cString());
        continue;
      }
      if (!mbDirectory) {
        if (!(name == mName)) continue;
        name.truncate(0);
      }
      if (e->mask & (IN_CREATE | IN_MOVED_TO))
        sink.changed(Created, name);
      else if (e->mask & (IN_DELETE | IN_MOVED_FROM))
        sink.changed(Removed, name);
      else
        sink.changed(Modified, name);
    }
  }
  return complete;
}

#else

qio::cAbstractWatchImpl* cPosixWatchImpl::create(const qio::cPath&) { return nullptr; }

cPosixWatchImpl::cPosixWatchImpl(int fd, bool directory, const qucs::cString& name)
    : miFd(fd), mbDirectory(directory), mName(name) {}

cPosixWatchImpl::~cPosixWatchImpl() {}

bool cPosixWatchImpl::readChanges(cSink&) { return true; }

#endif

}  // namespace qpi
