// The Windows side of cPlatform: the factories and the system queries.
#include "qelcore/pi/cplatform.h"

#include <winsock2.h>
// winsock2.h must come before windows.h, hence the comment between them.
#include <process.h>
#include <shlobj.h>
#include <windows.h>

#include "qelcore/pi/cpiexceptions.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32classloader.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32aioprocessevents.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32fsimpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32muteximpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32platforminfo.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32processevents.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32socketimpl.h"
#include "qelcore/pi/platform/dependend/native_win32/cwin32threadimpl.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

namespace {

qucs::cString specialFolder(int id) {
  WCHAR path[MAX_PATH + 1];
  if (FAILED(::SHGetFolderPathW(nullptr, id, nullptr, 0, path))) cPIExceptions::throwNoOsPath(__FILE__, __LINE__);
  path[MAX_PATH] = 0;
  return qucs::cString(reinterpret_cast<const wchar_t*>(path));
}

}  // namespace

qstd::tAutoPtr<cAbstractRunnableImpl> cPlatform::createThread(void (*fn)(void*), void* arg) {
  return qstd::tAutoPtr<cAbstractRunnableImpl>(new cWin32ThreadImpl(fn, arg));
}

qstd::tAutoPtr<cAbstractMutexImpl> cPlatform::createMutexImpl() {
  return qstd::tAutoPtr<cAbstractMutexImpl>(new cWin32MutexImpl);
}

qstd::tAutoPtr<cAbstractPlatformInfo> cPlatform::createPlatformInfo() {
  return qstd::tAutoPtr<cAbstractPlatformInfo>(new cWin32PlatformInfo);
}

qstd::tAutoPtr<cAbstractProcessEvents> cPlatform::createProcessEvents() {
  return qstd::tAutoPtr<cAbstractProcessEvents>(new cWin32ProcessEvents);
}

qstd::tAutoPtr<cAbstractProcessEvents> cPlatform::createAIOProcessEvents() {
  return qstd::tAutoPtr<cAbstractProcessEvents>(new cWin32AIOProcessEvents);
}

qstd::tAutoPtr<cAbstractSocketImpl> cPlatform::createSocketImpl() {
  return qstd::tAutoPtr<cAbstractSocketImpl>(new cWin32SocketImpl);
}

qstd::tAutoPtr<cAbstractClassLoader> cPlatform::createClassLoader(const qucs::cString& file) {
  return qstd::tAutoPtr<cAbstractClassLoader>(new cWin32ClassLoader(file));
}

qucs::cString cPlatform::moduleDirectory() {
  HMODULE self = nullptr;
  WCHAR path[MAX_PATH + 1];
  DWORD length = 0;
  if (::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(&cPlatform::moduleDirectory), &self))
    length = ::GetModuleFileNameW(self, path, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return qucs::cString("..\\lib\\qelcore\\modules");
  while (length > 0 && path[length - 1] != L'\\' && path[length - 1] != L'/') --length;
  path[length] = 0;
  return qucs::cString(reinterpret_cast<const wchar_t*>(path)) + "..\\lib\\qelcore\\modules";
}

qstd::tAutoPtr<qio::cAbstractFsImpl> cPlatform::createFsImpl(qio::cFs&) {
  return qstd::tAutoPtr<qio::cAbstractFsImpl>(new cWin32FsImpl);
}

void cPlatform::yield() { ::Sleep(1); }

unsigned int cPlatform::pid() { return static_cast<unsigned int>(::_getpid()); }

qstd::cAsciiString cPlatform::hostname() {
  WSADATA data;
  if (::WSAStartup(MAKEWORD(2, 2), &data) != 0) return "unknown";
  char name[1025];
  const int rc = ::gethostname(name, 1024);
  ::WSACleanup();
  if (rc != 0) return "unknown";
  name[1024] = 0;
  return name;
}

qucs::cString cPlatform::homeDirectory() { return specialFolder(5); }

qucs::cString cPlatform::osDirectory() { return specialFolder(36); }

qucs::cString cPlatform::applicationsDirectory() { return specialFolder(38); }

char cPlatform::osSpecificPathDelimiter() { return '\\'; }

qstd::cAsciiString cPlatform::osFileIOErrorString(int code) {
  LPSTR buffer = nullptr;
  const DWORD length =
      ::FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(code), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                       reinterpret_cast<LPSTR>(&buffer), 0, nullptr);
  qstd::cAsciiString result;
  if (length == 0 || !buffer) {
    result = "Unable to get error string!";
  } else {
    for (DWORD i = 0; i < length; ++i)
      if (buffer[i] != '\n' && buffer[i] != '\r') result += buffer[i];
  }
  if (buffer) ::LocalFree(buffer);
  if (result.size() == 0) result.setNum32(code);
  return result;
}

void cPlatform::buildChecks() {
  QEL_ASSERT(sizeof(WCHAR) == 2, "pi/cplatform");
  QEL_ASSERT(sizeof(wchar_t) == 2, "pi/cplatform");
  QEL_ASSERT(sizeof(int) == 4, "pi/cplatform");
  QEL_ASSERT(sizeof(long long) == 8, "pi/cplatform");
}

}  // namespace qpi
