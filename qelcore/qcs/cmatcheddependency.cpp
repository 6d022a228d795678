#include "qelcore/qcs/cmatcheddependency.h"

#include "qelcore/qcs/cqcsexceptions.h"

namespace qcs {

cMatchedDependency::cMatchedDependency()
    : mLocation(cComponentAddr(), qstd::cAsciiString(), qstd::cAsciiString(), 0), mbValid(false) {}

void cMatchedDependency::set(const cComponentLocation& location) {
  mLocation = location;
  mbValid = true;
}

const cComponentLocation& cMatchedDependency::location() const {
  if (!mbValid) cQCSExceptions::throwUnmatchedInterface();
  return mLocation;
}

}  // namespace qcs
