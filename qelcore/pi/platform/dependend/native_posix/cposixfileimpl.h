// An open POSIX file descriptor. In atomic mode it writes a temporary file
// beside the target and renames it over the target on close().
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXFILEIMPL_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXFILEIMPL_H

#include "qelcore/io/cabstractfileimpl.h"
#include "qelcore/std/tarray.h"

namespace qpi {

class cPosixFileImpl : public qio::cAbstractFileImpl {
public:
  // Takes `fd` over.
  cPosixFileImpl(const qio::cPath& path, int fd);
  // Atomic mode: `fd` is open on the temporary file `tempName` (bytes with
  // terminator) beside the target `path`.
  cPosixFileImpl(const qio::cPath& path, int fd, const qstd::tArray<char>& tempName,
                 const qstd::tArray<char>& targetName);
  ~cPosixFileImpl() override;

  unsigned int read(char* p, unsigned int n) override;
  void write(const char* p, unsigned int n) override;
  void seek(unsigned long long pos) override;
  unsigned long long pos() override;
  unsigned long long size() override;
  void resize(unsigned long long size) override;
  void sync() override;
  void close() override;

private:
  void commit();

  int miFd;
  bool mbAtomic;
  qstd::tArray<char> mTempName;
  qstd::tArray<char> mTargetName;
};

}  // namespace qpi

#endif
