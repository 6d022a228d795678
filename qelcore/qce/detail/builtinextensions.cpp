#include "qelcore/qce/detail/builtinextensions.h"

#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/pi/csystem.h"
#include "qelcore/qce/cabstractendecextension.h"
#include "qelcore/qce/cabstractsaextension.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qce/net++/cnetabstractaddressextension.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/qelversion.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

namespace qce {

namespace {

#if defined(__clang__)
#define QEL_COMPILER "clang"
#elif defined(__GNUC__)
#define QEL_COMPILER "gcc"
#else
#define QEL_COMPILER "unknown"
#endif

// What every built-in extension answers: its description, the library's
// build, and the fixed list of type names it makes.
template <class Base>
class tBuiltin : public Base {
public:
  tBuiltin(const char* description, const char* const* names) : msDescription(description), mpNames(names) {}

  qstd::cAsciiString description() override { return msDescription; }
  const qstd::cBuildInfo& buildInfo() const override {
    static const qstd::cBuildInfo info("CMake", QEL_COMPILER, __VERSION__, "unknown", "unknown", 0);
    return info;
  }
  bool supports(const qstd::cAsciiString& typeName) const override {
    for (const char* const* name = mpNames; *name; ++name)
      if (typeName == *name) return true;
    return false;
  }
  void provides(qstd::tVector<qstd::cAsciiString>& names) const override {
    for (const char* const* name = mpNames; *name; ++name) names.append(qstd::cAsciiString(*name));
  }

private:
  qstd::cAsciiString msDescription;
  const char* const* mpNames;
};

const char* const gAddressNames[] = {"TcpIpv4", nullptr};
const char* const gArchiveNames[] = {"Binary", nullptr};
const char* const gEnDecNames[] = {"Endec-UTF8", "Endec-UTF16", nullptr};

class cIPv4Extension : public tBuiltin<cNetAbstractAddressExtension> {
public:
  cIPv4Extension() : tBuiltin("IPv4 addresses", gAddressNames) {}
  qstd::tAutoPtr<cNetAbstractAddress> createNetAddress(const qstd::cAsciiString&) const override {
    return qstd::tAutoPtr<cNetAbstractAddress>(new cNetIPv4Address);
  }
};

class cBinaryArchiveExtension : public tBuiltin<cAbstractSAExtension> {
public:
  cBinaryArchiveExtension() : tBuiltin("binary archive", gArchiveNames) {}
  qstd::tAutoPtr<qsa::cAbstractSerializer> createSerializer(const qstd::cAsciiString&,
                                                            const qstd::cAsciiString& second) const override {
    qstd::tAutoPtr<qsa::cSerializeBinary> s(new qsa::cSerializeBinary);
    if (second == "utf8") s->setStringStoreMode(qsa::cSerializeBinary::StoreUTF8);
    return qstd::tAutoPtr<qsa::cAbstractSerializer>(s);
  }
  qstd::tAutoPtr<qsa::cAbstractDeserializer> createDeserializer(const qstd::cAsciiString&,
                                                                qstd::tConstArrayRef<char> data) const override {
    return qstd::tAutoPtr<qsa::cAbstractDeserializer>(new qsa::cDeserializeBinary(data));
  }
  qstd::tAutoPtr<qsa::cAbstractDeserializer> createDeserializer(const qstd::cAsciiString&,
                                                                const qucs::cString& fileName) const override {
    qstd::tArray<char> bytes;
    qpi::system().fs().readAll(qio::cPath(fileName), bytes);
    return qstd::tAutoPtr<qsa::cAbstractDeserializer>(new qsa::cDeserializeBinary(bytes, true));
  }
};

class cEnDecExtension : public tBuiltin<cAbstractEnDecExtension> {
public:
  cEnDecExtension() : tBuiltin("UTF-8 and UTF-16", gEnDecNames) {}
  qstd::tAutoPtr<qucs::cAbstractEnDec> createEnDec(const qstd::cAsciiString& typeName) const override {
    if (typeName == "Endec-UTF16")
      return qstd::tAutoPtr<qucs::cAbstractEnDec>(new qucs::cEnDecUTF16(qucs::cEnDecUTF16::FlagLittleEndian));
    return qstd::tAutoPtr<qucs::cAbstractEnDec>(new qucs::cEnDecUTF8);
  }
};

}  // namespace

void addBuiltinExtensions(cCoreExtensionMgr& mgr) {
  mgr.add(qstd::tAutoPtr<cAbstractCoreExtension>(new cBinaryArchiveExtension));
  mgr.add(qstd::tAutoPtr<cAbstractCoreExtension>(new cEnDecExtension));
  mgr.add(qstd::tAutoPtr<cAbstractCoreExtension>(new cIPv4Extension));
}

}  // namespace qce
