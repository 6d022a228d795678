// A component application from start to end: an application object loads
// component modules from files found through search paths and drives them on
// the main loop. It shows announcement, first-best matching, calls through a
// matched interface, timers on the work queue, a provider removed and its
// consumer re-matched to another one, a component of a second process called
// over loopback, the core extension of a plug-in, the work-queue graph, and
// closing.
//
// The modules are the getting-started examples (examples/getting-started):
// an alarm that depends on the "Clock" interface, a clock that provides it
// (loaded twice: two providers from one file), and a Latin-1 encoder plug-in.
// They are looked for in the directories of QELCORE_EXAMPLE_PATH, then in
// ../lib/qelcore/examples beside this program.
//
// The second process is this program again, started with
// --serve-one SECRET_FILE PORT_FILE: it serves one component and ends when
// its client has gone.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>

#include "qelcore/qelcore.h"

// After the library's headers: <windows.h> defines macros that would clash.
#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <spawn.h>
#include <sys/wait.h>
extern char** environ;
#endif

using qsa::piVoid;

namespace {

// The directory of this program.
qio::cPath programDirectory(const char* argv0) {
  const qio::cPath program(argv0 && *argv0 ? argv0 : "./program");
  return program.parent().isEmpty() ? qio::cPath(".") : program.parent();
}

std::string text(const qucs::cString& s) { return s.ascii().c_str(); }

// The "Process" interface: slot "pid" answers the process the provider runs in.
class cProcessApi : public qcs::cAbstractInterface {
public:
  cProcessApi()
      : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eProvidedInterface, "Process", "example", 1,
                                               "the process it runs in")) {
    qrmi::registerPublicSlot(*this, &cProcessApi::sltPid, "pid");
  }
  unsigned int sltPid() { return qpi::cPlatform::pid(); }
  void connectInterface(qcs::cAbstractInterface&) override {}
  void disconnectInterface() override {}
};

class cProcessUse : public qcs::cAbstractInterface {
public:
  cProcessUse()
      : cAbstractInterface(qcs::cInterfaceDesc(qcs::cInterfaceDesc::eRequiredInterface, "Process", "example", 1, "")) {}
  qrmi::localSignal0<unsigned int> pid;
  void connectInterface(qcs::cAbstractInterface& p) override {
    mbBound = true;
    bindSlot(pid, p, "pid");
  }
  void disconnectInterface() override {
    mbBound = false;
    unbindSlots();
  }
  bool mbBound = false;
};

// The component the second process serves.
class cProcessInfo : public qcs::cAbstractComponent {
public:
  explicit cProcessInfo(qcs::cModuleMgr& mgr) : cAbstractComponent(mgr) {
    moduleInfo().setName("process-info");
    moduleInfo().setAuthor("example");
    addInterface(qstd::tAutoPtr<qcs::cAbstractInterface>(new cProcessApi));
  }
};

// The component of this process that uses it.
class cProcessWatcher : public qcs::cAbstractComponent {
public:
  explicit cProcessWatcher(qcs::cModuleMgr& mgr)
      : cAbstractComponent(mgr), mDep(*this, mUse.desc(), &mUse, qcs::cInterfaceDep::saUseFirstBest) {
    moduleInfo().setName("process-watcher");
    moduleInfo().setAuthor("example");
  }
  cProcessUse mUse;  // declared before the dependency that binds it
  qcs::cInterfaceDep mDep;
};

// This program started again with `args`; wait() returns its exit code.
class cChild {
public:
  cChild(const std::string& program, const std::string& args) {
#ifdef _WIN32
    std::string line = "\"" + program + "\" " + args;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info = {};
    if (CreateProcessA(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info)) {
      CloseHandle(info.hThread);
      mProcess = info.hProcess;
    }
#else
    const std::string shell = "exec \"" + program + "\" " + args;
    const char* argv[] = {"sh", "-c", shell.c_str(), nullptr};
    if (posix_spawn(&mPid, "/bin/sh", nullptr, nullptr, const_cast<char**>(argv), environ) != 0) mPid = 0;
#endif
  }
  ~cChild() { wait(); }
  bool started() const {
#ifdef _WIN32
    return mProcess != nullptr;
#else
    return mPid != 0;
#endif
  }
  int wait() {
    int code = -1;
#ifdef _WIN32
    if (!mProcess) return code;
    DWORD status = 0;
    WaitForSingleObject(mProcess, INFINITE);
    if (GetExitCodeProcess(mProcess, &status)) code = static_cast<int>(status);
    CloseHandle(mProcess);
    mProcess = nullptr;
#else
    if (!mPid) return code;
    int status = 0;
    if (waitpid(mPid, &status, 0) == mPid && WIFEXITED(status)) code = WEXITSTATUS(status);
    mPid = 0;
#endif
    return code;
  }

private:
#ifdef _WIN32
  HANDLE mProcess = nullptr;
#else
  pid_t mPid = 0;
#endif
};

