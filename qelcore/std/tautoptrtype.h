/// \struct qstd::tAutoPtrType
/// How a tAutoPtr frees what it holds.
#ifndef QELCORE_STD_TAUTOPTRTYPE_H
#define QELCORE_STD_TAUTOPTRTYPE_H

namespace qstd {

struct tAutoPtrType {
  /// Any value other than the first two means "not freed".
  enum PointerType : int { SingleObject = 0, ArrayObject = 1, NotOwned = 2 };
};

}  // namespace qstd

#endif
