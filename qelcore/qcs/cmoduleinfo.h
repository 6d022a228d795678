/// \class qcs::cModuleInfo
/// The description of a module: name, author, description, how it was built,
/// and its context, the name under which it was loaded (by which the module
/// manager finds a component).
///
/// \code
///   qcs::cModuleInfo info;
///   info.setName("clock");
///   info.setAuthor("me");
///   info.toString();  // clock (build 0) Written by me builded on "unknown" (unknown) using unknown - unknown
/// \endcode
#ifndef QELCORE_QCS_CMODULEINFO_H
#define QELCORE_QCS_CMODULEINFO_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbuildinfo.h"

namespace qcs {

class QEL_EXPORT cModuleInfo {
public:
  cModuleInfo();
  ///@{
  /// Plain copies; swap() exchanges two descriptions.
  cModuleInfo(const cModuleInfo& other) = default;
  cModuleInfo& operator=(const cModuleInfo& other) = default;
  void swap(cModuleInfo& other);
  ///@}

  /// The module's name.
  void setName(const qstd::cAsciiString& name) { msName = name; }
  /// Who wrote it.
  void setAuthor(const qstd::cAsciiString& author) { msAuthor = author; }
  /// What it does, in a line.
  void setDescription(const qstd::cAsciiString& description) { msDescription = description; }
  /// How it was built.
  void setBuildInfo(const qstd::cBuildInfo& buildInfo) { mBuildInfo = buildInfo; }
  /// The name it was loaded under; cAbstractModule::setClassLoader() sets it.
  void setContext(const qstd::cAsciiString& context) { msContext = context; }

  /// See setName().
  const qstd::cAsciiString& name() const { return msName; }
  /// See setAuthor().
  const qstd::cAsciiString& author() const { return msAuthor; }
  /// See setDescription().
  const qstd::cAsciiString& description() const { return msDescription; }
  /// See setBuildInfo().
  const qstd::cBuildInfo& buildInfo() const { return mBuildInfo; }
  /// The build information, to change in place.
  qstd::cBuildInfo& bi() { return mBuildInfo; }
  /// See setContext().
  const qstd::cAsciiString& context() const { return msContext; }

  /// name (build N) Written by author builded on "host" (date) using compiler - version
  qstd::cAsciiString toString() const;

  /// Name, author, description, build information, context.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  /// Reads the same; the information changes only when all five were read.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);

private:
  qstd::cAsciiString msName;
  qstd::cAsciiString msAuthor;
  qstd::cAsciiString msDescription;
  qstd::cBuildInfo mBuildInfo;
  qstd::cAsciiString msContext;
};

}  // namespace qcs

#endif
