/// \class qcs::cNoSuchModuleException
/// No component at an address, a location or under a module context name.
#ifndef QELCORE_QCS_CNOSUCHMODULEEXCEPTION_H
#define QELCORE_QCS_CNOSUCHMODULEEXCEPTION_H

#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/texception.h"

namespace qcs {

class cComponentLocation;

class QEL_EXPORT cNoSuchModuleException : public qstd::tException<cNoSuchModuleException, qstd::cRuntimeException> {
public:
  /// "cNoSuchModuleException", the name in the exception registry.
  static const char* staticTypeName() { return "cNoSuchModuleException"; }

  cNoSuchModuleException() {}
  ///@{
  /// "Module (%addr%) not found!" with the address, location or name text.
  cNoSuchModuleException(const cComponentAddr& address, const char* file, unsigned int line);
  cNoSuchModuleException(const cComponentLocation& location, const char* file, unsigned int line);
  cNoSuchModuleException(const qstd::cAsciiString& name, const char* file, unsigned int line);
  ///@}

  /// The address it was built from; an invalid address otherwise.
  const cComponentAddr& address() const { return mAddress; }

private:
  cComponentAddr mAddress;
};

}  // namespace qcs

#endif
