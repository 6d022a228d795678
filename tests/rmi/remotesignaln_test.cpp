#include "qelcore/rmi/remotesignaln.h"

#include <gtest/gtest.h>

#include "qelcore/rmi/cnosuchslotexception.h"

#include "rmitestutil.h"

using qstd::cAsciiString;
using rmitest::cService;

namespace {

class cLog : public qrmi::cConnectable {
public:
  int sltAdd(int a, int b) {
    ++miCalls;
    return a + b;
  }
  int miCalls = 0;
};

}  // namespace

TEST(remoteSignalN, ConnectsPublicSlotsByNameThroughTheAbstractSignal) {
  cService svc;
  cLog log;
  qrmi::remoteSignal2<int, int, int> sigAdd;
  // What a transport sees: only the untyped signal.
  qrmi::cAbstractSignal& untyped = sigAdd;
  untyped.connectIndirect(svc, "add");
  EXPECT_EQ(sigAdd(20, 22), 42);
  EXPECT_EQ(svc.miCalls, 1);

  // Direct and indirect connections share the emission.
  sigAdd.connect(log, &cLog::sltAdd);
  sigAdd(1, 2);
  EXPECT_EQ(svc.miCalls, 2);
  EXPECT_EQ(log.miCalls, 1);

  // Alterable arguments come back through the archive.
  qrmi::remoteSignal2<qsa::piVoid, const cAsciiString&, cAsciiString&> sigRename;
  sigRename.connectIndirect(svc, "rename");
  cAsciiString name("x");
  sigRename(cAsciiString("a"), name);
  EXPECT_STREQ(name.c_str(), "ax");

  EXPECT_TRUE(untyped.disconnectObject(svc));
  sigAdd(1, 2);
  EXPECT_EQ(svc.miCalls, 3);  // the rename above, not this emission
  EXPECT_EQ(log.miCalls, 2);
}

TEST(remoteSignalN, AMissingSlotFailsTheEmissionByName) {
  cService svc;
  qrmi::remoteSignal1<int, int> sig;
  sig.connectIndirect(svc, "nope");
  EXPECT_THROW(sig(1), qrmi::cNoSuchSlotException);
}

TEST(remoteSignalN, ReceiverAndSignalMayDieInEitherOrder) {
  cService kept;
  {
    qrmi::remoteSignal2<int, int, int> sig;
    {
      cService gone;
      sig.connectIndirect(gone, "add");
      sig.connectIndirect(kept, "add");
    }
    EXPECT_EQ(sig(2, 3), 5);
    EXPECT_EQ(kept.miCalls, 1);
  }
  EXPECT_TRUE(kept.attachedSignals().empty());
}
