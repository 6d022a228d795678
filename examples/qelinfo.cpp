// A tour of what the library offers so far: strings and messages, exceptions,
// the binary archive, signals and slots, the main loop, and the debug output.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "qelcore/qelcore.h"

using qsa::piVoid;

namespace {

class cDoor : public qrmi::cConnectable {
public:
  qrmi::localSignal1<piVoid, int> sigOpened;
};

class cBell : public qrmi::cConnectable {
public:
  int miRung = 0;
  piVoid sltRing(int times) {
    miRung += times;
    return piVoid();
  }
};

// The parts of an application that run on the main loop.
class cJobs : public qrmi::cConnectable {
public:
  int miSingle = 0, miTicks = 0, miPolls = 0, miTimer = 0, miHandled = 0;
  bool mbNestedSawTimer = false;
  std::string mGraph;
  qstd::cTimer mTimer;
  qstd::tSharedObject<qpi::cWork> mParent;

  cJobs() { mTimer.sigElapsed.connect(*this, &cJobs::sltTimer); }

  piVoid sltSingle() {
    ++miSingle;
    return piVoid();
  }
  piVoid sltTick() {
    ++miTicks;
    return piVoid();
  }
  piVoid sltPoll() {
    ++miPolls;
    return piVoid();
  }
  piVoid sltTimer() {
    ++miTimer;
    return piVoid();
  }
  // Waits for the timer in a nested loop; the other works go on meanwhile.
  // Then starts a child work that fails: its parent (this work) handles it.
  piVoid sltParent() {
    qpi::cLocalEventLoop loop;
    while (miTimer == 0) loop.process();
    mbNestedSawTimer = miTicks > 0;
    qpi::schedule(*this, &cJobs::sltFailing, 0, "failing child");
    mGraph = qpi::cWqDebug::dot(nullptr).c_str();
    return piVoid();
  }
  piVoid sltFailing() { qstd::cSTDExceptions::throwUnexpectedEndOfInput(); }
  piVoid sltError(const qstd::cAbstractException& e, bool fromChild) {
    qucs::cString text;
    e.createMessage(text, qucs::cString(": "), 0, nullptr);
    std::printf("  %-10s handled %s error: %s\n", "", fromChild ? "a child's" : "its own", text.ascii().c_str());
    ++miHandled;
    return piVoid();
  }
};

void print(const char* label, const qucs::cString& text) {
  qstd::cAsciiString ascii;
  text.toAscii(ascii, '?');
  std::printf("  %-10s %s\n", label, ascii.c_str());
}

}  // namespace

// The directory of this program, where the graph of the works goes.
std::string programDirectory(const char* argv0) {
  std::string path(argv0 ? argv0 : "");
  const std::string::size_type slash = path.find_last_of("/\\");
  return slash == std::string::npos ? std::string(".") : path.substr(0, slash);
}

void mainLoop(const char* argv0) {
  cJobs jobs;
  // Single task, periodic work, and an I/O work: the main queue's processor
  // has no I/O support, so it polls the I/O work at its interval.
  qpi::schedule(jobs, &cJobs::sltSingle, 0, "single");
  qstd::tSharedObject<qpi::cWork> tick = qpi::schedule(jobs, &cJobs::sltTick, 5, qpi::cWork::Periodic, "tick");
  qstd::tSharedObject<qpi::cWork> io = qpi::system().workQueue().createJob();
  io->setName("io");
  io->sigTrigger.connect(jobs, &cJobs::sltPoll);
  io->start(10, qpi::cWork::Periodic);
  io->setAIOData(qstd::tAutoPtr<qpi::cAbstractAIOData>(new qpi::cFDAIOData));
  jobs.mParent = qpi::schedule(jobs, &cJobs::sltParent, 1, "parent");
  jobs.mParent->sigActionError().connect(jobs, &cJobs::sltError);
  jobs.mTimer.setSingleShot(30);

  const qstd::cTime start;
  while (jobs.miHandled == 0 && start.diff().toSec() < 10) qpi::system().exec();
  std::printf("  %-10s single %d, periodic %d, I/O polls %d, timer %d; nested loop ran the others: %s\n", "main loop",
              jobs.miSingle, jobs.miTicks, jobs.miPolls, jobs.miTimer, jobs.mbNestedSawTimer ? "yes" : "no");

  // The works as a graph; graphviz draws it when it is installed.
  const std::string dot = programDirectory(argv0) + "/qelinfo-works.dot";
  if (FILE* f = std::fopen(dot.c_str(), "wb")) {
    std::fwrite(jobs.mGraph.data(), 1, jobs.mGraph.size(), f);
    std::fclose(f);
    std::printf("  %-10s %s\n", "graph", dot.c_str());
    const std::string png = programDirectory(argv0) + "/qelinfo-works.png";
    const std::string render = "dot -Tpng \"" + dot + "\" -o \"" + png + "\"";
    if (std::system("dot -V >/dev/null 2>&1") == 0 && std::system(render.c_str()) == 0)
      std::printf("  %-10s %s\n", "", png.c_str());
  }
  tick->stop();
  io->stop();
  qpi::cSystem::cleanup();
}

int main(int, char** argv) {
  std::printf("QELCore\n");

  // Messages bind values to named placeholders and render at the end.
  qucs::cLIMessage msg;
  msg << "$QTR$Copied %count% files to %dir%." << 12 << "/tmp/out";
  qucs::cString text;
  msg.untranslated(text);
  print("message", text);

  // Failures are exceptions with a message, a source position and causes.
  try {
    qstd::tArray<char> bytes("abc", 3);
    bytes.at(7);
  } catch (const qstd::cAbstractException& e) {
    qucs::cString out;
    e.createMessage(out, qucs::cString(": "), qstd::cAbstractException::MessageWithHistory, nullptr);
    print("exception", out);
  }

  // The binary archive is the storage and wire format.
  qsa::cSerializeBinary archive;
  qucs::cString greeting;
  greeting.fromUTF8(qstd::tArray<char>("h\xC3\xA9llo", 6));
  qstd::cAsciiString label("greeting");
  greeting >> archive;
  label >> archive;
  qsa::cDeserializeBinary reader(archive.data());
  qucs::cString readGreeting;
  qstd::cAsciiString readLabel;
  readGreeting << reader;
  readLabel << reader;
  std::printf("  %-10s %u bytes, read back %s (%u characters) and \"%s\"\n", "archive", archive.data().size(),
              readGreeting == greeting ? "equal" : "DIFFERENT", readGreeting.size(), readLabel.c_str());

  // Signals call the slots of connected objects.
  cDoor door;
  cBell bell;
  door.sigOpened.connect(bell, &cBell::sltRing);
  door.sigOpened(3);
  std::printf("  %-10s the bell rang %d times\n", "signal", bell.miRung);

  // The main loop: works on the system's queue, a timer, a nested loop.
  mainLoop(argv[0]);

  // Diagnostics go to the debug output; PIDBG_FILTER selects what is written.
  std::printf("  %-10s PIDBG_FILTER selects what goes to stderr (default \"%s\")\n", "debug",
              qpi::cDebugStdErr::defaultFilter());
  std::fflush(stdout);
  QEL_TRACE("a trace line: shown with PIDBG_FILTER=trace");
  QEL_INFO("an info line: shown with PIDBG_FILTER=info");
  QEL_WARNING("a warning: shown by default");
  qpi::cAbstractOut::current().writeStackTrace(qpi::cAbstractOut::LevelWarning, "the stack of main():", __FILE__,
                                               __LINE__);
  return 0;
}
