/// \class qce::cAbstractCoreExtension
/// A service that a plug-in module (or the library itself) contributes to the
/// process: network address types, serializer formats or encoders. The
/// extension manager asks its extensions in turn when an object of a type name
/// is wanted.
///
/// The bases of the three kinds, which add their creators, come with the
/// module support; this class fixes what every extension answers.
#ifndef QELCORE_QCE_CABSTRACTCOREEXTENSION_H
#define QELCORE_QCE_CABSTRACTCOREEXTENSION_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
class cBuildInfo;
template <typename T>
class tVector;
}  // namespace qstd

namespace qce {

class QEL_EXPORT cAbstractCoreExtension {
public:
  /// The kinds of service, each with a base class of its own.
  enum ExtensionType : unsigned int {
    eNetAddress = 1,  ///< network addresses (cNetAbstractAddressExtension)
    eSerializer = 2,  ///< archive formats (cAbstractSAExtension)
    eEnDec = 3        ///< text encoders and decoders (cAbstractEnDecExtension)
  };

  cAbstractCoreExtension() {}
  ///@{
  /// Extensions hold no state of this base; copies are plain.
  cAbstractCoreExtension(const cAbstractCoreExtension&) = default;
  cAbstractCoreExtension& operator=(const cAbstractCoreExtension&) = default;
  ///@}
  virtual ~cAbstractCoreExtension();

  /// The kind; the kind's base class answers it.
  virtual ExtensionType extensionType() const = 0;
  /// A short text for people ("IPv6 addresses").
  virtual qstd::cAsciiString description() = 0;
  /// How the extension was built.
  virtual const qstd::cBuildInfo& buildInfo() const = 0;
  /// Whether this extension creates objects of that type name.
  virtual bool supports(const qstd::cAsciiString& typeName) const = 0;
  /// Appends the type names it creates; nothing by default.
  virtual void provides(qstd::tVector<qstd::cAsciiString>& names) const;
};

}  // namespace qce

#endif
