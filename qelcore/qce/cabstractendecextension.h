/// \class qce::cAbstractEnDecExtension
/// The base of encoder extensions: text encoders and decoders created by type
/// name through cCoreExtensionMgr::createEnDec.
#ifndef QELCORE_QCE_CABSTRACTENDECEXTENSION_H
#define QELCORE_QCE_CABSTRACTENDECEXTENSION_H

#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qucs {
class cAbstractEnDec;
}

namespace qce {

class QEL_EXPORT cAbstractEnDecExtension : public cAbstractCoreExtension {
public:
  ~cAbstractEnDecExtension() override;

  /// eEnDec.
  ExtensionType extensionType() const override { return eEnDec; }
  /// A new encoder/decoder of the type name, which supports() accepted.
  virtual qstd::tAutoPtr<qucs::cAbstractEnDec> createEnDec(const qstd::cAsciiString& typeName) const = 0;
};

}  // namespace qce

#endif
