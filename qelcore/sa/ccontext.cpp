#include "qelcore/sa/ccontext.h"

namespace qsa {

void cContext::release() {
  if (!mpImpl) return;
  cAbstractContextData* pImpl = mpImpl;
  mpImpl = 0;
  try {
    pImpl->finish();
  } catch (...) {
    delete pImpl;
    throw;
  }
  delete pImpl;
}

void cContext::rewind() {
  if (mpImpl) mpImpl->rewind();
}

}  // namespace qsa
