// qelhost: a host for component and plug-in modules. Loads the modules named
// on the command line (files, module names found in the module paths, or
// every module file of a directory), runs them on the main loop, and shows
// on request what runs: components with their addresses, locations, module
// information, interfaces and dependencies, the plug-ins, and the work queue.
// With --serve it offers its components to other processes, with --connect
// it brings in those of another host.
// Run `qelhost --help` for the options.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "qelcore/qelcore.h"

using qsa::piVoid;

namespace {

const char* const gUsage =
    "Usage: qelhost [options] MODULE|DIRECTORY...\n"
    "       qelhost --check MODULE\n"
    "       qelhost --connect ADDR:PORT --secret FILE [options] [MODULE|DIRECTORY...]\n"
    "Loads component and plug-in modules and runs them on the main loop.\n"
    "\n"
    "  MODULE             a module file, or a module name (clock: libclock.so, clock.dll)\n"
    "                     looked for in the module paths\n"
    "  DIRECTORY          every module file in it\n"
    "\n"
    "Options:\n"
    "  -L, --module-path DIR  look for module names in DIR first (then in QELCORE_MODULE_PATH\n"
    "                     and the library's module directory); may be given more than once\n"
    "  --list             print the status once the modules are announced and matched, and exit\n"
    "  --for SECONDS      close after that many seconds (default: run until SIGINT or SIGTERM)\n"
    "  --dot FILE         write the work-queue graph (dot language) to FILE whenever the\n"
    "                     status is printed\n"
    "  --serve ADDR:PORT  offer every loaded component to other processes at ADDR:PORT\n"
    "                     (port 0: a free one; the address served is printed)\n"
    "  --connect ADDR:PORT  bring in the components that the host at ADDR:PORT serves\n"
    "  --secret FILE      the secret shared with the peers, readable by its owner only;\n"
    "                     needed by --serve and --connect\n"
    "  --check MODULE     open the module file, report its sections and versions, run nothing\n"
    "  --trace            on failure, print the exception's causes and where it was raised\n"
    "  -h, --help         print this help and exit\n"
    "\n"
    "While running, SIGUSR1 prints the status (where the platform has that signal).\n"
    "Exit codes: 0 success, 1 a module could not be loaded or failed, or a peer could not be\n"
    "reached or refused the secret, 2 bad arguments.\n";

enum ExitCode { eOk = 0, eFailed = 1, eUsage = 2 };

// A bad command line: reported in one line with the usage hint.
struct cUsageError {
  std::string msText;
};

struct cOptions {
  std::vector<std::string> mModules;
  std::vector<std::string> mModulePaths;
  std::string msDot;
  std::string msCheck;
  std::string msServe;
  std::string msConnect;
  std::string msSecret;
  bool mbList = false;
  bool mbTrace = false;
  bool mbHelp = false;
  double mdFor = -1;
};

cOptions parse(int argc, char** argv) {
  cOptions o;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    auto value = [&]() -> std::string {
      if (i + 1 >= argc) throw cUsageError{"option " + arg + " needs a value"};
      return argv[++i];
    };
    if (arg == "-h" || arg == "--help") {
      o.mbHelp = true;
    } else if (arg == "--list") {
      o.mbList = true;
    } else if (arg == "--trace") {
      o.mbTrace = true;
    } else if (arg == "-L" || arg == "--module-path") {
      o.mModulePaths.push_back(value());
    } else if (arg == "--dot") {
      o.msDot = value();
    } else if (arg == "--serve") {
      o.msServe = value();
    } else if (arg == "--connect") {
      o.msConnect = value();
    } else if (arg == "--secret") {
      o.msSecret = value();
    } else if (arg == "--check") {
      o.msCheck = value();
    } else if (arg == "--for") {
      const std::string text = value();
      char* end = nullptr;
      o.mdFor = std::strtod(text.c_str(), &end);
      if (text.empty() || *end || !(o.mdFor >= 0))
        throw cUsageError{"--for wants a number of seconds, not \"" + text + "\""};
    } else if (arg.size() > 1 && arg[0] == '-') {
      throw cUsageError{"unknown option " + arg};
    } else {
      o.mModules.push_back(arg);
    }
  }
  if (o.mbHelp) return o;
  if (!o.msCheck.empty() && !o.mModules.empty()) throw cUsageError{"--check takes one module and runs nothing"};
  if (o.msCheck.empty() && o.mModules.empty() && o.msConnect.empty()) throw cUsageError{"no modules given"};
  if ((!o.msServe.empty() || !o.msConnect.empty()) && o.msSecret.empty())
    throw cUsageError{"--serve and --connect need --secret FILE"};
  if (!o.msCheck.empty() && (!o.msServe.empty() || !o.msConnect.empty()))
    throw cUsageError{"--check runs nothing, so it neither serves nor connects"};
  if (o.mbList && o.mdFor >= 0) throw cUsageError{"--list and --for exclude each other"};
  return o;
}

