#include "qelcore/pi/cabstractclassloader.h"

#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/cplatform.h"
#include "qelcore/qce/ccoreextensionmgr.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cabstractplugin.h"
#include "qelcore/qcs/cmoduleloadexception.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cqcsexceptionfactory.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/qelversion.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/tautoptr.h"

#include "support/exceptiontext.h"
#include "support/testmodules.h"

using qcs::cModuleLoadException;
using qeltest::testModule;
using qpi::cAbstractClassLoader;
using qpi::cPlatform;
using qstd::tAutoPtr;

namespace {

std::string utf8(const qucs::cString& s) {
  const qstd::tArray<char> bytes = s.toUTF8();
  return std::string(bytes.data(true), bytes.size());
}

// Opens a module file that must fail; returns the exception.
cModuleLoadException loadFailure(const qucs::cString& file) {
  return qeltest::caught<cModuleLoadException>([&] { cPlatform::createClassLoader(file); });
}

template <class F>
cModuleLoadException instanceFailure(F f) {
  return qeltest::caught<cModuleLoadException>(f);
}

class ClassLoader : public ::testing::Test {
protected:
  qce::cCoreExtensionMgr mExtensions;
  qcs::cModuleMgr mMgr{mExtensions};
  qsa::cReferenceFrame mFrame;
};

}  // namespace

TEST_F(ClassLoader, AComponentModuleCountsItsComponentUntilItIsDestroyed) {
  tAutoPtr<cAbstractClassLoader> loader(cPlatform::createClassLoader(testModule("component")));
  EXPECT_EQ(loader->libFileName(), testModule("component"));
  EXPECT_TRUE(loader->isUnused());
  EXPECT_TRUE(loader->hasComponentSection());
  EXPECT_FALSE(loader->hasPlugInSection());

  unsigned int major = 0, minor = 0;
  loader->getModuleVersion(major, minor);
  EXPECT_EQ(major * 100 + minor, 307u);
  loader->getModuleQELVersion(major, minor);
  EXPECT_EQ(major, unsigned(QELCORE_VERSION_MAJOR));
  EXPECT_EQ(minor, unsigned(QELCORE_VERSION_MINOR));

  tAutoPtr<qcs::cAbstractComponent> component(loader->instance(mFrame, mMgr));
  component->setClassLoader(loader.get(), "component");
  EXPECT_EQ(loader->numReferences(), 1u);
  EXPECT_TRUE(component->isComponent());
  EXPECT_FALSE(component->isStatic());
  EXPECT_EQ(component->moduleInfo().name(), "component");  // the module's own code ran
  EXPECT_EQ(component->moduleInfo().context(), "component");

  // A component module is no plug-in module; the count stays.
  const cModuleLoadException e = instanceFailure([&] { loader->instance(mFrame); });
  EXPECT_EQ(e.problem(), cModuleLoadException::eNotProvided);
  EXPECT_EQ(qeltest::textOf(e), "File " + utf8(testModule("component")) + " is not a plugin!");
  EXPECT_EQ(loader->numReferences(), 1u);

  component.reset();  // gives the reference back, before the file is closed
  EXPECT_TRUE(loader->isUnused());
}

TEST_F(ClassLoader, APlugInModuleHasNoComponent) {
  tAutoPtr<cAbstractClassLoader> loader(cPlatform::createClassLoader(testModule("plugin")));
  EXPECT_FALSE(loader->hasComponentSection());
  EXPECT_TRUE(loader->hasPlugInSection());
  const cModuleLoadException e = instanceFailure([&] { loader->instance(mFrame, mMgr); });
  EXPECT_EQ(e.problem(), cModuleLoadException::eNotProvided);
  EXPECT_EQ(qeltest::textOf(e), "cClassLoader: No component!");

  tAutoPtr<qcs::cAbstractPlugIn> plugIn(loader->instance(mFrame));
  plugIn->setClassLoader(loader.get(), "plugin");
  EXPECT_TRUE(plugIn->isPlugIn());
  EXPECT_EQ(plugIn->pluginTypeName(), "test");
  EXPECT_EQ(loader->numReferences(), 1u);
  plugIn.reset();
  EXPECT_TRUE(loader->isUnused());
}

TEST_F(ClassLoader, InitSectionsThatMakeNoInstanceAreNotCounted) {
  tAutoPtr<cAbstractClassLoader> loader(cPlatform::createClassLoader(testModule("nullinstance")));
  const std::string file = utf8(testModule("nullinstance"));
  cModuleLoadException e = instanceFailure([&] { loader->instance(mFrame, mMgr); });
  EXPECT_EQ(e.problem(), cModuleLoadException::eNotProvided);
  EXPECT_EQ(qeltest::textOf(e), "cClassLoader: no instance!");
  e = instanceFailure([&] { loader->instance(mFrame); });
  EXPECT_EQ(e.problem(), cModuleLoadException::eNotProvided);
  EXPECT_EQ(qeltest::textOf(e), "Plugin (" + file + ") does not provide functionality!");
  EXPECT_TRUE(loader->isUnused());
}

TEST(ClassLoaderChecks, SectionsAreCheckedInTheirFixedOrder) {
  const struct {
    const char* module;
    const char* text;
  } cases[] = {
      {"noinit", "Invalid module. Missing moduleInit section!"},  // the versions are missing too
      {"nomoduleversion", "Invalid module. Missing moduleVersion section!"},
      {"noqelversion", "Invalid module. Missing qelVersion section!"},
  };
  for (const auto& c : cases) {
    const cModuleLoadException e = loadFailure(testModule(c.module));
    EXPECT_EQ(e.problem(), cModuleLoadException::eInvalidModule) << c.module;
    EXPECT_EQ(qeltest::textOf(e), c.text);
    EXPECT_EQ(e.fileName(), testModule(c.module));
  }
}

TEST(ClassLoaderChecks, FilesTheSystemCannotLoadCarryItsErrorText) {
  for (const char* module : {"missing", "notalibrary"}) {
    const cModuleLoadException e = loadFailure(testModule(module));
    EXPECT_EQ(e.problem(), cModuleLoadException::eLoadFailed) << module;
    EXPECT_EQ(e.fileName(), testModule(module));
    const std::string text = qeltest::textOf(e);
    const std::string prefix = "Operating system returned error: ";
    ASSERT_EQ(text.compare(0, prefix.size(), prefix), 0) << text;
    EXPECT_EQ(text.back(), '!');
    EXPECT_GT(text.size(), prefix.size() + 1);
#ifdef _WIN32
    // (code): "the system's text"
    EXPECT_EQ(text[prefix.size()], '(') << text;
    EXPECT_NE(text.find("): \""), std::string::npos) << text;
    EXPECT_EQ(text.substr(text.size() - 2), "\"!");
#endif
  }
}

TEST(ClassLoaderChecks, AFailureTravelsWithItsKindAndFile) {
  const cModuleLoadException sent = loadFailure(testModule("noqelversion"));
  qsa::cSerializeBinary s;
  sent.storeRecursive(s);
  qsa::cDeserializeBinary d(s.ownData());
  tAutoPtr<qstd::cAbstractException> back =
      qstd::cAbstractException::createFromStream(d, qcs::cQCSExceptionFactory());
  const cModuleLoadException& got = dynamic_cast<const cModuleLoadException&>(*back);
  EXPECT_EQ(got.problem(), cModuleLoadException::eInvalidModule);
  EXPECT_EQ(got.fileName(), testModule("noqelversion"));
  EXPECT_EQ(qeltest::textOf(got), "Invalid module. Missing qelVersion section!");
}
