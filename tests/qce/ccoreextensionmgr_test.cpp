#include "qelcore/qce/ccoreextensionmgr.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/csystem.h"
#include "qelcore/qce/cabstractendecextension.h"
#include "qelcore/qce/cgenericextension.h"
#include "qelcore/qce/cunsupportedextensionexception.h"
#include "qelcore/qce/net++/cnetabstractaddress.h"
#include "qelcore/qce/net++/cnetabstractaddressextension.h"
#include "qelcore/qce/net++/cnetipv4address.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cmoduleloadexception.h"
#include "qelcore/qcs/cpluginmgr.h"
#include "qelcore/qelversion.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbuildinfo.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/cabstractendec.h"

#include "support/capturingout.h"
#include "support/exceptiontext.h"
#include "support/testmodules.h"

using qce::cAbstractCoreExtension;
using qce::cCoreExtensionMgr;
using qce::cUnsupportedExtensionException;
using qeltest::testModule;
using qeltest::textOf;
using qstd::cAsciiString;
using qstd::tAutoPtr;

namespace {

// An address extension that makes IPv4 addresses for the names it is given
// and tags them with its own port, so a test can tell which one made it.
class cTaggingExtension : public qce::cNetAbstractAddressExtension {
public:
  cTaggingExtension(const char* name, unsigned int tag) : msName(name), miTag(tag) {}
  cAsciiString description() override { return "tagging"; }
  const qstd::cBuildInfo& buildInfo() const override { return mInfo; }
  bool supports(const cAsciiString& typeName) const override { return typeName == msName; }
  void provides(qstd::tVector<cAsciiString>& names) const override { names.append(msName); }
  tAutoPtr<qce::cNetAbstractAddress> createNetAddress(const cAsciiString&) const override {
    return tAutoPtr<qce::cNetAbstractAddress>(new qce::cNetIPv4Address(0, miTag));
  }

private:
  cAsciiString msName;
  unsigned int miTag;
  qstd::cBuildInfo mInfo;
};

tAutoPtr<cAbstractCoreExtension> tagging(const char* name, unsigned int tag) {
  return tAutoPtr<cAbstractCoreExtension>(new cTaggingExtension(name, tag));
}

tAutoPtr<cAbstractCoreExtension> generic(const char* name, cAbstractCoreExtension::ExtensionType type) {
  return tAutoPtr<cAbstractCoreExtension>(new qce::cGenericExtension(name, type));
}

unsigned int tagOf(const tAutoPtr<qce::cNetAbstractAddress>& a) {
  return static_cast<const qce::cNetIPv4Address&>(*a).port();
}

template <class F>
cUnsupportedExtensionException unsupported(F f) {
  return qeltest::caught<cUnsupportedExtensionException>(f);
}

std::string utf8(const qucs::cString& s) {
  const qstd::tArray<char> bytes = s.toUTF8();
  return std::string(bytes.data(true), bytes.size());
}

}  // namespace

TEST(CoreExtensionLookup, TheEarliestSupportingExtensionOfTheKindCreates) {
  cCoreExtensionMgr mgr;
  EXPECT_TRUE(mgr.extensions().empty());
  mgr.add(generic("x", cAbstractCoreExtension::eNetAddress));  // never chosen, not even for "x"
  mgr.add(tagging("x", 1));
  mgr.add(tagging("x", 2));
  mgr.add(tagging("y", 3));
  EXPECT_EQ(tagOf(mgr.createNetAddress("x")), 1u);
  EXPECT_EQ(tagOf(mgr.createNetAddress("y")), 3u);

  qstd::tVector<cAsciiString> names;
  mgr.provides(cAbstractCoreExtension::eNetAddress, names);
  ASSERT_EQ(names.size(), 3u);
  EXPECT_EQ(names[2], "y");
  names.clear();
  mgr.provides(cAbstractCoreExtension::eSerializer, names);
  EXPECT_TRUE(names.empty());

  mgr.clear();
  EXPECT_TRUE(mgr.extensions().empty());
}

