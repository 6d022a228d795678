/// \class qsa::cLabeledTypeMissmatchException
/// A type mismatch of a reader that names the last label it read, which
/// usually tells which member of a stored object went wrong.
#ifndef QELCORE_SA_CLABELEDTYPEMISSMATCHEXCEPTION_H
#define QELCORE_SA_CLABELEDTYPEMISSMATCHEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/ctypemissmatchexception.h"

namespace qsa {

class QEL_EXPORT cLabeledTypeMissmatchException
    : public qstd::tException<cLabeledTypeMissmatchException, qstd::cTypeMissmatchException> {
public:
  /// "cLabeledTypeMissmatchException", the name in the exception registry.
  static const char* staticTypeName() { return "cLabeledTypeMissmatchException"; }

  cLabeledTypeMissmatchException() {}
  /// The type mismatch of the value under `label`: `expected` was wanted, `got` found.
  cLabeledTypeMissmatchException(const qstd::cAsciiString& expected, const qstd::cAsciiString& got,
                                 const qstd::cAsciiString& label, const char* file = "unknown", unsigned int line = 0);

  /// The label of the value.
  const qstd::cAsciiString& label() const { return mLabel; }

private:
  qstd::cAsciiString mLabel;
};

}  // namespace qsa

#endif
