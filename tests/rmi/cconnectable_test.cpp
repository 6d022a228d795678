#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "qelcore/rmi/localsignaln.h"

using qrmi::cConnectable;
using qrmi::localSignal0;
using qsa::piVoid;

namespace {

class cSink : public cConnectable {
public:
  int calls = 0;
  piVoid sltRun() {
    ++calls;
    return piVoid();
  }
};

typedef std::vector<std::unique_ptr<localSignal0<piVoid>>> tSignals;

}  // namespace

// A receiver of many signals (a work queue listening to thousands of works)
// keeps its entries in attachment order whichever connections end, and in
// whatever order.
TEST(ConnectableEntries, ManySignalsDetachInAnyOrderAndKeepTheRestInOrder) {
  cSink sink;
  tSignals signals;
  for (int i = 0; i < 300; ++i) {
    signals.emplace_back(new localSignal0<piVoid>);
    signals.back()->connect(sink, &cSink::sltRun);
    if (i == 150) signals.back()->connect(sink, &cSink::sltRun);  // two entries of one signal
  }
  ASSERT_EQ(sink.attachedSignals().size(), 301u);

  // Every third from the back, then the doubled one, then every other from
  // the front: the gaps are closed and the index rebuilt on the way.
  for (int i = 299; i >= 0; i -= 3) signals[i].reset();
  signals[150].reset();
  for (std::size_t i = 0; i < signals.size(); i += 2) signals[i].reset();
  cConnectable::tSignalList expected;
  for (const auto& s : signals)
    if (s) expected.push_back(s.get());
  EXPECT_EQ(sink.attachedSignals(), expected);

  // Connections made after the removals go to the end and still detach.
  localSignal0<piVoid> late;
  late.connect(sink, &cSink::sltRun);
  expected.push_back(&late);
  EXPECT_EQ(sink.attachedSignals(), expected);
  for (const auto& s : signals)
    if (s) (*s)();
  late();
  EXPECT_EQ(sink.calls, static_cast<int>(expected.size()));
}

TEST(ConnectableEntries, AReceiverOfManySignalsDetachesFromEveryLiveOneWhenItDies) {
  tSignals signals;
  {
    cSink sink;
    for (int i = 0; i < 100; ++i) {
      signals.emplace_back(new localSignal0<piVoid>);
      signals.back()->connect(sink, &cSink::sltRun);
    }
    for (int i = 0; i < 100; i += 4) signals[i].reset();
  }
  for (const auto& s : signals) {
    if (s) {
      EXPECT_EQ(s->slotCount(), 0u);
    }
  }
}

// Most receivers hold one or two entries: an ending connection takes away
// exactly its signal's entries, whichever position they have, and all of
// them for a signal connected twice.
TEST(ConnectableEntries, AShortListLosesExactlyTheEntriesOfTheEndingSignal) {
  typedef cConnectable::tSignalList tList;
  cSink sink;
  localSignal0<piVoid> first, second;
  auto a = first.connect(sink, &cSink::sltRun);
  auto b = second.connect(sink, &cSink::sltRun);
  b.disconnect();
  EXPECT_EQ(sink.attachedSignals(), (tList{&first}));
  b = second.connect(sink, &cSink::sltRun);
  a.disconnect();
  EXPECT_EQ(sink.attachedSignals(), (tList{&second}));
  b.disconnect();
  EXPECT_TRUE(sink.attachedSignals().empty());

  a = first.connect(sink, &cSink::sltRun);
  first.connect(sink, &cSink::sltRun);
  a.disconnect();
  EXPECT_TRUE(sink.attachedSignals().empty());
  EXPECT_EQ(first.slotCount(), 1u);
  first();
  EXPECT_EQ(sink.calls, 1);
}
