/// \struct qstd::tAutoPtrRef
/// Carries the pointer of a tAutoPtr that is returned by value into the
/// tAutoPtr that takes it over.
#ifndef QELCORE_STD_TAUTOPTRREF_H
#define QELCORE_STD_TAUTOPTRREF_H

#include "qelcore/std/tautoptrtype.h"

namespace qstd {

template <typename T>
struct tAutoPtrRef {
  /// Carries `p` and how to delete it.
  tAutoPtrRef(T* p, tAutoPtrType::PointerType type) : mpPtr(p), meType(type) {}

  T* mpPtr;  ///< the pointer handed over
  tAutoPtrType::PointerType meType;  ///< how the pointer is owned
};

}  // namespace qstd

#endif
