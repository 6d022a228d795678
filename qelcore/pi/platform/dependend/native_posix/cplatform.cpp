// The POSIX side of cPlatform: the factories and the system queries.
#include "qelcore/pi/cplatform.h"

#include <cerrno>
#include <dlfcn.h>
#include <cstdlib>
#include <limits.h>
#include <pwd.h>
#include <string.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>
#include <vector>

#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixclassloader.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixaioprocessevents.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixfsimpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixmuteximpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixplatforminfo.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixprocessevents.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixsocketimpl.h"
#include "qelcore/pi/platform/dependend/native_posix/cposixthreadimpl.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

// strerror_r comes in two flavours; both end up here.
[[maybe_unused]] const char* errorText(int rc, const char* buffer) { return rc == 0 ? buffer : nullptr; }
[[maybe_unused]] const char* errorText(const char* text, const char*) { return text; }

qucs::cString fromUTF8(const char* text) {
  qucs::cString s;
  s.fromUTF8(qstd::tArray<char>(text, static_cast<unsigned int>(::strlen(text))));
  return s;
}

}  // namespace

qstd::tAutoPtr<cAbstractRunnableImpl> cPlatform::createThread(void (*fn)(void*), void* arg) {
  return qstd::tAutoPtr<cAbstractRunnableImpl>(new cPosixThreadImpl(fn, arg));
}

qstd::tAutoPtr<cAbstractMutexImpl> cPlatform::createMutexImpl() {
  return qstd::tAutoPtr<cAbstractMutexImpl>(new cPosixMutexImpl);
}

qstd::tAutoPtr<cAbstractPlatformInfo> cPlatform::createPlatformInfo() {
  return qstd::tAutoPtr<cAbstractPlatformInfo>(new cPosixPlatformInfo);
}

qstd::tAutoPtr<cAbstractProcessEvents> cPlatform::createProcessEvents() {
  return qstd::tAutoPtr<cAbstractProcessEvents>(new cPosixProcessEvents);
}

qstd::tAutoPtr<cAbstractProcessEvents> cPlatform::createAIOProcessEvents() {
  return qstd::tAutoPtr<cAbstractProcessEvents>(new cPosixAIOProcessEvents);
}

qstd::tAutoPtr<cAbstractSocketImpl> cPlatform::createSocketImpl() {
  return qstd::tAutoPtr<cAbstractSocketImpl>(new cPosixSocketImpl);
}

qstd::tAutoPtr<cAbstractClassLoader> cPlatform::createClassLoader(const qucs::cString& file) {
  return qstd::tAutoPtr<cAbstractClassLoader>(new cPosixClassLoader(file));
}

qucs::cString cPlatform::moduleDirectory() {
  Dl_info info;
  if (::dladdr(reinterpret_cast<void*>(&cPlatform::moduleDirectory), &info) == 0 || !info.dli_fname)
    return qucs::cString("qelcore/modules");
  qucs::cString dir = fromUTF8(info.dli_fname);
  unsigned int end = dir.size();
  while (end > 0 && dir[end - 1] != '/') --end;
  dir.setSize(end);
  return dir + "qelcore/modules";
}

qstd::tAutoPtr<qio::cAbstractFsImpl> cPlatform::createFsImpl(qio::cFs&) {
  return qstd::tAutoPtr<qio::cAbstractFsImpl>(new cPosixFsImpl);
}

void cPlatform::yield() {
  struct timespec ms = {0, 1000000l};
  ::nanosleep(&ms, nullptr);
}

unsigned int cPlatform::pid() { return static_cast<unsigned int>(::getpid()); }

qstd::cAsciiString cPlatform::hostname() {
  char name[1025];
  if (::gethostname(name, 1024) != 0) return "unknown";
  name[1024] = 0;
  return name;
}

qucs::cString cPlatform::homeDirectory() {
  if (const char* home = std::getenv("HOME"))
    if (*home) return fromUTF8(home);
  long size = ::sysconf(_SC_GETPW_R_SIZE_MAX);
  std::vector<char> buffer(size > 0 ? static_cast<std::size_t>(size) : 16384u);
  struct passwd entry;
  struct passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found || !found->pw_dir)
    cPIExceptions::throwNoOsPath(__FILE__, __LINE__);
  return fromUTF8(found->pw_dir);
}

qucs::cString cPlatform::osDirectory() { return qucs::cString("/usr"); }

qucs::cString cPlatform::applicationsDirectory() { return qucs::cString("/opt"); }

char cPlatform::osSpecificPathDelimiter() { return '/'; }

qstd::cAsciiString cPlatform::osFileIOErrorString(int code) {
  char buffer[512];
  buffer[0] = 0;
  const char* text = errorText(::strerror_r(code, buffer, sizeof buffer), buffer);
  // glibc and musl answer unknown codes with a made-up text.
  if (!text || !*text || ::strncmp(text, "Unknown error", 13) == 0) return "Unable to get error string!";
  qstd::cAsciiString result;
  for (const char* p = text; *p; ++p)
    if (*p != '\n' && *p != '\r') result += *p;
  if (result.size() == 0) result.setNum32(code);
  return result;
}

void cPlatform::buildChecks() {
  QEL_ASSERT(sizeof(char) == 1, "pi/cplatform");
  QEL_ASSERT(sizeof(short) == 2, "pi/cplatform");
  QEL_ASSERT(sizeof(int) == 4, "pi/cplatform");
  QEL_ASSERT(sizeof(long long) == 8, "pi/cplatform");
  QEL_ASSERT(sizeof(wchar_t) == 4, "pi/cplatform");
  QEL_ASSERT(sizeof(void*) >= 4, "pi/cplatform");
}

}  // namespace qpi