std::string text(const qucs::cString& s) {
  const qstd::tArray<char> bytes = s.toUTF8();
  return std::string(bytes.data(true), bytes.size());
}

qucs::cString fromText(const std::string& s) {
  qucs::cString out;
  out.fromUTF8(qstd::tArray<char>(s.data(), static_cast<unsigned int>(s.size())));
  return out;
}

// A module that could not be found or loaded: what and why, in one line.
struct cModuleError {
  std::string msText;
};

// The module paths: the -L directories, then those of the system's core
// extensions (QELCORE_MODULE_PATH, the library's module directory).
qio::cSearchPaths modulePaths(const cOptions& options) {
  qio::cSearchPaths paths = qpi::system().coreExtensions().modulePaths();
  for (auto it = options.mModulePaths.rbegin(); it != options.mModulePaths.rend(); ++it)
    paths.prepend(qio::cPath(fromText(*it)));
  return paths;
}

// A module file as given, or a module name (no directory part) completed to
// the platform's file name and looked for in the module paths.
std::string moduleFile(const std::string& name, const cOptions& options) {
  if (qio::cFileInfo(qio::cPath(fromText(name))).exists()) return name;
  if (name.find_first_of("/\\") != std::string::npos) throw cModuleError{"module file " + name + " not found"};
  qucs::cString file = fromText(name);
  qpi::cPlatform::createPlatformInfo()->osSpecificSOName(file);
  const qio::cSearchPaths paths = modulePaths(options);
  const qio::cPath found = paths.tryFind(qio::cPath(file));
  if (found.isEmpty()) {
    std::string where;
    for (unsigned int i = 0; i < paths.count(); ++i) where += (i ? ", " : "") + text(paths.at(i).toString());
    throw cModuleError{"unknown module " + name + ": no " + text(file) + " in " +
                       (where.empty() ? "no module path" : where)};
  }
  return text(found.toString());
}

// Set by the signal handlers, read by a work on the main loop.
volatile std::sig_atomic_t gStatusWanted = 0;
volatile std::sig_atomic_t gCloseWanted = 0;

extern "C" void onStatusSignal(int) { gStatusWanted = 1; }
extern "C" void onCloseSignal(int) { gCloseWanted = 1; }

// Collects the debug output's entries (the work queue's status dump).
class cCollectingOut : public qpi::cAbstractOut {
public:
  std::string msText;

protected:
  void writeEntry(Level, const char* entry, const char*, unsigned int) override {
    msText += "  ";
    msText += entry;
    msText += '\n';
  }
};

// Sends the debug output to `out` while it lives.
class cRedirectedOut {
public:
  explicit cRedirectedOut(qpi::cAbstractOut& out) : mpPrevious(qpi::cAbstractOut::install(&out)) {}
  ~cRedirectedOut() { qpi::cAbstractOut::install(mpPrevious); }
  cRedirectedOut(const cRedirectedOut&) = delete;
  cRedirectedOut& operator=(const cRedirectedOut&) = delete;

private:
  qpi::cAbstractOut* mpPrevious;
};

class cHost : public qpi::cAbstractQELApp, public qrmi::cConnectable {
public:
  explicit cHost(const cOptions& options) : mOptions(options), mMgr(qpi::system().coreExtensions()) {
    qpi::system().setApp(this);
    mMgr.setApp(*this);
    mExtension = qpi::cPlatform::createPlatformInfo()->osSharedObjectFileExtension().c_str();
  }
  ~cHost() override {
    // The peers go before the manager they add to and export from.
    mpClient.reset();
    mpServer.reset();
    qpi::system().setApp(nullptr);
  }

  // Loads every module named on the command line.
  void load() {
    for (const std::string& name : mOptions.mModules) {
      const qio::cPath path(fromText(name));
      if (qio::cFileInfo(path).isDirectory())
        loadDirectory(path);
      else
        loadFile(moduleFile(name, mOptions));
    }
  }

