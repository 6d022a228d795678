#include "qelcore/sa/cabstractserializer.h"

#include "qelcore/pi/platform/cnativefilewriterimpl.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qsa {

cAbstractSerializer::~cAbstractSerializer() {}

void cAbstractSerializer::store(short value) { store(static_cast<int>(value)); }

void cAbstractSerializer::store(unsigned short value) { store(static_cast<unsigned int>(value)); }

void cAbstractSerializer::storeToFile(const qucs::cString& path) {
  qstd::tArrayRef<char> bytes = data();
  const int error = qpi::cNativeFileWriterImpl::writeFile(path, bytes.size() ? bytes.data() : 0, bytes.size());
  if (error != 0) qstd::cSTDExceptions::throwOSError(qstd::cAsciiString("storeToFile"), error, path);
}

}  // namespace qsa
