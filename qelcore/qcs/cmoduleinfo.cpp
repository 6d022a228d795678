#include "qelcore/qcs/cmoduleinfo.h"

#include <string>

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qcs {

cModuleInfo::cModuleInfo() {}

void cModuleInfo::swap(cModuleInfo& other) {
  msName.swap(other.msName);
  msAuthor.swap(other.msAuthor);
  msDescription.swap(other.msDescription);
  mBuildInfo.swap(other.mBuildInfo);
  msContext.swap(other.msContext);
}

qstd::cAsciiString cModuleInfo::toString() const {
  qstd::cAsciiString text(msName);
  text += " (build ";
  text += std::to_string(mBuildInfo.buildCount()).c_str();
  text += ")";
  text += " Written by ";
  text += msAuthor;
  text += " builded on \"";
  text += mBuildInfo.buildHost();
  text += "\" (";
  text += mBuildInfo.buildDate();
  text += ") using ";
  text += mBuildInfo.compiler();
  text += " - ";
  text += mBuildInfo.compilerVersion();
  return text;
}

qsa::cAbstractSerializer& cModuleInfo::operator>>(qsa::cAbstractSerializer& s) const {
  msName >> s;
  msAuthor >> s;
  msDescription >> s;
  mBuildInfo >> s;
  msContext >> s;
  return s;
}

qsa::cAbstractDeserializer& cModuleInfo::operator<<(qsa::cAbstractDeserializer& d) {
  cModuleInfo read;
  read.msName << d;
  read.msAuthor << d;
  read.msDescription << d;
  read.mBuildInfo << d;
  read.msContext << d;
  swap(read);
  return d;
}

}  // namespace qcs
