/// \class qsa::cContextRef
/// Handle owning one open context; ownership moves on every copy, so a
/// context can be returned by value from newContext()/getContext().
#ifndef QELCORE_SA_CCONTEXTREF_H
#define QELCORE_SA_CCONTEXTREF_H

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractcontextdata.h"

namespace qsa {

class cContextRef;

/// Carries a cContextRef through a by-value copy from a temporary.
class QEL_EXPORT cContextRefRef {
public:
  /// Refers to `ref`.
  explicit cContextRefRef(cContextRef& ref) : mpRef(&ref) {}

private:
  friend class cContextRef;
  friend class cContext;
  cContextRef* mpRef;
};

class QEL_EXPORT cContextRef {
public:
  /// Holds no context.
  cContextRef() : mpImpl(0) {}
  /// Holds `pImpl` (owned); archives make these.
  explicit cContextRef(cAbstractContextData* pImpl) : mpImpl(pImpl) {}
  ///@{
  /// Takes the context over; the other handle is left empty.
  cContextRef(cContextRef& other) : mpImpl(other.mpImpl) { other.mpImpl = 0; }
  cContextRef(cContextRef&& other) noexcept : mpImpl(other.mpImpl) { other.mpImpl = 0; }
  cContextRef(cContextRefRef ref) : mpImpl(ref.mpRef->mpImpl) { ref.mpRef->mpImpl = 0; }
  ///@}
  /// Deleting the data leaves the context without finishing it (abandoned).
  ~cContextRef() { delete mpImpl; }

  ///@{
  /// Drops the context held and takes the other's over.
  cContextRef& operator=(cContextRef& other) { return take(other); }
  cContextRef& operator=(cContextRef&& other) { return take(other); }
  cContextRef& operator=(cContextRefRef ref) { return take(*ref.mpRef); }
  ///@}
  /// For passing a temporary on by value.
  operator cContextRefRef() { return cContextRefRef(*this); }

  /// Whether a context is held.
  bool isValid() const { return mpImpl != 0; }
  /// Takes the data out of the handle; throws when there is none.
  cAbstractContextData* unguardImpl();

private:
  cContextRef& take(cContextRef& other) {
    if (&other != this) {
      delete mpImpl;
      mpImpl = other.mpImpl;
      other.mpImpl = 0;
    }
    return *this;
  }

  cAbstractContextData* mpImpl;
};

}  // namespace qsa

#endif