  // --serve and --connect. A peer that cannot be reached, or that refuses
  // the secret, is a failure of the host like a module that cannot load.
  void openRemote() {
    if (mOptions.msSecret.empty()) return;
    qcs::cRemoteOptions options;
    options.loadSecretFile(fromText(mOptions.msSecret));
    if (!mOptions.msServe.empty()) {
      mpServer.reset(new qcs::cRemoteComponentServer(mMgr, options));
      for (qcs::cManagedComponent* managed : mMgr.components()) mpServer->exportComponent(managed->component());
      mpServer->listen(qstd::cAsciiString(mOptions.msServe.c_str()));
      const std::string where = mOptions.msServe.substr(0, mOptions.msServe.rfind(':'));
      std::printf("qelhost: serving %u component%s on %s:%u\n", mMgr.components().size(),
                  mMgr.components().size() == 1 ? "" : "s", where.c_str(), mpServer->port());
      std::fflush(stdout);
    }
    if (!mOptions.msConnect.empty()) {
      mpClient.reset(new qcs::cRemoteComponentClient(mMgr, options));
      mpClient->connect(qstd::cAsciiString(mOptions.msConnect.c_str()));
      // The session reports a refused or lost connection on the debug
      // output too; the host's own line says it, the details are for --trace.
      cCollectingOut details;
      bool connected = false;
      {
        cRedirectedOut redirect(details);
        connected = mpClient->waitConnected(10000);
      }
      if (mOptions.mbTrace) std::fprintf(stderr, "%s", details.msText.c_str());
      if (!connected)
        throw cModuleError{"cannot connect to " + mOptions.msConnect + ": " +
                           (mpClient->lastError().size() ? mpClient->lastError().c_str() : "no answer")};
    }
  }

  // Runs the main loop: until the passes are done (--list), for a while
  // (--for), or until a signal says to close.
  void run() {
    qstd::tSharedObject<qpi::cWork> watch =
        qpi::schedule(*this, &cHost::sltWatch, 50, qpi::cWork::Periodic, "qelhost signals");
    if (mOptions.mbList) {
      // The peer's components follow its acceptance of the connection; wait
      // for them a little (a peer that serves none costs those 3 s).
      const qstd::cTime start;
      while (mpClient && !hasRemote() && start.diff().toMSec() < 3000) qpi::system().exec();
      for (int i = 0; i < 1000 && mMgr.passRequested(); ++i) qpi::system().exec();
      printStatus();
    } else {
      std::printf("qelhost: running %u components%s\n", mMgr.components().size(),
                  mOptions.mdFor < 0 ? "; SIGINT or SIGTERM closes" : "");
      std::fflush(stdout);
      const qstd::cTime start;
      while (!gCloseWanted &&
             (mOptions.mdFor < 0 || static_cast<double>(start.diff().toMSec()) < mOptions.mdFor * 1000.0))
        qpi::system().exec();
    }
    qpi::unschedule(*watch);
  }

  // The closing sequence. A component that advises against closing is
  // overruled: the host was told to close.
  void close() {
    if (mpClient) mpClient->close();
    if (!mMgr.applicationCloseAdvisable(*this))
      std::fprintf(stderr, "qelhost: a component advised against closing; closing all the same\n");
    mMgr.submitShortlyRemove();
    mMgr.removeAllComponentsNow();
  }

private:
  bool hasRemote() const {
    for (const qcs::cManagedComponent* managed : mMgr.components())
      if (!managed->component().isLocal()) return true;
    return false;
  }

  void loadDirectory(const qio::cPath& dir) {
    qstd::tVector<qucs::cString> names;
    qio::cDir(dir).entryNames(names);
    std::vector<std::string> files;
    for (unsigned int i = 0; i < names.size(); ++i) {
      const std::string name = text(names[i]);
      if (name.size() > mExtension.size() &&
          name.compare(name.size() - mExtension.size(), std::string::npos, mExtension) == 0)
        files.push_back(text((dir / qio::cPath(names[i])).toString()));
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) throw cModuleError{"no module files (*" + mExtension + ") in " + text(dir.toString())};
    for (const std::string& f : files) loadFile(f);
  }

  // A component module is listed with the manager; a plug-in that provides a
  // core extension goes to the system's core extensions, any other plug-in
  // is kept here.
  void loadFile(const std::string& name) {
    const qucs::cString file = fromText(name);
    qstd::tAutoPtr<qpi::cAbstractClassLoader> probe = qpi::cPlatform::createClassLoader(file);
    if (probe->hasComponentSection()) mMgr.loadComponent(file, qcs::cComponentAddr());
    if (probe->hasPlugInSection()) {
      qstd::tAutoPtr<qcs::cPlugInGuard> guard = mPlugIns.loadPlugIn(file);
      if (guard->plugIn().isCoreExtension())
        qpi::system().coreExtensions().add(guard);
      else
        mPlugIns.registerPlugIn(guard);
    }
  }

