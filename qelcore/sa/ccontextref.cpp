#include "qelcore/sa/ccontextref.h"

#include "qelcore/sa/csaexceptions.h"

namespace qsa {

cAbstractContextData* cContextRef::unguardImpl() {
  if (!mpImpl) cSAExceptions::throwContextRefNoImpl();
  cAbstractContextData* pImpl = mpImpl;
  mpImpl = 0;
  return pImpl;
}

}  // namespace qsa
