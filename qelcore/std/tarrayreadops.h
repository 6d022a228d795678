/// \class qstd::tArrayReadOps
/// The read operations that arrays and array views share: searching and
/// comparing their elements. A class gets them by deriving from
/// tArrayReadOps<itself, T> and providing, to this class as a friend:
/// \code
/// const T* readElements() const;       its elements (may be null when empty)
/// unsigned int readLength() const;
/// static const char* readClassName();  named in range errors ("tArray")
/// static const char* readSource();     named in assertions ("std/tarray")
/// \endcode
#ifndef QELCORE_STD_TARRAYREADOPS_H
#define QELCORE_STD_TARRAYREADOPS_H

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarrayops.h"

namespace qstd {

template <class Derived, typename T>
class tArrayReadOps {
public:
  /// Searches [start, start + count) for `value`, the zero-terminated sequence
  /// `what` or its first `n` elements; a count of 0 or one reaching past the
  /// end means "to the end". Returns the index, or the length when nothing is
  /// found. A `start` beyond the length throws cOutOfBoundsException.
  unsigned int find(const T& value, bool& found, unsigned int start = 0, unsigned int count = 0) const {
    const T copy = value;
    return find(&copy, 1, found, start, count);
  }
  /// As find(value), for the zero-terminated sequence `what`.
  unsigned int find(const T* what, bool& found, unsigned int start = 0, unsigned int count = 0) const {
    QEL_ASSERT(what != 0, Derived::readSource());
    return find(what, arrayops::terminatedLength(what), found, start, count);
  }
  /// As find(value), for the first `n` elements of `what`.
  unsigned int find(const T* what, unsigned int n, bool& found, unsigned int start = 0, unsigned int count = 0) const {
    if (n > 0) {
      QEL_ASSERT(what != 0, Derived::readSource());
    }
    const unsigned int length = self().readLength();
    arrayops::checkRange(Derived::readClassName(), "find", start, 0, length);
    const unsigned int end = arrayops::searchEnd(start, count, length);
    const unsigned int at = arrayops::search(self().readElements(), start, end, what, n);
    found = at < end || (n == 0 && at == start);
    return found ? at : length;
  }

  /// Whether find() finds `value`.
  bool contains(const T& value) const {
    bool found = false;
    find(value, found);
    return found;
  }
  /// Whether find() finds the zero-terminated sequence `what`.
  bool contains(const T* what) const {
    bool found = false;
    find(what, found);
    return found;
  }
  /// Whether find() finds the first `n` elements of `what`.
  bool contains(const T* what, unsigned int n) const {
    bool found = false;
    find(what, n, found);
    return found;
  }

  /// Whether the elements begin with the zero-terminated `what`.
  bool beginsWith(const T* what) const {
    QEL_ASSERT(what != 0, Derived::readSource());
    return beginsWith(what, arrayops::terminatedLength(what));
  }
  /// Whether the elements begin with the first `n` elements of `what`.
  bool beginsWith(const T* what, unsigned int n) const {
    if (n > 0) {
      QEL_ASSERT(what != 0, Derived::readSource());
    }
    return n <= self().readLength() && arrayops::sameElements(self().readElements(), what, n);
  }
  /// Whether the elements end with the zero-terminated `what`.
  bool endsWith(const T* what) const {
    QEL_ASSERT(what != 0, Derived::readSource());
    return endsWith(what, arrayops::terminatedLength(what));
  }
  /// Whether the elements end with the first `n` elements of `what`.
  bool endsWith(const T* what, unsigned int n) const {
    if (n > 0) {
      QEL_ASSERT(what != 0, Derived::readSource());
    }
    const unsigned int length = self().readLength();
    return n <= length && arrayops::sameElements(self().readElements() + (length - n), what, n);
  }

  /// Whether the content is p[0, n).
  bool isEqual(const T* p, unsigned int n) const {
    if (n > 0) {
      QEL_ASSERT(p != 0, Derived::readSource());
    }
    return n == self().readLength() && arrayops::sameElements(self().readElements(), p, n);
  }
  /// Whether the elements from `start` on begin with p[0, n).
  bool isEqual(const T* p, unsigned int n, unsigned int start) const {
    if (n > 0) {
      QEL_ASSERT(p != 0, Derived::readSource());
    }
    const unsigned int length = self().readLength();
    return start <= length && n <= length - start && arrayops::sameElements(self().readElements() + start, p, n);
  }

protected:
  /// Only as a base.
  tArrayReadOps() = default;

private:
  const Derived& self() const { return static_cast<const Derived&>(*this); }
};

}  // namespace qstd

#endif
