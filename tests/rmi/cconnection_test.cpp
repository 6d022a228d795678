// Connection handles: each ends exactly its own connection, and both the
// handle and the connection may go first in every order.
#include "qelcore/rmi/cconnection.h"

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/rmi/signal0.h"

using qrmi::cConnectable;
using qrmi::cConnection;
using qrmi::localSignal1;
using qsa::piVoid;

namespace {

typedef std::vector<std::string> tLog;

class cReceiver : public cConnectable {
public:
  cReceiver(tLog& log, const std::string& name) : mLog(log), msName(name) {}
  piVoid sltNote(int v) {
    mLog.push_back(msName + ":" + std::to_string(v));
    return piVoid();
  }

private:
  tLog& mLog;
  std::string msName;
};

}  // namespace

TEST(cConnection, DisconnectsExactlyItsOwnConnection) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b");
  localSignal1<piVoid, int> sig;
  cConnection first = sig.connect(a, &cReceiver::sltNote);
  cConnection second = sig.connect(a, &cReceiver::sltNote);
  sig.connect(b, &cReceiver::sltNote);
  EXPECT_TRUE(first.connected());
  EXPECT_TRUE(second.disconnect());
  EXPECT_FALSE(second.connected());
  EXPECT_FALSE(second.disconnect());
  sig(1);
  EXPECT_EQ(log, (tLog{"a:1", "b:1"}));
  EXPECT_TRUE(first.disconnect());
  sig(2);
  EXPECT_EQ(log, (tLog{"a:1", "b:1", "b:2"}));
  EXPECT_EQ(sig.slotCount(), 1u);
  // An empty handle has nothing to end.
  cConnection none;
  EXPECT_FALSE(none.disconnect());
}

TEST(cConnection, DroppingOrMovingTheHandleKeepsTheConnection) {
  tLog log;
  cReceiver a(log, "a");
  localSignal1<piVoid, int> sig;
  { cConnection dropped = sig.connect(a, &cReceiver::sltNote); }
  sig.connect(a, &cReceiver::sltNote);  // result ignored
  EXPECT_EQ(sig.slotCount(), 2u);

  std::vector<cConnection> kept;
  kept.push_back(sig.connect(a, &cReceiver::sltNote));
  kept.push_back(sig.connect(a, &cReceiver::sltNote));  // the vector moves the first handle
  cConnection moved = std::move(kept[0]);
  EXPECT_FALSE(kept[0].connected());
  EXPECT_EQ(sig.slotCount(), 4u);
  EXPECT_TRUE(moved.disconnect());
  EXPECT_TRUE(kept[1].disconnect());
  EXPECT_EQ(sig.slotCount(), 2u);

  // Assigning over a handle lets go of its connection without ending it.
  cConnection c = sig.connect(a, &cReceiver::sltNote);
  c = cConnection();
  EXPECT_EQ(sig.slotCount(), 3u);
}

TEST(cConnection, TheConnectionMayEndFirst) {
  tLog log;
  auto a = std::make_unique<cReceiver>(log, "a");
  auto sig = std::make_unique<localSignal1<piVoid, int>>();
  cConnection byReceiver = sig->connect(*a, &cReceiver::sltNote);
  a.reset();
  EXPECT_FALSE(byReceiver.connected());
  EXPECT_FALSE(byReceiver.disconnect());

  cReceiver b(log, "b");
  cConnection bySignal = sig->connect(b, &cReceiver::sltNote);
  cConnection byDetach = sig->connect(b, &cReceiver::sltNote);
  sig.reset();
  EXPECT_FALSE(bySignal.connected());
  EXPECT_TRUE(b.attachedSignals().empty());

  localSignal1<piVoid, int> other;
  byDetach = other.connect(b, &cReceiver::sltNote);
  b.detachAllSignals();
  EXPECT_FALSE(byDetach.connected());
  EXPECT_EQ(other.slotCount(), 0u);
}

TEST(cConnection, SlotsMayEndConnectionsDuringAnEmission) {
  tLog log;
  cReceiver a(log, "a"), b(log, "b");
  localSignal1<piVoid, int> sig;
  cConnection self, other;
  self = sig.connect(a, [&](int v) {
    log.push_back("self:" + std::to_string(v));
    other.disconnect();
    self.disconnect();
  });
  sig.connect(b, &cReceiver::sltNote);
  other = sig.connect(a, &cReceiver::sltNote);
  sig(1);
  sig(2);
  // The later slots still run once; the ended ones never again.
  EXPECT_EQ(log, (tLog{"self:1", "b:1", "b:2"}));
  EXPECT_FALSE(self.connected());
  EXPECT_EQ(a.attachedSignals().size(), 0u);
}

TEST(cConnection, TheTypedHandleReachesItsSlotCallWhileItLasts) {
  tLog log;
  localSignal1<piVoid, int> sig;
  auto handle = sig.connect(*std::make_unique<cReceiver>(log, "gone"), &cReceiver::sltNote);
  static_assert(std::is_same<decltype(handle.slotCall()), localSignal1<piVoid, int>::tSlotCall*>::value,
                "typed slot call");
  EXPECT_EQ(handle.slotCall(), nullptr);  // the receiver died at once
  cReceiver a(log, "a");
  auto c = sig.connect(a, &cReceiver::sltNote);
  piVoid result;
  c->invoke(result, 4);
  EXPECT_EQ(log, (tLog{"a:4"}));
  EXPECT_TRUE(a == &*c);
  // Sliced into a plain handle it still ends its connection.
  cConnection plain = std::move(c);
  EXPECT_EQ(c.slotCall(), nullptr);
  EXPECT_TRUE(plain.disconnect());
  EXPECT_EQ(sig.slotCount(), 0u);
}
