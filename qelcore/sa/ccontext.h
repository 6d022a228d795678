/// \class qsa::cContext
/// Scope guard of an open context. release() keeps the context; a guard that
/// dies without release() (an exception passing) abandons it: a writer drops
/// what was written of it, a reader returns to where it began.
#ifndef QELCORE_SA_CCONTEXT_H
#define QELCORE_SA_CCONTEXT_H

#include "qelcore/qelexport.h"
#include "qelcore/sa/ccontextref.h"

namespace qsa {

class QEL_EXPORT cContext {
public:
  ///@{
  /// Takes the context an archive opened (newContext(), getContext()) out of its handle.
  explicit cContext(cContextRef& ref) : mpImpl(ref.unguardImpl()) {}
  cContext(cContextRef&& ref) : mpImpl(ref.unguardImpl()) {}
  cContext(cContextRefRef ref) : mpImpl(ref.mpRef->unguardImpl()) {}
  ///@}
  ~cContext() { delete mpImpl; }

  /// Finishes the context and leaves it, so the next value goes (or is read)
  /// after it. A second call does nothing.
  void release();
  /// Until release().
  bool isOpen() const { return mpImpl != 0; }
  /// Back to the first element of the context.
  void rewind();

private:
  cContext(const cContext&) = delete;
  cContext& operator=(const cContext&) = delete;

  cAbstractContextData* mpImpl;
};

}  // namespace qsa

#endif
