/// \file
/// Checks and element algorithms shared by tArray and its views. Elements are
/// trivially copyable; everything here works on plain memory.
#ifndef QELCORE_STD_TARRAYOPS_H
#define QELCORE_STD_TARRAYOPS_H

#include <cstring>

#include "qelcore/std/cstdexceptions.h"

namespace qstd {
namespace arrayops {

enum { RangeIndex = OutOfRangeIndex, RangeValue = OutOfRangeValue, RangeSize = OutOfRangeSize };

/// cSTDExceptions::throwOutOfRange with `type` one of the Range values.
[[noreturn]] inline void outOfRange(const char* container, const char* operation, int type, long long value,
                                    long long min, long long max) {
  cSTDExceptions::throwOutOfRange(container, operation, static_cast<OutOfRangeType>(type), value, min, max);
}

/// Element index: index < size.
inline void checkIndex(const char* container, const char* operation, unsigned int index, unsigned int size) {
  if (index >= size) {
    outOfRange(container, operation, RangeIndex, index, 0, static_cast<long long>(size) - 1);
  }
}

/// Range: [index, index + count) inside [0, size).
inline void checkRange(const char* container, const char* operation, unsigned int index, unsigned int count,
                       unsigned int size) {
  if (index + count < index) {
    cSTDExceptions::throwOutOfBounds(container, operation);
  }
  if (index > size) {
    outOfRange(container, operation, RangeIndex, index, 0, (size > 0 ? size : 1) - 1);
  }
  if (index + count > size) {
    outOfRange(container, operation, RangeSize, count, 0, size - index);
  }
}

/// Insertion point or new length: position <= size.
inline void checkPosition(const char* container, const char* operation, unsigned int position, unsigned int size) {
  if (position > size) {
    outOfRange(container, operation, RangeValue, position, 0, size);
  }
}

/// Number of elements taken from the end: n <= size.
inline void checkTail(const char* container, const char* operation, unsigned int n, unsigned int size) {
  if (n > size) {
    outOfRange(container, operation, RangeSize, n, 0, size);
  }
}

/// Growth beyond 32 bits of elements.
inline void checkGrowth(const char* container, const char* operation, unsigned int size, unsigned int n) {
  if (size + n < size) {
    cSTDExceptions::throwOutOfBounds(container, operation);
  }
}

/// Length of a run terminated by a value-initialised element.
template <typename T>
inline unsigned int terminatedLength(const T* p) {
  if (sizeof(T) == 1) {
    return static_cast<unsigned int>(std::strlen(reinterpret_cast<const char*>(p)));
  }
  const T* q = p;
  while (!(*q == T())) {
    ++q;
  }
  return static_cast<unsigned int>(q - p);
}

/// Whether the `n` elements at `a` and `b` are equal byte for byte.
template <typename T>
inline bool sameElements(const T* a, const T* b, unsigned int n) {
  return n == 0 || std::memcmp(a, b, static_cast<std::size_t>(n) * sizeof(T)) == 0;
}

/// First occurrence of `needle` (n elements) in data[from, end). Returns the
/// index in data, or `end` when there is none.
template <typename T>
inline unsigned int search(const T* data, unsigned int from, unsigned int end, const T* needle, unsigned int n) {
  if (n == 0) {
    return from <= end ? from : end;
  }
  if (end < n || from > end - n) {
    return end;
  }
  const unsigned int last = end - n;  ///< last possible start
  if (sizeof(T) == 1) {
    const unsigned char* base = reinterpret_cast<const unsigned char*>(data);
    const unsigned char first = *reinterpret_cast<const unsigned char*>(needle);
    const unsigned char* p = base + from;
    const unsigned char* stop = base + last + 1;
    while (p < stop) {
      p = static_cast<const unsigned char*>(std::memchr(p, first, static_cast<std::size_t>(stop - p)));
      if (p == nullptr) {
        return end;
      }
      if (n == 1 || std::memcmp(p + 1, needle + 1, n - 1) == 0) {
        return static_cast<unsigned int>(p - base);
      }
      ++p;
    }
    return end;
  }
  for (unsigned int i = from; i <= last; ++i) {
    if (data[i] == needle[0] && sameElements(data + i + 1, needle + 1, n - 1)) {
      return i;
    }
  }
  return end;
}

/// Resolves the search window of find(): [start, start + count), where a count
/// of 0 or one reaching past the end means "to the end".
inline unsigned int searchEnd(unsigned int start, unsigned int count, unsigned int size) {
  if (count == 0 || count > size - start) {
    return size;
  }
  return start + count;
}

/// Three-way comparison of a content (hasContent false: nothing allocated)
/// with p[0, n).
template <typename T>
inline int relation(bool hasContent, const T* data, unsigned int size, const T* p, unsigned int n) {
  if (!hasContent) {
    return p == nullptr ? 0 : -1;
  }
  if (p == nullptr) {
    return 1;
  }
  const unsigned int common = size < n ? size : n;
  if (common > 0) {
    const int r = std::memcmp(data, p, static_cast<std::size_t>(common) * sizeof(T));
    if (r != 0) {
      return r < 0 ? -1 : 1;
    }
  }
  if (size > n) {
    return 1;
  }
  return size == n ? 0 : -1;
}

}  // namespace arrayops
}  // namespace qstd

#endif
