/// \class qstd::tStack
/// A last-in, first-out stack of values.
#ifndef QELCORE_STD_TSTACK_H
#define QELCORE_STD_TSTACK_H

#include <utility>
#include <vector>

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarrayops.h"

namespace qstd {

template <typename T>
class tStack {
public:
  /// The number of values.
  unsigned int size() const { return static_cast<unsigned int>(mItems.size()); }
  /// Whether the stack holds no value.
  bool empty() const { return mItems.empty(); }
  /// Removes every value.
  void clear() { mItems.clear(); }

  ///@{
  /// Puts `value` on top.
  void push(const T& value) { mItems.push_back(value); }
  void push(T&& value) { mItems.push_back(std::move(value)); }
  ///@}
  /// Removes and returns the top; an empty stack throws.
  T pop() {
    checkNotEmpty("pop");
    T value = std::move(mItems.back());
    mItems.pop_back();
    return value;
  }
  ///@{
  /// The top value; an empty stack throws.
  T& top() {
    checkNotEmpty("top");
    return mItems.back();
  }
  const T& top() const {
    checkNotEmpty("top");
    return mItems.back();
  }
  ///@}
  /// Element `depth` places below the top (0 is the top).
  const T& at(unsigned int depth) const {
    arrayops::checkIndex("tStack", "at", depth, size());
    return mItems[mItems.size() - 1 - depth];
  }

private:
  void checkNotEmpty(const char* operation) const {
    if (mItems.empty()) {
      cSTDExceptions::throwElementNotFound("tStack", operation);
    }
  }

  std::vector<T> mItems;
};

}  // namespace qstd

#endif
