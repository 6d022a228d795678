// A plug-in with a core extension, in a module file of its own (liblatin1.so,
// latin1.dll): an encoder/decoder "Endec-Latin1" that writes one byte per
// character. Once loaded, every part of the process can make one by name:
//
//   qsa::cReferenceFrame frame;
//   qpi::system().coreExtensions().load(qucs::cString(file), frame);
//   qstd::tAutoPtr<qucs::cAbstractEnDec> latin1 = qpi::system().coreExtensions().createEnDec("Endec-Latin1");
#include "qelcore/qcs/cmodulesections.h"
#include "qelcore/qelcore.h"

// Characters beyond U+00FF become '?'.
class cLatin1 : public qucs::cAbstractEnDec {
public:
  qstd::cAsciiString name() const override { return "Endec-Latin1"; }
  using cAbstractEnDec::decode;
  using cAbstractEnDec::encode;
  void encode(const qucs::cString& text, qstd::tArray<char>& out) const override {
    for (unsigned int i = 0; i < text.size(); ++i) out.append(static_cast<char>(text[i] <= 0xFF ? text[i] : '?'));
  }
  void decode(const qstd::tConstArrayRef<char>& bytes, qucs::cString& out) const override {
    for (unsigned int i = 0; i < bytes.size(); ++i)
      out.append(static_cast<unsigned int>(static_cast<unsigned char>(bytes[i])));
  }
};

// The extension: which type names it makes, and the making.
class cLatin1Extension : public qce::cAbstractEnDecExtension {
public:
  qstd::cAsciiString description() override { return "Latin-1 text"; }
  const qstd::cBuildInfo& buildInfo() const override { return mBuildInfo; }
  bool supports(const qstd::cAsciiString& typeName) const override { return typeName == "Endec-Latin1"; }
  void provides(qstd::tVector<qstd::cAsciiString>& names) const override { names.append("Endec-Latin1"); }
  qstd::tAutoPtr<qucs::cAbstractEnDec> createEnDec(const qstd::cAsciiString&) const override {
    return qstd::tAutoPtr<qucs::cAbstractEnDec>(new cLatin1);
  }

private:
  qstd::cBuildInfo mBuildInfo;
};

// The plug-in that carries the extension.
class cLatin1PlugIn : public qcs::cAbstractPlugIn {
public:
  explicit cLatin1PlugIn(qsa::cReferenceFrame& frame) : cAbstractPlugIn(frame) {
    moduleInfo().setName("latin1");
    moduleInfo().setAuthor("example");
    moduleInfo().setDescription("Latin-1 encoder (Endec-Latin1)");
  }
  bool isCoreExtension() const override { return true; }
  const qce::cAbstractCoreExtension& coreExtension() const override { return mExtension; }
  qstd::cAsciiString pluginTypeName() override { return "encoder"; }

private:
  cLatin1Extension mExtension;
};

QEL_MODULE_VERSION(1, 0)
QEL_MODULE_PLUGIN(cLatin1PlugIn)
