/// \class qcs::cMatchedDependency
/// The match of an interface dependency: the location of the matched
/// component and whether the match holds.
///
/// \code
///   qcs::cMatchedDependency m;
///   m.set(provider.location());   // valid
///   m.invalidate();               // the location stays, location() now throws
/// \endcode
#ifndef QELCORE_QCS_CMATCHEDDEPENDENCY_H
#define QELCORE_QCS_CMATCHEDDEPENDENCY_H

#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/qelexport.h"

namespace qcs {

class QEL_EXPORT cMatchedDependency {
public:
  /// An empty location (no host, pid 0), not valid.
  cMatchedDependency();

  /// Copies the location and makes the match valid.
  void set(const cComponentLocation& location);
  /// Clears the valid flag only.
  void invalidate() { mbValid = false; }
  /// Whether the match holds.
  bool valid() const { return mbValid; }
  /// The matched location; "Unmatched interface!" when the match is not valid.
  const cComponentLocation& location() const;

private:
  cComponentLocation mLocation;
  bool mbValid;
};

}  // namespace qcs

#endif
