/// \class qce::cAbstractSAExtension
/// The base of serializer extensions: archive formats created by type name
/// through cCoreExtensionMgr::createSerializer and createDeserializer.
///
/// \code
///   class cJsonExtension : public qce::cAbstractSAExtension {
///     bool supports(const qstd::cAsciiString& type) const override { return type == "json"; }
///     qstd::tAutoPtr<qsa::cAbstractSerializer> createSerializer(const qstd::cAsciiString&,
///                                                               const qstd::cAsciiString& options) const override;
///     ...
///   };
/// \endcode
#ifndef QELCORE_QCE_CABSTRACTSAEXTENSION_H
#define QELCORE_QCE_CABSTRACTSAEXTENSION_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tconstarrayref.h"

namespace qsa {
class cAbstractDeserializer;
class cAbstractSerializer;
}  // namespace qsa
namespace qucs {
class cString;
}

namespace qce {

class QEL_EXPORT cAbstractSAExtension : public cAbstractCoreExtension {
public:
  ~cAbstractSAExtension() override;

  /// eSerializer.
  ExtensionType extensionType() const override { return eSerializer; }
  /// A serializer of the type; `second` is the extension's to interpret
  /// (options of the format).
  virtual qstd::tAutoPtr<qsa::cAbstractSerializer> createSerializer(const qstd::cAsciiString& typeName,
                                                                    const qstd::cAsciiString& second) const = 0;
  /// A deserializer reading `data`, which must outlive it.
  virtual qstd::tAutoPtr<qsa::cAbstractDeserializer> createDeserializer(const qstd::cAsciiString& typeName,
                                                                        qstd::tConstArrayRef<char> data) const = 0;
  /// A deserializer reading the file (through the system's file system).
  virtual qstd::tAutoPtr<qsa::cAbstractDeserializer> createDeserializer(const qstd::cAsciiString& typeName,
                                                                        const qucs::cString& fileName) const = 0;
};

}  // namespace qce

#endif
