#include "qelcore/std/cbuildinfo.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qstd {

cBuildInfo::cBuildInfo()
    : mBuildSystem("unknown"),
      mCompiler("unknown"),
      mCompilerVersion("unknown"),
      mBuildHost("unknown"),
      mBuildDate("unknown"),
      miBuildCount(0) {}

cBuildInfo::cBuildInfo(const char* buildSystem, const char* compiler, const char* compilerVersion,
                       const char* buildHost, const char* buildDate, unsigned int buildCount)
    : mBuildSystem(buildSystem ? buildSystem : ""),
      mCompiler(compiler ? compiler : ""),
      mCompilerVersion(compilerVersion ? compilerVersion : ""),
      mBuildHost(buildHost ? buildHost : ""),
      mBuildDate(buildDate ? buildDate : ""),
      miBuildCount(buildCount) {}

cBuildInfo::cBuildInfo(const cBuildInfo& other)
    : mBuildSystem(other.mBuildSystem),
      mCompiler(other.mCompiler),
      mCompilerVersion(other.mCompilerVersion),
      mBuildHost(other.mBuildHost),
      mBuildDate(other.mBuildDate),
      miBuildCount(other.miBuildCount) {}

cBuildInfo& cBuildInfo::operator=(const cBuildInfo& other) {
  if (this != &other) {
    cBuildInfo copy(other);
    swap(copy);
  }
  return *this;
}

cBuildInfo::~cBuildInfo() {}

void cBuildInfo::swap(cBuildInfo& other) {
  mBuildSystem.swap(other.mBuildSystem);
  mCompiler.swap(other.mCompiler);
  mCompilerVersion.swap(other.mCompilerVersion);
  mBuildHost.swap(other.mBuildHost);
  mBuildDate.swap(other.mBuildDate);
  const unsigned long long count = miBuildCount;
  miBuildCount = other.miBuildCount;
  other.miBuildCount = count;
}

qsa::cAbstractSerializer& cBuildInfo::operator>>(qsa::cAbstractSerializer& s) const {
  qsa::cPositionGuard guard(s);
  mBuildSystem >> s;
  mCompiler >> s;
  mCompilerVersion >> s;
  mBuildHost >> s;
  mBuildDate >> s;
  miBuildCount >> s;
  guard.commit();
  return s;
}

qsa::cAbstractDeserializer& cBuildInfo::operator<<(qsa::cAbstractDeserializer& d) {
  qsa::cPositionGuard guard(d);
  cBuildInfo read;
  read.mBuildSystem << d;
  read.mCompiler << d;
  read.mCompilerVersion << d;
  read.mBuildHost << d;
  read.mBuildDate << d;
  read.miBuildCount << d;
  guard.commit();
  swap(read);
  return d;
}

}  // namespace qstd