// The second process: serves a cProcessInfo on a free loopback port, writes
// the port to `portFile`, and ends once its client has come and gone (or
// after 20 s without one).
int serveOne(const char* secretFile, const char* portFile) {
  int result = 1;
  try {
    qcs::cModuleMgr mgr(qpi::system().coreExtensions());
    qcs::cAbstractComponent& info =
        mgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cProcessInfo(mgr)), qcs::cComponentAddr());
    qcs::cRemoteOptions options;
    options.loadSecretFile(qucs::cString(secretFile));
    qcs::cRemoteComponentServer server(mgr, options);
    server.exportComponent(info);
    server.listen();
    // Written elsewhere and renamed, so that the parent never reads half a file.
    const std::string tmp = std::string(portFile) + ".tmp";
    std::ofstream(tmp) << server.port() << "\n";
    std::rename(tmp.c_str(), portFile);
    bool served = false;
    const qstd::cTime start;
    while (start.diff().toMSec() < 20000) {
      qpi::system().exec();
      if (server.clientCount())
        served = true;
      else if (served)
        break;
    }
    server.close();
    mgr.removeAllComponentsNow();
    result = served ? 0 : 1;
  } catch (const qstd::cAbstractException& e) {
    qucs::cString message;
    e.createMessage(message, qucs::cString(": "), qstd::cAbstractException::MessageWithHistory, nullptr);
    std::fprintf(stderr, "componentdemo --serve-one: %s\n", text(message).c_str());
  }
  qpi::cSystem::cleanup();
  return result;
}

class cDemoApp : public qpi::cAbstractQELApp, public qrmi::cConnectable {
public:
  explicit cDemoApp(const char* argv0)
      : msProgram(argv0), mDirectory(programDirectory(argv0)), mMgr(qpi::system().coreExtensions()) {
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

    remoteStep();

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

  // A second process serves a component over loopback; a component of this
  // process is matched to it and calls it.
  void remoteStep() {
    step("a second process serves a component over loopback; a component here calls it");
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("componentdemo-" + std::to_string(qpi::cPlatform::pid()));
    fs::create_directories(dir);
    const fs::path secret = dir / "secret", portFile = dir / "port";
    // Owner-only before anything is in it (the server refuses a file others may read).
    std::ofstream(secret).close();
    fs::permissions(secret, fs::perms::owner_read | fs::perms::owner_write);
    std::random_device random;
    std::ofstream(secret) << "componentdemo " << random() << random() << random() << random();
    std::printf("  app     wrote a shared secret, readable by its owner only: %s\n", secret.string().c_str());
    {
      cChild child(msProgram, "--serve-one \"" + secret.string() + "\" \"" + portFile.string() + "\"");
      if (child.started()) std::printf("  app     started %s --serve-one\n", msProgram.c_str());
      unsigned int port = 0;
      for (int i = 0; i < 1000 && child.started() && !port; ++i) {
        std::ifstream(portFile) >> port;
        if (!port) std::this_thread::sleep_for(std::chrono::milliseconds(10));
      }
      if (port)
        callRemote(port, secret);
      else
        std::printf("  app     the second process does not serve; skipped\n");
      std::printf("  app     the second process ended with exit code %d\n", child.wait());
    }
    std::error_code ignored;
    fs::remove_all(dir, ignored);
    std::printf("  app     removed the secret\n");
  }

  void callRemote(unsigned int port, const std::filesystem::path& secret) {
    cProcessWatcher& watcher = static_cast<cProcessWatcher&>(
        mMgr.addComponent(qstd::tAutoPtr<qcs::cAbstractComponent>(new cProcessWatcher(mMgr)), qcs::cComponentAddr()));
    qcs::cRemoteOptions options;
    options.loadSecretFile(qucs::cString(secret.string().c_str()));
    qcs::cRemoteComponentClient client(mMgr, options);
    const std::string address = "127.0.0.1:" + std::to_string(port);
    std::printf("  app     connects to %s\n", address.c_str());
    client.connect(address.c_str());
    if (!client.waitConnected(10000)) {
      std::printf("  app     cannot connect: %s\n", client.lastError().c_str());
      return;
    }
    const qstd::cTime start;
    while (!watcher.mUse.mbBound && start.diff().toMSec() < 10000) qpi::system().exec();
    if (watcher.mUse.mbBound) {
      // The dependency names the component on its own side; here it is a proxy.
      for (const qcs::cManagedComponent* managed : mMgr.components()) {
        const qcs::cAbstractComponent& c = managed->component();
        if (!c.isLocal())
          std::printf("  watcher matched %s, a proxy of the component %s\n", c.address().toString().c_str(),
                      c.location().toString().c_str());
      }
      const unsigned int pid = watcher.mUse.pid();  // a call through the interface, over loopback
      std::printf("  watcher called pid(): the component runs in process %u (this one: %u)\n", pid,
                  qpi::cPlatform::pid());
    } else {
      std::printf("  app     no match for the watcher\n");
    }
    std::printf("  app     disconnects: the proxy leaves and the second process ends\n");
    client.close();
    runFor(150);
  }

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

  std::string msProgram;
  qio::cPath mDirectory;
  qio::cSearchPaths mPaths;
  qcs::cModuleMgr mMgr;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::string(argv[1]) == "--serve-one") return serveOne(argv[2], argv[3]);
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
