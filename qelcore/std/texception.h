/// \class qstd::tException
/// The part that every concrete exception class has in common: creating an
/// empty object of the class, copying one, its type name and swap. A class
/// derives from tException<itself, its base> and writes only its constructors,
/// accessors, fields and the static name:
///
/// \code
///   class QEL_EXPORT cFileLockedException
///       : public qstd::tException<cFileLockedException, qstd::cRuntimeException> {
///   public:
///     static const char* staticTypeName() { return "cFileLockedException"; }
/// \endcode
///
/// \code
///     cFileLockedException() {}
///     cFileLockedException(const qucs::cString& path, const char* file, unsigned int line)
///         : tException(qucs::cLIMessage("$QTR$File %file% is locked!") << path, file, line), mPath(path) {}
///     const qucs::cString& path() const { return mPath; }
/// \endcode
///
/// \code
///   private:
///     qucs::cString mPath;
///   };
/// \endcode
///
/// The base's constructors are inherited, so the class initialises it through
/// `tException(...)` with the base's arguments. Copy, assignment and
/// destruction are the compiler's, member by member. What tException adds:
///
/// - createObject(): `new Derived`, the empty object an exception factory
/// \code
///   fills with load();
/// \endcode
/// - clone(): a copy made with Derived's copy constructor (a class derived
/// \code
///   from Derived that does not override clone() is copied the generic way,
///   through its createObject() and Derived's assignment, so it keeps its
///   class);
/// \endcode
/// - typeName(): Derived::staticTypeName(), which factories can compare too;
/// - swap(Derived&): exchanges two objects.
///
/// A class written without tException, implementing only createObject() and
/// typeName(), works as well: it is copied the generic way.
///
/// A subsystem's exception factory names its classes once:
///
/// \code
///   qstd::cAbstractException* cIOExceptionFactory::createException(const qstd::cAsciiString& name) const {
///     return qstd::createExceptionNamed<cFileLockedException, cFileGoneException>(name);
///   }
/// \endcode
#ifndef QELCORE_STD_TEXCEPTION_H
#define QELCORE_STD_TEXCEPTION_H

#include <typeinfo>
#include <utility>

#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tautoptr.h"

namespace qstd {

template <class Derived, class Base>
class tException : public Base {
public:
  using Base::Base;

  /// A new default Derived.
  cAbstractException* createObject() const override { return new Derived; }
  /// Derived::staticTypeName().
  cAsciiString typeName() const override { return cAsciiString(Derived::staticTypeName()); }

  /// A full copy of the same class (see cAbstractException::clone).
  cAbstractException* clone() const override {
    const Derived& self = static_cast<const Derived&>(*this);
    if (typeid(*this) == typeid(Derived)) return new Derived(self);
    // A further derived class without its own clone(): its createObject()
    // gives the class, assignment the part that this level knows.
    tAutoPtr<cAbstractException> copy(this->createObject());
    if (Derived* same = dynamic_cast<Derived*>(copy.get()))
      *same = self;
    else if (copy.get())
      *copy = static_cast<const cAbstractException&>(self);
    return copy.release();
  }

  /// Exchanges two exceptions of the class.
  void swap(Derived& other) {
    Derived& self = static_cast<Derived&>(*this);
    Derived taken(std::move(self));
    self = std::move(other);
    other = std::move(taken);
  }
};

/// A new empty object of the first of the classes E... whose staticTypeName()
/// is `name` (owned by the caller), or null.
template <class... E>
cAbstractException* createExceptionNamed(const cAsciiString& name) {
  cAbstractException* created = nullptr;
  (void)((name == E::staticTypeName() && (created = new E) != nullptr) || ...);
  return created;
}

}  // namespace qstd

#endif