TEST(CoreExtensionLookup, AFailedLookupHasOneTextWhetherOrNotTheKindExists) {
  cCoreExtensionMgr mgr;
  mgr.add(tagging("TcpIpv4", 1));
  cUnsupportedExtensionException e = unsupported([&] { mgr.createNetAddress("tcp"); });
  EXPECT_EQ(textOf(e), "No netwok address of type \"tcp\" found!");
  EXPECT_EQ(e.className(), "netwok address");
  EXPECT_EQ(e.extensionName(), "tcp");
  EXPECT_TRUE(e.otherExtensionsFound());

  e = unsupported([&] { mgr.createSerializer("Binary", ""); });
  EXPECT_EQ(textOf(e), "No serializer of type \"Binary\" found!");
  EXPECT_FALSE(e.otherExtensionsFound());
  mgr.add(generic("Binary", cAbstractCoreExtension::eSerializer));
  e = unsupported([&] { mgr.createDeserializer("Binary", qstd::tConstArrayRef<char>()); });
  EXPECT_EQ(textOf(e), "No serializer of type \"Binary\" found!");
  EXPECT_TRUE(e.otherExtensionsFound());
  e = unsupported([&] { mgr.createEnDec("Endec-UTF8"); });
  EXPECT_EQ(textOf(e), "No Encoder / Decoder of type \"Endec-UTF8\" found!");
  EXPECT_EQ(e.typeName(), "cUnsupportedExtensionException");
}

TEST(CoreExtensionLookup, HasExtensionIgnoresTheKind) {
  cCoreExtensionMgr mgr;
  mgr.add(generic("gen", cAbstractCoreExtension::eEnDec));
  mgr.add(tagging("x", 1));
  EXPECT_EQ(mgr.hasExtension("gen"), nullptr);
  ASSERT_NE(mgr.hasExtension("x"), nullptr);
  EXPECT_EQ(mgr.hasExtension("x")->extensionType(), cAbstractCoreExtension::eNetAddress);
  EXPECT_EQ(mgr.hasExtension("y"), nullptr);
}

TEST(SystemExtensions, TheLibrarysOwnExtensionsAreThereFromTheStart) {
  cCoreExtensionMgr& mgr = qpi::system().coreExtensions();
  EXPECT_EQ(mgr.createEnDec("Endec-UTF8")->name(), "Endec-UTF8");
  EXPECT_EQ(mgr.createEnDec("Endec-UTF16")->name(), "Endec-UTF16");
  EXPECT_EQ(mgr.createNetAddress("TcpIpv4")->addrType(), "TcpIpv4");
  EXPECT_EQ(mgr.hasExtension("Binary")->extensionType(), cAbstractCoreExtension::eSerializer);

  tAutoPtr<qsa::cAbstractSerializer> out = mgr.createSerializer("Binary", "utf8");
  ASSERT_NE(dynamic_cast<qsa::cSerializeBinary*>(out.get()), nullptr);
  qsa::cSerializeBinary& binary = static_cast<qsa::cSerializeBinary&>(*out);
  EXPECT_EQ(binary.stringStoreMode(), qsa::cSerializeBinary::StoreUTF8);
  binary.store(4711u);
  tAutoPtr<qsa::cAbstractDeserializer> in = mgr.createDeserializer("Binary", binary.data());
  unsigned int value = 0;
  in->load(value);
  EXPECT_EQ(value, 4711u);
  qpi::cSystem::cleanup();
}

TEST(SystemExtensions, CleanupUnloadsThePlugInsAndTheNextSystemStartsAfresh) {
  qpi::system().coreExtensions().load(testModule("generic"));
  EXPECT_EQ(qpi::system().coreExtensions().extensions().size(), 4u);
  qpi::cSystem::cleanup();
  EXPECT_EQ(qpi::system().coreExtensions().extensions().size(), 3u);  // the library's own
  qpi::cSystem::cleanup();
}

class ExtensionModules : public ::testing::Test {
protected:
  ~ExtensionModules() override { qpi::cSystem::cleanup(); }
  cCoreExtensionMgr mMgr;
};

