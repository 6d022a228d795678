// A component application from start to end: an application object loads
// component modules from files found through search paths and drives them on
// the main loop. It shows announcement, first-best matching, calls through a
// matched interface, timers on the work queue, a provider removed and its
// consumer re-matched to another one, the core extension of a plug-in, the
// work-queue graph, and closing.
//
// The modules are the getting-started examples (examples/getting-started):
// an alarm that depends on the "Clock" interface, a clock that provides it
// (loaded twice: two providers from one file), and a Latin-1 encoder plug-in.
// They are looked for in the directories of QELCORE_EXAMPLE_PATH, then in
// ../lib/qelcore/examples beside this program.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "qelcore/qelcore.h"

using qsa::piVoid;

namespace {

// The directory of this program.
qio::cPath programDirectory(const char* argv0) {
  const qio::cPath program(argv0 && *argv0 ? argv0 : "./program");
  return program.parent().isEmpty() ? qio::cPath(".") : program.parent();
}

std::string text(const qucs::cString& s) { return s.ascii().c_str(); }

class cDemoApp : public qpi::cAbstractQELApp, public qrmi::cConnectable {
public:
  explicit cDemoApp(const char* argv0) : mDirectory(programDirectory(argv0)), mMgr(qpi::system().coreExtensions()) {
    qpi::system().setApp(this);
    mMgr.setApp(*this);
    mMgr.sigComponentAdded.connect(*this, &cDemoApp::sltAdded);
    mMgr.sigComponentRegistered.connect(*this, &cDemoApp::sltAnnounced);
    mMgr.sigComponentRemoved.connect(*this, &cDemoApp::sltRemoved);
    mPaths.appendList(qucs::cString(qpi::cPlatform::getEnv("QELCORE_EXAMPLE_PATH").c_str()));
    mPaths.append((mDirectory / "../lib/qelcore/examples").normalised());
  }
  ~cDemoApp() override { qpi::system().setApp(nullptr); }

  int run() {
    std::printf("QELCore component application\n");
    step("module files, through the search paths");
    for (unsigned int i = 0; i < mPaths.count(); ++i)
      std::printf("  app     searches %s\n", text(mPaths.at(i).toString()).c_str());

    step("a plug-in with a core extension");
    qsa::cReferenceFrame frame;
    qcs::cAbstractModule& latin1 = qpi::system().coreExtensions().load(moduleFile("latin1"), frame);
    std::printf("  app     loaded plug-in \"%s\": %s\n", latin1.moduleInfo().name().c_str(),
                latin1.moduleInfo().description().c_str());
    qstd::tAutoPtr<qucs::cAbstractEnDec> encoder = qpi::system().coreExtensions().createEnDec("Endec-Latin1");
    qucs::cString word;
    word.fromUTF8(
        qstd::tArray<char>("Gr\xC3\xBC\xC3\x9F"
                           "e",
                           7));
    qstd::tArray<char> bytes;
    encoder->encode(word, bytes);
    std::printf(
        "  app     %s encodes \"Gr\xC3\xBC\xC3\x9F"
        "e\" in %u bytes (UTF-8: %u)\n",
        encoder->name().c_str(), bytes.size(), word.toUTF8().size());

    step("components: loaded, announced, matched first-best");
    mMgr.loadComponent(moduleFile("alarm"), qcs::cComponentAddr());
    mMgr.loadComponent(moduleFile("clock"), qcs::cComponentAddr());
    mMgr.loadComponent(moduleFile("clock"), qcs::cComponentAddr());
    runFor(350);

    step("the alarm's clock is removed: the alarm is unmatched, then matched to the other clock");
    qcs::cAbstractComponent& alarm = mMgr.findComponent(qcs::cComponentAddr(1, 2));
    const qcs::cComponentAddr provider = alarm.interfaceDeps().first()->address();
    std::printf("  app     removes %s\n", provider.toString().c_str());
    mMgr.removeComponent(provider);
    runFor(250);

    step("the work queue");
    writeGraph();

    step("closing: applicationCloseAdvisable(), submitShortlyRemove(), removeAllComponentsNow(), cleanup()");
    std::printf("  app     closing is advisable: %s\n", mMgr.applicationCloseAdvisable(*this) ? "yes" : "no");
    mMgr.submitShortlyRemove();
    const unsigned int count = mMgr.components().size();
    mMgr.removeAllComponentsNow();
    std::printf("  app     removed all %u components at once (%u left)\n", count, mMgr.components().size());
    std::printf("  app     the manager goes, and with it the component modules' files\n");
    return 0;
  }

private:
  void step(const char* what) { std::printf("\n%s\n", what); }

  // The module's file, as the platform names it, from the search paths.
  qucs::cString moduleFile(const char* name) {
    qucs::cString file(name);
    qpi::cPlatform::createPlatformInfo()->osSpecificSOName(file);
    const qucs::cString found = mPaths.find(qio::cPath(file)).toString();
    std::printf("  app     found %s\n", text(found).c_str());
    return found;
  }

  // Runs the main loop for `ms` milliseconds.
  void runFor(unsigned int ms) {
    const qstd::cTime start;
    while (start.diff().toMSec() < ms) qpi::system().exec();
  }

  // The works as a dot graph beside this program, and as a PNG when graphviz is there.
  void writeGraph() {
    const std::string dot = text((mDirectory / "componentdemo-works.dot").normalised().toString());
    const qstd::cAsciiString graph = qpi::cWqDebug::dot(nullptr);
    FILE* f = std::fopen(dot.c_str(), "wb");
    if (!f) {
      std::printf("  app     cannot write %s\n", dot.c_str());
      return;
    }
    std::fwrite(graph.c_str(), 1, graph.size(), f);
    std::fclose(f);
    const std::string png = text((mDirectory / "componentdemo-works.png").normalised().toString());
    const std::string render = "dot -Tpng \"" + dot + "\" -o \"" + png + "\"";
    if (std::system("dot -V >/dev/null 2>&1") == 0 && std::system(render.c_str()) == 0)
      std::printf("  app     drew the works (component management, idle, the alarm's ring): %s\n", png.c_str());
    else
      std::printf("  app     wrote the works as a graph: %s (graphviz draws it)\n", dot.c_str());
  }

  void describe(const char* what, qcs::cAbstractComponent& c) {
    std::printf("  manager %-9s %s %s (%s)\n", what, c.address().toString().c_str(), c.moduleInfo().name().c_str(),
                c.location().toString().c_str());
  }
  piVoid sltAdded(qcs::cAbstractComponent& c) {
    describe("listed", c);
    return piVoid();
  }
  piVoid sltAnnounced(qcs::cAbstractComponent& c) {
    describe("announced", c);
    return piVoid();
  }
  piVoid sltRemoved(qcs::cAbstractComponent& c) {
    describe("removes", c);
    return piVoid();
  }

  qio::cPath mDirectory;
  qio::cSearchPaths mPaths;
  qcs::cModuleMgr mMgr;
};

}  // namespace

int main(int, char** argv) {
  int result = 1;
  try {
    cDemoApp app(argv[0]);
    result = app.run();
  } catch (const qstd::cAbstractException& e) {
    qucs::cString message;
    e.createMessage(message, qucs::cString(": "), qstd::cAbstractException::MessageWithHistory, nullptr);
    std::fprintf(stderr, "componentdemo: %s\n", text(message).c_str());
  }
  std::printf("  app     cSystem::cleanup(): unloads the plug-in, then the system object goes\n");
  qpi::cSystem::cleanup();
  return result;
}