  piVoid sltWatch() {
    if (gStatusWanted) {
      gStatusWanted = 0;
      printStatus();
    }
    return piVoid();
  }

  static const char* algorithm(qcs::cInterfaceDep::selectionAlgo a) {
    switch (a) {
      case qcs::cInterfaceDep::saUseExplicit:
        return "explicit";
      case qcs::cInterfaceDep::saUseFirstBest:
        return "first-best";
      default:
        return "interactive";
    }
  }

  static void printModule(const qcs::cAbstractModule& m) {
    std::printf("    module     %s\n", m.moduleInfo().toString().c_str());
    if (m.moduleInfo().description().size()) std::printf("               %s\n", m.moduleInfo().description().c_str());
    if (const qpi::cAbstractClassLoader* loader = m.classLoader()) {
      unsigned int major = 0, minor = 0, qelMajor = 0, qelMinor = 0;
      loader->getModuleVersion(major, minor);
      loader->getModuleQELVersion(qelMajor, qelMinor);
      std::printf("    file       %s (module %u.%u, built against QELCore %u.%u)\n",
                  text(loader->libFileName()).c_str(), major, minor, qelMajor, qelMinor);
    } else {
      std::printf("    file       (linked into the program)\n");
    }
  }

  static void printInterfaces(const qcs::cAbstractModule& m) {
    for (unsigned int i = 0; i < m.numInterfaces(); ++i) {
      const qcs::cInterfaceDesc& d = m.interface(i).desc();
      std::printf("    interface  %s %s v%u by %s%s%s\n",
                  d.type() == qcs::cInterfaceDesc::eProvidedInterface ? "provides" : "requires", d.name().c_str(),
                  d.version(), d.author().c_str(), d.description().size() ? ": " : "", d.description().c_str());
    }
  }

  void printStatus() {
    std::printf("components (%u)\n", mMgr.components().size());
    for (const qcs::cManagedComponent* managed : mMgr.components()) {
      const qcs::cAbstractComponent& c = managed->component();
      std::printf("  %s %s: %s%s\n", c.address().toString().c_str(), c.moduleInfo().name().c_str(),
                  c.announced() ? "announced" : "not announced", c.toRemove() ? ", to be removed" : "");
      std::printf("    location   %s%s\n", c.location().toString().c_str(), c.isLocal() ? "" : " (remote)");
      if (c.isLocal())
        printModule(c);
      else
        std::printf("    module     (a proxy: the module runs in the peer)\n");
      printInterfaces(c);
      const qstd::tPtrVector<qcs::cInterfaceDep>& deps = c.interfaceDeps();
      for (unsigned int i = 0; i < deps.size(); ++i) {
        const qcs::cInterfaceDep& dep = *deps[i];
        std::string match = "unmatched";
        if (dep.match().valid())
          match = std::string("matched ") + dep.match().location().toString().c_str();
        else if (dep.matched())
          match = "match lost, to be recalculated";
        std::printf("    depends on %s (%s): %s\n", dep.desc().name().c_str(), algorithm(dep.algorithm()),
                    match.c_str());
      }
    }
    unsigned int plugIns = mPlugIns.plugIns().size();
    for (const qce::cExtensionPair* pair : qpi::system().coreExtensions().extensions())
      if (pair->plugIn()) ++plugIns;
    std::printf("plug-ins (%u)\n", plugIns);
    for (const qce::cExtensionPair* pair : qpi::system().coreExtensions().extensions()) {
      if (!pair->plugIn()) continue;
      std::printf("  %s: core extension \"%s\"\n", pair->plugIn()->moduleInfo().name().c_str(),
                  pair->extension().description().c_str());
      printModule(*pair->plugIn());
    }
    for (const qcs::cPlugInGuard* guard : mPlugIns.plugIns()) {
      qcs::cAbstractPlugIn& plugIn = guard->plugIn();
      std::printf("  %s: plug-in of type %s\n", plugIn.moduleInfo().name().c_str(), plugIn.pluginTypeName().c_str());
      printModule(plugIn);
    }
    std::printf("work queue\n");
    cCollectingOut dump;
    {
      cRedirectedOut redirect(dump);
      qpi::system().workQueue().debugDump(qpi::cAbstractOut::LevelInfo);
    }
    std::printf("%s", dump.msText.c_str());
    if (!mOptions.msDot.empty()) writeDot();
    std::fflush(stdout);
  }

