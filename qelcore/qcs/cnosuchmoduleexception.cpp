#include "qelcore/qcs/cnosuchmoduleexception.h"

#include "qelcore/qcs/ccomponentlocation.h"

namespace qcs {

namespace {
qucs::cLIMessage notFound(const qstd::cAsciiString& what) {
  return qucs::cLIMessage("$QTR$Module (%addr%) not found!") << what;
}
}  // namespace

cNoSuchModuleException::cNoSuchModuleException(const cComponentAddr& address, const char* file, unsigned int line)
    : tException(notFound(address.toString()), file, line), mAddress(address) {}

cNoSuchModuleException::cNoSuchModuleException(const cComponentLocation& location, const char* file, unsigned int line)
    : tException(notFound(location.toString()), file, line) {}

cNoSuchModuleException::cNoSuchModuleException(const qstd::cAsciiString& name, const char* file, unsigned int line)
    : tException(notFound(name), file, line) {}

}  // namespace qcs
