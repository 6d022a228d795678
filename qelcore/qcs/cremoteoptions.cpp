#include "qelcore/qcs/cremoteoptions.h"

#include "qelcore/io/cfile.h"
#include "qelcore/io/cfileattributes.h"
#include "qelcore/io/cfileinfo.h"
#include "qelcore/io/cpath.h"
#include "qelcore/pi/cplatform.h"
#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/detail/csha256.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cstring.h"

namespace qcs {

namespace {
enum : unsigned int { MaxSecretFile = 4096 };
}

cRemoteOptions::cRemoteOptions()
    : miMaxFrameSize(1u << 20),
      miMaxPendingCalls(64),
      miCallTimeout(30000),
      miHandshakeTimeout(10000),
      miMaxComponents(1024),
      miMaxSendBacklog(16u << 20) {}

cRemoteOptions::~cRemoteOptions() {
  if (!msSecret.empty()) detail::wipe(const_cast<char*>(msSecret.c_str()), msSecret.size());
}

cRemoteOptions::cRemoteOptions(const cRemoteOptions& other) = default;
cRemoteOptions& cRemoteOptions::operator=(const cRemoteOptions& other) = default;

void cRemoteOptions::setSecret(const char* data, unsigned int size) {
  QEL_ASSERT(data != nullptr && size > 0, "qcs/cremoteoptions");
  msSecret = qstd::cAsciiString(data, size);
}

void cRemoteOptions::loadSecretFile(const qucs::cString& path) {
  qio::cFileInfo info{qio::cPath(path)};
  if (!info.isFile()) cQCSExceptions::throwSecretFile(path, "not a file");
  const unsigned int others = qio::cFileAttributes::GroupRead | qio::cFileAttributes::GroupWrite |
                              qio::cFileAttributes::OthersRead | qio::cFileAttributes::OthersWrite;
  if (qpi::cPlatform::permissionsShowReaders() && (info.permissions() & others) != 0)
    cQCSExceptions::throwSecretFile(path, "group or others may read or change it");
  if (info.size() > MaxSecretFile) cQCSExceptions::throwSecretFile(path, "longer than 4096 bytes");
  qstd::tArray<char> bytes;
  {
    qio::cFile file(qio::cPath(path), qio::cFile::Read);
    file.readAll(bytes);
  }
  unsigned int size = bytes.size();
  if (size > MaxSecretFile) size = 0;
  if (size > 0 && bytes[size - 1] == '\n') --size;
  if (size > 0 && bytes[size - 1] == '\r') --size;
  if (size == 0) {
    detail::wipe(bytes.data(true), bytes.size());
    cQCSExceptions::throwSecretFile(path, "empty or too long");
  }
  setSecret(bytes.data(), size);
  detail::wipe(bytes.data(true), bytes.size());
}

}  // namespace qcs
