#include "qelcore/qcs/cmoduleinfo.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/qcs/cmanagedcomponent.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/cbugexception.h"

#include "qcstestutil.h"

using qcs::cModuleInfo;
using qcstest::thrown;
using qstd::cAsciiString;

namespace {

cModuleInfo clockInfo() {
  cModuleInfo info;
  info.setName("clock");
  info.setAuthor("Ada");
  info.setDescription("wall time");
  info.setBuildInfo(qstd::cBuildInfo("cmake", "gcc", "12.2", "hostA", "2026-01-02", 42));
  info.setContext("clock.so");
  return info;
}

}  // namespace

TEST(ModuleInfo, TextNamesBuildAuthorHostDateAndCompiler) {
  EXPECT_EQ(std::string(clockInfo().toString().c_str()),
            "clock (build 42) Written by Ada builded on \"hostA\" (2026-01-02) using gcc - 12.2");
}

TEST(ModuleInfo, ArchiveKeepsAllFiveFieldsAndLoadsAllOrNothing) {
  qsa::cSerializeBinary s;
  clockInfo() >> s;
  cModuleInfo back;
  qsa::cDeserializeBinary d(s.ownData());
  back << d;
  EXPECT_EQ(back.toString(), clockInfo().toString());
  EXPECT_EQ(back.description(), cAsciiString("wall time"));
  EXPECT_EQ(back.context(), cAsciiString("clock.so"));

  // Everything but the context: nothing changes.
  qsa::cSerializeBinary partial;
  cAsciiString("other") >> partial;
  cAsciiString("Bob") >> partial;
  cAsciiString("") >> partial;
  clockInfo().buildInfo() >> partial;
  cModuleInfo kept = clockInfo();
  qsa::cDeserializeBinary short_(partial.ownData());
  EXPECT_ANY_THROW(kept << short_);
  EXPECT_EQ(kept.name(), cAsciiString("clock"));
  EXPECT_EQ(kept.author(), cAsciiString("Ada"));
}

TEST(ManagedComponent, OwnsOnlyWhatItWasGivenAndRefusesNothing) {
  qcstest::cManagerFixture f;
  std::vector<std::string> log;
  qcstest::cTestComponent borrowed(f.mMgr, "borrowed");
  borrowed.mpLog = &log;
  {
    qcs::cManagedComponent handle(borrowed);
    EXPECT_EQ(&handle.component(), &borrowed);
  }
  EXPECT_TRUE(log.empty());

  qcstest::cTestComponent* owned = new qcstest::cTestComponent(f.mMgr, "owned");
  owned->mpLog = &log;
  {
    qcs::cManagedComponent first{qstd::tAutoPtr<qcs::cAbstractComponent>(owned)};
    qcs::cManagedComponent second(first);  // takes the guard over
    EXPECT_EQ(&first.component(), owned);
    EXPECT_EQ(&second.component(), owned);
    EXPECT_FALSE(first.owned());
    EXPECT_TRUE(second.owned());
  }
  EXPECT_EQ(log, (std::vector<std::string>{"destroyed owned"}));

  const std::string refused = thrown<qstd::cBugException>(
      [] { qcs::cManagedComponent null{qstd::tAutoPtr<qcs::cAbstractComponent>()}; });
  EXPECT_NE(refused.find("Assertion failed in file qcs/cmanagedcomponent:"), std::string::npos) << refused;
  EXPECT_NE(refused.find("(mpComponentGuard.get())!"), std::string::npos) << refused;
}
