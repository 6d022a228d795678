// A service that a plug-in module (or the library itself) contributes to the
// process: network address types, serializer formats or encoders. The
// extension manager asks its extensions in turn when an object of a type name
// is wanted.
//
// The bases of the three kinds, which add their creators, come with the
// module support; this class fixes what every extension answers.
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
  enum ExtensionType : unsigned int { eNetAddress = 1, eSerializer = 2, eEnDec = 3 };

  cAbstractCoreExtension() {}
  cAbstractCoreExtension(const cAbstractCoreExtension&) = default;
  cAbstractCoreExtension& operator=(const cAbstractCoreExtension&) = default;
  virtual ~cAbstractCoreExtension();

  virtual ExtensionType extensionType() const = 0;
  virtual qstd::cAsciiString description() = 0;
  virtual const qstd::cBuildInfo& buildInfo() const = 0;
  // Whether this extension creates objects of that type name.
  virtual bool supports(const qstd::cAsciiString& typeName) const = 0;
  // Appends the type names it creates; nothing by default.
  virtual void provides(qstd::tVector<qstd::cAsciiString>& names) const;
};

}  // namespace qce

#endif
