#include "qelcore/sa/cabstractserializer.h"

#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qsa {

cAbstractSerializer::~cAbstractSerializer() {}

void cAbstractSerializer::store(short value) { store(static_cast<int>(value)); }

void cAbstractSerializer::store(unsigned short value) { store(static_cast<unsigned int>(value)); }

void cAbstractSerializer::storeToFile(const qucs::cString& path) {
  qstd::tArrayRef<char> bytes = data();
  qio::cFs::system().writeAll(qio::cPath(path), bytes.size() ? bytes.data() : nullptr, bytes.size());
}

}  // namespace qsa
