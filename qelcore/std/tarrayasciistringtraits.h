/// \struct qstd::tArrayAsciiStringTraits
/// Element handling of strings: one extra slot behind the pool always holds a
/// terminating zero, so the data is a C string at all times.
#ifndef QELCORE_STD_TARRAYASCIISTRINGTRAITS_H
#define QELCORE_STD_TARRAYASCIISTRINGTRAITS_H

namespace qstd {

template <typename T>
struct tArrayAsciiStringTraits {
  static constexpr unsigned int ExtraElements = 1;  ///< the slot of the terminating zero
  static constexpr bool Terminated = true;  ///< the zero is kept up to date
};

}  // namespace qstd

#endif
