// A debug output for tests: installs itself for its lifetime and keeps every
// entry it receives so that the test can inspect text, file and line.
#ifndef QELCORE_TESTS_SUPPORT_CAPTURINGOUT_H
#define QELCORE_TESTS_SUPPORT_CAPTURINGOUT_H

#include <mutex>
#include <string>
#include <vector>

#include "qelcore/pi/cabstractout.h"

namespace qeltest {

class cCapturingOut : public qpi::cAbstractOut {
public:
  struct cEntry {
    Level level;
    std::string text;
    std::string file;
    unsigned int line;
  };

  cCapturingOut() { mpPrevious = install(this); }
  ~cCapturingOut() override { install(mpPrevious == this ? nullptr : mpPrevious); }

  std::vector<cEntry> entries() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mEntries;
  }
  void clear() {
    std::lock_guard<std::mutex> lock(mMutex);
    mEntries.clear();
  }
  // True when some entry's text contains `part`.
  bool contains(const std::string& part) const {
    std::lock_guard<std::mutex> lock(mMutex);
    for (const cEntry& e : mEntries)
      if (e.text.find(part) != std::string::npos) return true;
    return false;
  }

protected:
  void writeEntry(Level level, const char* text, const char* file, unsigned int line) override {
    std::lock_guard<std::mutex> lock(mMutex);
    mEntries.push_back(cEntry{level, text, file, line});
  }

private:
  mutable std::mutex mMutex;
  std::vector<cEntry> mEntries;
  qpi::cAbstractOut* mpPrevious;
};

}  // namespace qeltest

#endif
