#include "qelcore/qcs/cpluginmgr.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/pi/cabstractclassloader.h"
#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qce/cgenericplugin.h"
#include "qelcore/qcs/cmoduleloadexception.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/std/cruntimeexception.h"

#include "support/exceptiontext.h"
#include "support/testmodules.h"

using qcs::cAbstractPlugIn;
using qcs::cPlugInGuard;
using qcs::cPlugInMgr;
using qeltest::testModule;
using qstd::tAutoPtr;

namespace {

typedef std::vector<std::string> tLog;

class cLoggingLoader : public qpi::cAbstractClassLoader {
public:
  explicit cLoggingLoader(tLog& log) : cAbstractClassLoader(qucs::cString("static")), mLog(log) {}
  ~cLoggingLoader() override { mLog.push_back("loader"); }
  qcs::cAbstractComponent* instance(qsa::cReferenceFrame&, qcs::cModuleMgr&) override { return nullptr; }
  cAbstractPlugIn* instance(qsa::cReferenceFrame&) override { return nullptr; }
  void getModuleVersion(unsigned int&, unsigned int&) const override {}
  void getModuleQELVersion(unsigned int&, unsigned int&) const override {}
  tLog& mLog;
};

class cLoggingPlugIn : public cAbstractPlugIn {
public:
  cLoggingPlugIn(qsa::cReferenceFrame& frame, tLog& log) : cAbstractPlugIn(frame), mLog(log) {
    moduleInfo().setName("logging");
  }
  ~cLoggingPlugIn() override { mLog.push_back("plug-in"); }
  tLog& mLog;
};

class PlugIns : public ::testing::Test {
protected:
  qsa::cReferenceFrame mFrame;
  tLog mLog;
};

}  // namespace

TEST_F(PlugIns, APlugInWithoutOverridesIsNoCoreExtension) {
  cLoggingPlugIn plugIn(mFrame, mLog);
  EXPECT_TRUE(plugIn.isPlugIn());
  EXPECT_FALSE(plugIn.isComponent());
  EXPECT_TRUE(plugIn.isStatic());
  EXPECT_EQ(plugIn.pluginTypeName(), "none");
  EXPECT_FALSE(plugIn.isCoreExtension());
  EXPECT_EQ(qeltest::thrownText<qstd::cRuntimeException>([&] { plugIn.coreExtension(); }),
            "Module (\"logging\") does not provide core extension functionality.");

  qce::cGenericPlugIn kept(mFrame, "kept");
  EXPECT_TRUE(kept.isCoreExtension());
  EXPECT_EQ(kept.coreExtension().extensionType(), qce::cAbstractCoreExtension::eEnDec);
  EXPECT_FALSE(kept.coreExtension().supports("kept"));
}

TEST_F(PlugIns, AGuardDestroysThePlugInBeforeItsLoader) {
  {
    tAutoPtr<cAbstractPlugIn> plugIn(new cLoggingPlugIn(mFrame, mLog));
    plugIn->setClassLoader(new cLoggingLoader(mLog), "static");
    cPlugInGuard guard(plugIn);
    EXPECT_EQ(guard->pluginTypeName(), "none");
  }
  EXPECT_EQ(mLog, (tLog{"plug-in", "loader"}));
  mLog.clear();
  { cPlugInGuard linkedIn{tAutoPtr<cAbstractPlugIn>(new cLoggingPlugIn(mFrame, mLog))}; }
  EXPECT_EQ(mLog, (tLog{"plug-in"}));
}

TEST_F(PlugIns, TheManagerListsUnloadsAndHandsOverItsPlugIns) {
  cPlugInMgr mgr;
  tAutoPtr<cPlugInGuard> loaded = mgr.loadPlugIn(testModule("plugin"), mFrame);
  EXPECT_TRUE(mgr.plugIns().empty());  // not listed before registerPlugIn
  cAbstractPlugIn* module = &loaded->plugIn();
  EXPECT_EQ(module->pluginTypeName(), "test");
  EXPECT_EQ(module->classLoader()->numReferences(), 1u);
  mgr.registerPlugIn(loaded);
  tAutoPtr<cAbstractPlugIn> stranger(new cLoggingPlugIn(mFrame, mLog));
  mgr.registerPlugIn(tAutoPtr<cPlugInGuard>(new cPlugInGuard(stranger)));
  ASSERT_EQ(mgr.plugIns().size(), 2u);

  cLoggingPlugIn unlisted(mFrame, mLog);
  mgr.unloadPlugIn(&unlisted);
  EXPECT_EQ(mgr.plugIns().size(), 2u);

  cPlugInMgr taker(mgr);
  EXPECT_TRUE(mgr.plugIns().empty());
  taker.unloadPlugIn(module);
  ASSERT_EQ(taker.plugIns().size(), 1u);
  EXPECT_TRUE(mLog.empty());
  taker.unloadAll();
  EXPECT_EQ(mLog, (tLog{"plug-in"}));
}

TEST_F(PlugIns, LoadingReportsTheClassLoadersErrorsUnchanged) {
  cPlugInMgr mgr;
  try {
    mgr.loadPlugIn(testModule("component"));
    ADD_FAILURE();
  } catch (const qcs::cModuleLoadException& e) {
    EXPECT_EQ(e.problem(), qcs::cModuleLoadException::eNotProvided);
  }
  EXPECT_THROW(mgr.loadPlugIn(testModule("nullinstance")), qcs::cModuleLoadException);
  EXPECT_TRUE(mgr.plugIns().empty());
}
