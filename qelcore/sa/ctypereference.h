/// \class qsa::cTypeReference
/// A typed reference to one value: its address, its type and whether it may
/// be written. Copying copies the reference, never the value.
#ifndef QELCORE_SA_CTYPEREFERENCE_H
#define QELCORE_SA_CTYPEREFERENCE_H

#include <cstring>
#include <type_traits>

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstracttypereference.h"

namespace qsa {

class QEL_EXPORT cTypeReference : public cAbstractTypeReference {
public:
  /// Refers to nothing; every access throws.
  cTypeReference() : mpValue(0), mpInfo(0), mbConst(true) {}
  /// Refers to `value` (constant when T is).
  template <class T>
  explicit cTypeReference(T& value)
      : mpValue(const_cast<std::remove_const_t<T>*>(&value)),
        mpInfo(&tTypeInfo<std::remove_const_t<T>>::get()),
        mbConst(std::is_const<T>::value) {}
  ~cTypeReference() override;

  const char* typeName() const override;
  bool isConst() const override { return mbConst; }
  void store(cAbstractSerializer& s) const override;
  /// Throws the type mismatch when the value is constant.
  void load(cAbstractDeserializer& d) override;

  /// Whether it refers to a value.
  bool isValid() const { return mpInfo != 0; }
  /// Whether the value is a T (a const T may refer to a writable value too).
  template <class T>
  bool is() const {
    return mpInfo && (std::is_const<T>::value || !mbConst) && sameName(tTypeName<std::remove_const_t<T>>::name());
  }
  /// The value as a T; throws the type mismatch when it is of another type,
  /// or constant when T is not.
  template <class T>
  T& get() const {
    if (!is<T>()) throwMissmatch(tTypeName<std::remove_const_t<T>>::name(), !std::is_const<T>::value);
    return *static_cast<T*>(mpValue);
  }
  /// The value's address; null when it refers to nothing.
  const void* address() const { return mpValue; }

private:
  bool sameName(const char* pName) const { return mpInfo->mpName == pName || std::strcmp(mpInfo->mpName, pName) == 0; }
  [[noreturn]] void throwMissmatch(const char* pExpected, bool bWritable) const;

  void* mpValue;
  const cTypeInfo* mpInfo;
  bool mbConst;
};

}  // namespace qsa

#endif
