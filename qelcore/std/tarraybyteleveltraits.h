/// \struct qstd::tArrayByteLevelTraits
/// Element handling of plain buffers: elements are moved as memory, and an
/// empty array may hold no pool at all.
#ifndef QELCORE_STD_TARRAYBYTELEVELTRAITS_H
#define QELCORE_STD_TARRAYBYTELEVELTRAITS_H

namespace qstd {

template <typename T>
struct tArrayByteLevelTraits {
  /// Elements allocated beyond the pool size.
  static constexpr unsigned int ExtraElements = 0;
  /// Whether a zero element follows the last one at all times.
  static constexpr bool Terminated = false;
};

}  // namespace qstd

#endif
