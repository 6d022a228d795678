// The description of a module: name, author, description, how it was built,
// and its context, the name under which it was loaded (by which the module
// manager finds a component).
//
//   qcs::cModuleInfo info;
//   info.setName("clock");
//   info.setAuthor("me");
//   info.toString();  // clock (build 0) Written by me builded on "unknown" (unknown) using unknown - unknown
#ifndef QELCORE_QCS_CMODULEINFO_H
#define QELCORE_QCS_CMODULEINFO_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbuildinfo.h"

namespace qcs {

class QEL_EXPORT cModuleInfo {
public:
  cModuleInfo();
  cModuleInfo(const cModuleInfo& other) = default;
  cModuleInfo& operator=(const cModuleInfo& other) = default;
  void swap(cModuleInfo& other);

  void setName(const qstd::cAsciiString& name) { msName = name; }
  void setAuthor(const qstd::cAsciiString& author) { msAuthor = author; }
  void setDescription(const qstd::cAsciiString& description) { msDescription = description; }
  void setBuildInfo(const qstd::cBuildInfo& buildInfo) { mBuildInfo = buildInfo; }
  void setContext(const qstd::cAsciiString& context) { msContext = context; }

  const qstd::cAsciiString& name() const { return msName; }
  const qstd::cAsciiString& author() const { return msAuthor; }
  const qstd::cAsciiString& description() const { return msDescription; }
  const qstd::cBuildInfo& buildInfo() const { return mBuildInfo; }
  qstd::cBuildInfo& bi() { return mBuildInfo; }
  const qstd::cAsciiString& context() const { return msContext; }

  // name (build N) Written by author builded on "host" (date) using compiler - version
  qstd::cAsciiString toString() const;

  // Name, author, description, build information, context.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  // Reads the same; the information changes only when all five were read.
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
