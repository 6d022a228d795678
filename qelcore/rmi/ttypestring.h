/// \struct qrmi::tTypeString
/// Type strings of C++ types, as the type-string serializer writes them for
/// values of those types: "piInt32, cString, piBool" for (int, cString, bool).
/// Published slots and signals describe their signatures with them.
///
/// Types that cannot be written to an archive (pointers, abstract classes,
/// anything without store and load operators) appear as "local".
#ifndef QELCORE_RMI_TTYPESTRING_H
#define QELCORE_RMI_TTYPESTRING_H

#include <type_traits>

#include "qelcore/rmi/cssvalue.h"
#include "qelcore/sa/cabstracttypereference.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/sa/pitypes.h"
#include "qelcore/std/casciistring.h"

namespace qrmi {

/// The value type behind a parameter type: int for `const int&`.
template <class T>
using tValueType = std::remove_cv_t<std::remove_reference_t<T>>;

/// Whether values of T can travel through archives and reference frames.
template <class T>
struct tIsArchivable
    : std::integral_constant<
          bool, std::is_default_constructible<tValueType<T>>::value && !std::is_pointer<tValueType<T>>::value &&
                    qsa::tIsStorable<tValueType<T>>::value && qsa::tIsLoadable<tValueType<T>>::value> {};

/// A parameter the callee may change: a non-constant lvalue reference.
template <class T>
struct tIsAlterable : std::integral_constant<bool, std::is_lvalue_reference<T>::value &&
                                                       !std::is_const<std::remove_reference_t<T>>::value> {};

template <class T>
inline void storeTypeOf(qsa::cSerializeToTypeString& out, std::true_type) {
  tValueType<T> value{};
  value >> out;
}
template <class T>
inline void storeTypeOf(qsa::cSerializeToTypeString& out, std::false_type) {
  out.storeType("local");
}

template <class... T>
struct tTypeString {
  /// All types joined by ", "; the empty string for none (and for piVoid).
  static qstd::cAsciiString list() {
    qsa::cSerializeToTypeString out;
    int expand[] = {0, (storeTypeOf<T>(out, tIsArchivable<T>()), 0)...};
    (void)expand;
    return out.typeString();
  }
};

/// Fills the description of one parameter or result of type T.
template <class T>
inline void describeValue(cSSValue& value) {
  value.set(tTypeString<T>::list(), tIsAlterable<T>::value, std::is_same<tValueType<T>, qsa::piVoid>::value);
}

}  // namespace qrmi

#endif
