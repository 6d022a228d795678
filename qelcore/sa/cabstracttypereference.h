/// \class qsa::cAbstractTypeReference
/// Typed references to values of any archivable type.
///
/// A reference holds the address of a value and the type information of its
/// type: the type's readable name (the archive's names for the primitive
/// types, "cAsciiString", "cString", ...) and how to store and load it. Every
/// typed access compares names and throws the type mismatch on a wrong type,
/// so nothing is guessed from a bare address. Other types get their name from
/// a specialisation of tTypeName:
/// \code
///   template <> struct qsa::tTypeName<cMyType> { static const char* name() { return "cMyType"; } };
/// \endcode
#ifndef QELCORE_SA_CABSTRACTTYPEREFERENCE_H
#define QELCORE_SA_CABSTRACTTYPEREFERENCE_H

#include <type_traits>
#include <typeinfo>

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/sa/pitypes.h"

namespace qstd {
class cAsciiString;
}
namespace qucs {
class cString;
}

namespace qsa {

class cReferenceFrame;

/// The readable name of T in references and their messages. The library
/// names its archivable types; other types get the compiler's name unless
/// they specialise this.
template <class T>
struct tTypeName {
  /// The name.
  static const char* name() { return typeid(T).name(); }
};
#define QELCORE_SA_TYPENAME(type, text)        \
  template <>                                  \
  struct tTypeName<type> {                     \
    static const char* name() { return text; } \
  }
QELCORE_SA_TYPENAME(piVoid, "piVoid");
QELCORE_SA_TYPENAME(bool, "piBool");
QELCORE_SA_TYPENAME(char, "piChar");
QELCORE_SA_TYPENAME(unsigned char, "piUChar");
QELCORE_SA_TYPENAME(short, "piInt16");
QELCORE_SA_TYPENAME(unsigned short, "piUInt16");
QELCORE_SA_TYPENAME(int, "piInt32");
QELCORE_SA_TYPENAME(unsigned int, "piUInt32");
QELCORE_SA_TYPENAME(long long, "piInt64");
QELCORE_SA_TYPENAME(unsigned long long, "piUInt64");
QELCORE_SA_TYPENAME(double, "piDouble");
QELCORE_SA_TYPENAME(qstd::cAsciiString, "cAsciiString");
QELCORE_SA_TYPENAME(qucs::cString, "cString");
QELCORE_SA_TYPENAME(qstd::tArray<char>, "char*");
QELCORE_SA_TYPENAME(cReferenceFrame, "cReferenceFrame");
#undef QELCORE_SA_TYPENAME

/// A value of type T for the detection below, never evaluated (std::declval
/// without <utility>).
template <class T>
T&& tDeclval() noexcept;

template <class T, class = void>
struct tIsStorable : std::false_type {};
template <class T>
struct tIsStorable<T, std::void_t<decltype(tDeclval<const T&>() >> tDeclval<cAbstractSerializer&>())>>
    : std::true_type {};
template <class T, class = void>
struct tIsLoadable : std::false_type {};
template <class T>
struct tIsLoadable<T, std::void_t<decltype(tDeclval<T&>() << tDeclval<cAbstractDeserializer&>())>> : std::true_type {};

/// What every reference to a value of one type shares.
struct cTypeInfo {
  const char* mpName;                                            ///< tTypeName<T>::name()
  void (*mpStore)(const void* pValue, cAbstractSerializer& s);   ///< stores the value at pValue
  void (*mpLoad)(void* pValue, cAbstractDeserializer& d);        ///< loads into the value at pValue
};

/// The type information of T: store and load through its archive operators,
/// or the unserializable-type exception when T has none.
template <class T>
struct tTypeInfo {
  /// Stores the T at `pValue`.
  static void storeValue(const void* pValue, cAbstractSerializer& s) {
    if constexpr (tIsStorable<T>::value)
      *static_cast<const T*>(pValue) >> s;
    else
      cSAExceptions::throwUnserializable(tTypeName<T>::name());
  }
  /// Loads into the T at `pValue`.
  static void loadValue(void* pValue, cAbstractDeserializer& d) {
    if constexpr (tIsLoadable<T>::value)
      *static_cast<T*>(pValue) << d;
    else
      cSAExceptions::throwUnserializable(tTypeName<T>::name());
  }
  /// The one cTypeInfo of T.
  static const cTypeInfo& get() {
    static const cTypeInfo sInfo = {tTypeName<T>::name(), &storeValue, &loadValue};
    return sInfo;
  }
};

class QEL_EXPORT cAbstractTypeReference {
public:
  virtual ~cAbstractTypeReference();
  /// The readable name of the referenced value's type.
  virtual const char* typeName() const = 0;
  /// A constant value can be stored but not loaded into.
  virtual bool isConst() const = 0;
  /// Stores the referenced value.
  virtual void store(cAbstractSerializer& s) const = 0;
  /// Loads into the referenced value; a constant one throws.
  virtual void load(cAbstractDeserializer& d) = 0;
};

}  // namespace qsa

#endif
