#include "qelcore/io/cabstractfsimpl.h"

#include "qelcore/io/cfile.h"
#include "qelcore/io/cioexceptions.h"
#include "qelcore/std/tarray.h"

namespace qio {

cAbstractFsImpl::cAbstractFsImpl() : miRefs(0) {}

cAbstractFsImpl::~cAbstractFsImpl() {}

void cAbstractFsImpl::addRef() const { __atomic_add_fetch(&miRefs, 1u, __ATOMIC_RELAXED); }

bool cAbstractFsImpl::releaseRef() const { return __atomic_sub_fetch(&miRefs, 1u, __ATOMIC_ACQ_REL) == 0; }

void cAbstractFsImpl::copyFile(const cPath& from, const cPath& to, bool replace) {
  cFileAttributes source;
  if (!attributes(from, source)) cIOExceptions::throwError(cIOException::NotFound, "copy", from, to);
  if (source.isDirectory()) cIOExceptions::throwError(cIOException::IsADirectory, "copy", from, to);
  if (!replace) {
    cFileAttributes target;
    if (attributes(to, target) || target.isSymLink())
      cIOExceptions::throwError(cIOException::AlreadyExists, "copy", from, to);
  }
  qstd::tAutoPtr<cAbstractFileImpl> in = open(from, cFile::Read);
  // Through an atomic save: a failed copy leaves the target as it was, and
  // a file copied onto itself stays whole.
  qstd::tAutoPtr<cAbstractFileImpl> out = open(to, cFile::Overwrite | cFile::Atomic);
  qstd::tArray<char> block(256u * 1024u);
  while (const unsigned int n = in->read(block.data(), block.size())) out->write(block.data(), n);
  in->close();
  out->close();
  setPermissions(to, source.permissions());
}

cPath cAbstractFsImpl::currentDirectory() { return cPath("/"); }

cPath cAbstractFsImpl::tempDirectory() {
  cIOExceptions::throwError(cIOException::Unsupported, "tempDirectory", cPath());
}

qstd::tAutoPtr<cAbstractWatchImpl> cAbstractFsImpl::createWatch(const cPath&) {
  return qstd::tAutoPtr<cAbstractWatchImpl>();
}

}  // namespace qio
