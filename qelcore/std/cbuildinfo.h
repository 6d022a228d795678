/// \class qstd::cBuildInfo
/// How a binary was built: build system, compiler and its version, build host,
/// build date and a build count. The library, every module and every extension
/// report one, and it travels in archives.
#ifndef QELCORE_STD_CBUILDINFO_H
#define QELCORE_STD_CBUILDINFO_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qstd {

class QEL_EXPORT cBuildInfo {
public:
  /// Every text "unknown", count 0.
  cBuildInfo();
  /// The fields, in this order.
  cBuildInfo(const char* buildSystem, const char* compiler, const char* compilerVersion, const char* buildHost,
             const char* buildDate, unsigned int buildCount);
  ///@{
  /// Plain copies.
  cBuildInfo(const cBuildInfo& other);
  cBuildInfo& operator=(const cBuildInfo& other);
  ///@}
  virtual ~cBuildInfo();
  /// Exchanges two build descriptions.
  void swap(cBuildInfo& other);

  /// The build system used.
  cAsciiString buildSystem() const { return mBuildSystem; }
  /// The compiler's name.
  cAsciiString compiler() const { return mCompiler; }
  /// The compiler's version.
  cAsciiString compilerVersion() const { return mCompilerVersion; }
  /// The machine that built it.
  cAsciiString buildHost() const { return mBuildHost; }
  /// When it was built.
  cAsciiString buildDate() const { return mBuildDate; }
  /// The build's number.
  unsigned long long buildCount() const { return miBuildCount; }

  /// The five texts in field order, then the count as an unsigned 64-bit value.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  /// Reads the same; the record changes only when all of it was read.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);

private:
  cAsciiString mBuildSystem;
  cAsciiString mCompiler;
  cAsciiString mCompilerVersion;
  cAsciiString mBuildHost;
  cAsciiString mBuildDate;
  unsigned long long miBuildCount;
};

}  // namespace qstd

#endif
