#include "qelcore/pi/cwqdebug.h"

#include <cstdint>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/pi/cworkqueue.h"

#include "support/worktestutil.h"

using qeltest::cJob;
using qeltest::cTestQueue;
using qeltest::makeJob;
using qpi::cWork;
using qstd::tSharedObject;

namespace {

std::string idOf(const cWork* w) {
  char text[40];
  std::snprintf(text, sizeof text, "\"%llx\"", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(w)));
  return text;
}

}  // namespace

TEST(WqDebug, DotGraphHasANodePerWorkAndAnEdgePerParent) {
  cTestQueue q;
  cJob tickJob;
  tSharedObject<cWork> tick, child;
  qeltest::tickWithChild(q, tickJob, tick, child);

  const std::string dot = qpi::cWqDebug::dot(&q).c_str();
  const std::string t = idOf(tick.get()), c = idOf(child.get());
  EXPECT_EQ(dot,
            "digraph G {\n" + t +
                " [ label=\"Periodic\\ntick\\n(250ms interval), Active, Keep)\",shape=\"ellipse\",style=\"filled\","
                "color=\"grey\" ];\n" +
                c +
                " [ label=\"Single task\\nchild\\n(planned in 0ms)\",shape=\"ellipse\",style=\"filled\","
                "color=\"lightgrey\" ];\n" +
                t + " -> " + c + ";\n}\n");
}

TEST(WqDebug, TheRunningWorkIsMarkedCurrent) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> w = makeJob(q, job, "");
  std::string dot;
  job.body = [&] { dot = qpi::cWqDebug::dot(&q).c_str(); };
  w->start(0, cWork::SingleTask);
  q.process();
  EXPECT_NE(dot.find("label=\"Single task\\n\\n(planned in 0ms, Current)\",shape=\"doubleoctagon\",style=\"filled\","
                     "color=\"LightSteelBlue\" ];"),
            std::string::npos)
      << dot;
  EXPECT_EQ(qpi::cWqDebug::dot(&q), "digraph G {\n}\n");
}

TEST(WqDebug, NullEntriesOfRemovedWorksHaveNoNode) {
  cTestQueue q;
  cJob job;
  tSharedObject<cWork> gone = makeJob(q, job, "gone");
  tSharedObject<cWork> kept = makeJob(q, job, "kept");
  q.removeJob(*gone);
  ASSERT_EQ(q.jobs().size(), 2u);
  EXPECT_EQ(std::string(qpi::cWqDebug::dot(&q).c_str()),
            "digraph G {\n" + idOf(kept.get()) +
                " [ label=\"Single task\\nkept\\n(planned in 0ms)\",shape=\"ellipse\","
                "style=\"filled\",color=\"lightgrey\" ];\n}\n");
}