  void writeDot() {
    const qstd::cAsciiString graph = qpi::cWqDebug::dot(nullptr);
    FILE* f = std::fopen(mOptions.msDot.c_str(), "wb");
    if (!f || std::fwrite(graph.c_str(), 1, graph.size(), f) != graph.size()) {
      if (f) std::fclose(f);
      throw cModuleError{"cannot write the graph to " + mOptions.msDot + ": " + std::strerror(errno)};
    }
    std::fclose(f);
    std::printf("graph written to %s\n", mOptions.msDot.c_str());
  }

  const cOptions& mOptions;
  std::string mExtension;
  qcs::cModuleMgr mMgr;
  qcs::cPlugInMgr mPlugIns;
  std::unique_ptr<qcs::cRemoteComponentServer> mpServer;
  std::unique_ptr<qcs::cRemoteComponentClient> mpClient;
};

// --check: the module's sections and versions, without creating anything.
void check(const std::string& name, const cOptions& options) {
  const std::string path = moduleFile(name, options);
  const qucs::cString file = fromText(path);
  qstd::tAutoPtr<qpi::cAbstractClassLoader> loader = qpi::cPlatform::createClassLoader(file);
  unsigned int major = 0, minor = 0, qelMajor = 0, qelMinor = 0;
  loader->getModuleVersion(major, minor);
  loader->getModuleQELVersion(qelMajor, qelMinor);
  std::printf("%s: a module file\n", path.c_str());
  std::printf("  moduleInitComponent  %s\n", loader->hasComponentSection() ? "present" : "absent");
  std::printf("  moduleInitPlugIn     %s\n", loader->hasPlugInSection() ? "present" : "absent");
  std::printf("  moduleVersion        %u.%u\n", major, minor);
  std::printf("  qelVersion           %u.%u (this library: %d.%d%s)\n", qelMajor, qelMinor, QELCORE_VERSION_MAJOR,
              QELCORE_VERSION_MINOR, qelMajor == QELCORE_VERSION_MAJOR ? "" : ", another major version");
}

std::string oneLine(const qstd::cAbstractException& e) {
  qucs::cString message;
  e.createMessage(message, qucs::cString(": "), qstd::cAbstractException::MessageWithHistory, nullptr);
  return text(message);
}

void trace(const qstd::cAbstractException& e) {
  for (const qstd::cAbstractException* x = &e; x; x = x->history()) {
    qucs::cString message;
    qstd::cAbstractException::createMessage(*x, message, 0, nullptr);
    std::fprintf(stderr, "  %s at %s:%u: %s\n", x->typeName().c_str(), x->sourceFileName(), x->sourceFileLine(),
                 text(message).c_str());
  }
  qpi::cAbstractOut::current().writeBacktrace(qpi::cAbstractOut::LevelError, "raised at:", e.backtrace(),
                                              e.backtraceSize(), __FILE__, __LINE__);
}

int host(const cOptions& options) {
  if (!options.msCheck.empty()) {
    check(options.msCheck, options);
    return eOk;
  }
  std::signal(SIGINT, onCloseSignal);
  std::signal(SIGTERM, onCloseSignal);
#ifdef SIGUSR1
  std::signal(SIGUSR1, onStatusSignal);
#endif
  cHost host(options);
  host.load();
  host.openRemote();
  host.run();
  host.close();
  return eOk;
}

}  // namespace

int main(int argc, char** argv) {
  cOptions options;
  try {
    options = parse(argc, argv);
  } catch (const cUsageError& e) {
    std::fprintf(stderr, "qelhost: %s (qelhost --help shows the usage)\n", e.msText.c_str());
    return eUsage;
  }
  if (options.mbHelp) {
    std::printf("%s", gUsage);
    return eOk;
  }
  int result = eFailed;
  try {
    result = host(options);
  } catch (const cModuleError& e) {
    std::fprintf(stderr, "qelhost: %s\n", e.msText.c_str());
  } catch (const qcs::cModuleLoadException& e) {
    std::fprintf(stderr, "qelhost: cannot load %s: %s\n", text(e.fileName()).c_str(), oneLine(e).c_str());
    if (options.mbTrace) trace(e);
  } catch (const qstd::cAbstractException& e) {
    std::fprintf(stderr, "qelhost: %s\n", oneLine(e).c_str());
    if (options.mbTrace) trace(e);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "qelhost: %s\n", e.what());
  }
  qpi::cSystem::cleanup();
  return result;
}
