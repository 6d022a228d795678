/// \class qp::cSynchronizable
/// A base for objects that guard their own state with a locker.
///
/// \code
///   class cCounter : public qp::cSynchronizable {
///   public:
///     void add() { qp::cLocker::cLock guard(mutex().lock()); ++miCount; }
///   private:
///     int miCount = 0;
///   };
/// \endcode
#ifndef QELCORE_QP_CSYNCHRONIZABLE_H
#define QELCORE_QP_CSYNCHRONIZABLE_H

#include "qelcore/qelexport.h"
#include "qelcore/qp/clocker.h"

namespace qp {

class QEL_EXPORT cSynchronizable {
public:
  cSynchronizable() {}
  cSynchronizable(const cSynchronizable&) = delete;
  cSynchronizable& operator=(const cSynchronizable&) = delete;
  virtual ~cSynchronizable();

  /// The object's locker; lock it through its guards (cLocker::cLock).
  cLocker& mutex() const { return mLocker; }

private:
  mutable cLocker mLocker;
};

}  // namespace qp

#endif
