/// \class qce::cUnsupportedExtensionException
/// No core extension creates objects of a wanted type name. className() is the
/// kind of extension looked for ("netwok address", "serializer", "Encoder /
/// Decoder"), extensionName() the type name, and otherExtensionsFound() tells
/// whether extensions of that kind existed that do not support the name.
#ifndef QELCORE_QCE_CUNSUPPORTEDEXTENSIONEXCEPTION_H
#define QELCORE_QCE_CUNSUPPORTEDEXTENSIONEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/texception.h"

namespace qce {

class QEL_EXPORT cUnsupportedExtensionException
    : public qstd::tException<cUnsupportedExtensionException, qstd::cBugException> {
public:
  /// "cUnsupportedExtensionException", the name in the exception registry.
  static const char* staticTypeName() { return "cUnsupportedExtensionException"; }

  /// Empty names, no other extensions found.
  cUnsupportedExtensionException() : mbOtherExtensionsFound(false) {}
  /// "No %s% of type "%specialized%" found!" with the kind text and the type
  /// name, whatever `otherFound` says.
  cUnsupportedExtensionException(const qstd::cAsciiString& className, const qstd::cAsciiString& extensionName,
                                 bool otherFound, const char* file, unsigned int line);

  /// The kind text: "netwok address", "serializer" or "Encoder / Decoder".
  const qstd::cAsciiString& className() const { return msClassName; }
  /// The type name looked for.
  const qstd::cAsciiString& extensionName() const { return msExtensionName; }
  /// Whether extensions of the kind existed, none supporting the name.
  bool otherExtensionsFound() const { return mbOtherExtensionsFound; }

  /// The message, then kind text, type name and flag.
  void store(qsa::cAbstractSerializer& s) const override;
  /// Reads what store() wrote; unchanged unless all was read.
  void load(qsa::cAbstractDeserializer& d) override;

private:
  qstd::cAsciiString msClassName;
  qstd::cAsciiString msExtensionName;
  bool mbOtherExtensionsFound;
};

}  // namespace qce

#endif
