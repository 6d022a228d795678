#include "qelcore/pi/cwqdebug.h"

#include <cstdint>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/std/ctime.h"

namespace qpi {

using qstd::cAsciiString;

namespace {

// The work's address in hexadecimal, in double quotes.
void appendId(cAsciiString& out, const cWork* w) {
  char digits[2 * sizeof(void*) + 1];
  unsigned int n = 0;
  unsigned long long value = static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(w));
  do {
    digits[n++] = "0123456789abcdef"[value & 0xF];
    value >>= 4;
  } while (value != 0);
  out += '"';
  while (n) out += digits[--n];
  out += '"';
}

void addFlag(cAsciiString& detail, const char* flag) {
  if (detail.size() != 0) detail += ", ";
  detail += flag;
}

}  // namespace

cAsciiString cWqDebug::dot(cWorkQueue* wq) {
  cWorkQueue& queue = wq ? *wq : system().workQueue();
  const qstd::cTime now;
  cAsciiString out("digraph G {\n");
  for (cWorkQueue::tJobs::const_iterator it = queue.jobs().begin(); it != queue.jobs().end(); ++it) {
    const cWork* w = it->get();
    if (!w) continue;
    const char* kind = "Unknown";
    cAsciiString detail;
    switch (w->type()) {
      case cWork::SingleTask:
        kind = "Single task";
        detail = "planned in ";
        detail.addUNum(w->plannedTime() > now ? (w->plannedTime().get() - now.get()) / 1000ull : 0ull);
        detail += "ms";
        break;
      case cWork::Periodic:
        kind = "Periodic";
        detail.addUNum32(w->interval());
        detail += "ms interval)";
        break;
      case cWork::AsyncIO:
        kind = "Asynchronous I/O";
        break;
      default:
        break;
    }
    const char* shape = "ellipse";
    const char* style = "filled";
    const char* color = "lightgrey";
    if (w->isAmuck()) {
      color = "red";
      addFlag(detail, "AMUCK");
    } else if (w->isStarted()) {
      color = "grey";
      addFlag(detail, "Active");
    }
    if (w->isKeep()) addFlag(detail, "Keep");
    if (w == queue.current()) {
      addFlag(detail, "Current");
      shape = "doubleoctagon";
      color = "LightSteelBlue";
    }
    if (w->type() == cWork::AsyncIO) color = "PapayaWhip";

    appendId(out, w);
    out += " [ label=\"";
    out += kind[0] ? kind : "NoName";
    out += "\\n";
    out += w->name();
    if (detail.size() != 0) {
      out += "\\n(";
      out += detail;
      out += ')';
    }
    out += "\",shape=\"";
    out += shape;
    out += "\",style=\"";
    out += style;
    out += "\",color=\"";
    out += color;
    out += "\" ];\n";
  }
  for (cWorkQueue::tJobs::const_iterator it = queue.jobs().begin(); it != queue.jobs().end(); ++it) {
    const cWork* w = it->get();
    if (!w || !w->parent()) continue;
    appendId(out, w->parent());
    out += " -> ";
    appendId(out, w);
    out += ";\n";
  }
  out += "}\n";
  return out;
}

}  // namespace qpi
