// A program started by a test, killed (without warning) when the object
// goes or when the test says so.
#ifndef QELCORE_TESTS_SUPPORT_CHILDPROCESS_H
#define QELCORE_TESTS_SUPPORT_CHILDPROCESS_H

#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
extern char** environ;
#endif

namespace qeltest {

class cChildProcess {
public:
  // Starts `program` with `args`; running() tells whether that worked.
  cChildProcess(const std::string& program, const std::vector<std::string>& args) {
#ifdef _WIN32
    std::string line = "\"" + program + "\"";
    for (const std::string& a : args) line += " \"" + a + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info = {};
    if (CreateProcessA(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info)) {
      CloseHandle(info.hThread);
      mProcess = info.hProcess;
    }
#else
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    if (posix_spawn(&mPid, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0) mPid = 0;
#endif
  }
  cChildProcess(const cChildProcess&) = delete;
  cChildProcess& operator=(const cChildProcess&) = delete;
  ~cChildProcess() { kill(); }

  bool running() const {
#ifdef _WIN32
    return mProcess != nullptr;
#else
    return mPid != 0;
#endif
  }

  // Kills the process at once and waits until it is gone.
  void kill() {
#ifdef _WIN32
    if (!mProcess) return;
    TerminateProcess(mProcess, 9);
    WaitForSingleObject(mProcess, INFINITE);
    CloseHandle(mProcess);
    mProcess = nullptr;
#else
    if (!mPid) return;
    ::kill(mPid, SIGKILL);
    int status = 0;
    ::waitpid(mPid, &status, 0);
    mPid = 0;
#endif
  }

private:
#ifdef _WIN32
  HANDLE mProcess = nullptr;
#else
  pid_t mPid = 0;
#endif
};

}  // namespace qeltest

#endif