TEST_F(ExtensionModules, APlugInWithACoreExtensionIsListedWithItsModule) {
  qcs::cAbstractModule& module = mMgr.load(testModule("generic"));
  EXPECT_TRUE(module.isPlugIn());
  EXPECT_FALSE(module.isStatic());
  EXPECT_EQ(module.moduleInfo().context(), testModule("generic").ascii());
  ASSERT_EQ(mMgr.extensions().size(), 1u);
  EXPECT_EQ(mMgr.extensions().first()->plugIn(), &module);
  EXPECT_EQ(mMgr.extensions().first()->extension().description(), "generic");
  EXPECT_EQ(mMgr.hasExtension("generic"), nullptr);  // a generic extension creates nothing

  mMgr.add(tagging("x", 1));
  mMgr.unloadPlugIns();  // the plug-in goes before its file; the extension stays
  ASSERT_EQ(mMgr.extensions().size(), 1u);
  EXPECT_EQ(mMgr.extensions().first()->plugIn(), nullptr);
}

TEST_F(ExtensionModules, ModulesWithoutACoreExtensionOrNotLoadableLeaveNothingBehind) {
  const qucs::cString plugIn = testModule("plugin");
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { mMgr.load(plugIn); }),
            "Module (\"" + utf8(plugIn) + "\") does not provide core extension functionality.");
  EXPECT_THROW(mMgr.load(testModule("component")), qcs::cModuleLoadException);  // not a plug-in
  EXPECT_THROW(mMgr.load(testModule("missing")), qcs::cModuleLoadException);
  EXPECT_TRUE(mMgr.extensions().empty());
}

TEST_F(ExtensionModules, APlugInLoadedElsewhereIsListedOnlyWhenItIsACoreExtension) {
  qcs::cPlugInMgr plugIns;
  qcs::cAbstractModule& module = mMgr.add(plugIns.loadPlugIn(testModule("generic")));
  ASSERT_EQ(mMgr.extensions().size(), 1u);
  EXPECT_EQ(mMgr.extensions().first()->plugIn(), &module);

  const qucs::cString plugIn = testModule("plugin");
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { mMgr.add(plugIns.loadPlugIn(plugIn)); }),
            "Module (\"" + utf8(plugIn) + "\") does not provide core extension functionality.");
  EXPECT_EQ(mMgr.extensions().size(), 1u);
  EXPECT_TRUE(plugIns.plugIns().empty());
}

TEST_F(ExtensionModules, ModulesAreFoundByNameInTheModulePaths) {
  EXPECT_TRUE(mMgr.has(qeltest::testModuleDir() + "/generic"));
  EXPECT_FALSE(mMgr.has(qeltest::testModuleDir() + "/missing"));
  EXPECT_TRUE(mMgr.extensions().empty());  // has() loads nothing

  qsa::cReferenceFrame frame;
  EXPECT_THROW(mMgr.load(cAsciiString("generic"), frame), qcs::cModuleLoadException);
  mMgr.modulePaths().prepend(qio::cPath(qeltest::testModuleDir()));
  qcs::cAbstractModule& module = mMgr.load(cAsciiString("generic"), frame);
  EXPECT_EQ(mMgr.extensions().first()->plugIn(), &module);
}

TEST_F(ExtensionModules, AModuleBuiltAgainstAnotherMajorVersionIsLoadedWithAWarning) {
  qeltest::cCapturingOut out;
  EXPECT_THROW(mMgr.load(testModule("othermajor")), qstd::cRuntimeException);  // no core extension
  const std::string expected = "was built against QELCore " + std::to_string(QELCORE_VERSION_MAJOR + 1) +
                               ".4; this is QELCore " + std::to_string(QELCORE_VERSION_MAJOR) + "." +
                               std::to_string(QELCORE_VERSION_MINOR) + ".";
  EXPECT_TRUE(out.contains(expected));
  out.clear();
  mMgr.load(testModule("generic"));
  EXPECT_FALSE(out.contains("was built against"));
}
