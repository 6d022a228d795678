#include "qelcore/pi/cabstractout.h"

#include <atomic>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "qelcore/pi/cdebugstderr.h"
#include "qelcore/pi/platform/cnativedebugimpl.h"

namespace qpi {

class cAbstractOut::cFilterImpl {
public:
  struct cRule {
    std::string msPattern;
    Level meLevel;
  };
  Level meDefault = LevelTrace;
  std::vector<cRule> mRules;

  static bool parseLevel(const std::string& s, Level& level) {
    static const struct {
      const char* name;
      Level level;
    } names[] = {{"all", LevelTrace},       {"trace", LevelTrace}, {"debug", LevelDebug}, {"info", LevelInfo},
                 {"warning", LevelWarning}, {"error", LevelError}, {"none", LevelNone}};
    for (const auto& n : names)
      if (s == n.name) {
        level = n.level;
        return true;
      }
    return false;
  }

  static std::string trimmed(const std::string& s) {
    std::size_t b = s.find_first_not_of(" \t");
    if (b == std::string::npos) return std::string();
    std::size_t e = s.find_last_not_of(" \t");
    return s.substr(b, e - b + 1);
  }

  bool parse(const char* text) {
    cFilterImpl parsed;
    std::string all(text);
    std::size_t pos = 0;
    while (pos <= all.size()) {
      std::size_t comma = all.find(',', pos);
      if (comma == std::string::npos) comma = all.size();
      std::string item = trimmed(all.substr(pos, comma - pos));
      pos = comma + 1;
      if (item.empty()) continue;
      std::size_t eq = item.find('=');
      Level level;
      if (eq == std::string::npos) {
        if (!parseLevel(item, level)) return false;
        parsed.meDefault = level;
      } else {
        std::string pattern = trimmed(item.substr(0, eq));
        if (pattern.empty() || !parseLevel(trimmed(item.substr(eq + 1)), level)) return false;
        parsed.mRules.push_back(cRule{pattern, level});
      }
    }
    *this = parsed;
    return true;
  }

  Level levelFor(const char* file) const {
    Level level = meDefault;
    std::size_t best = 0;
    if (file)
      for (const cRule& r : mRules)
        if (r.msPattern.size() > best && std::strstr(file, r.msPattern.c_str())) {
          best = r.msPattern.size();
          level = r.meLevel;
        }
    return level;
  }
};

cAbstractOut::cAbstractOut() : mpFilter(new cFilterImpl) {}

cAbstractOut::~cAbstractOut() { delete mpFilter; }

bool cAbstractOut::setFilter(const char* filter) { return filter && mpFilter->parse(filter); }

bool cAbstractOut::enabled(Level level, const char* file) const {
  if (level >= LevelNone) return false;
  if (mpFilter->mRules.empty()) return level >= mpFilter->meDefault;
  return level >= mpFilter->levelFor(file);
}

void cAbstractOut::write(Level level, const char* text, const char* file, unsigned int line) {
  if (enabled(level, file)) writeEntry(level, text ? text : "", file ? file : "", line);
}

void cAbstractOut::writeStackTrace(Level level, const char* header, const char* file, unsigned int line,
                                   unsigned int skip) {
  if (!enabled(level, file)) return;
  std::uintptr_t frames[MaxBacktrace];
  unsigned int n = cNativeDebugImpl::captureBacktrace(frames, MaxBacktrace, skip + 1);
  writeBacktrace(level, header, frames, n, file, line);
}

void cAbstractOut::writeBacktrace(Level level, const char* header, const std::uintptr_t* frames, unsigned int count,
                                  const char* file, unsigned int line) {
  if (!enabled(level, file)) return;
  std::string text(header ? header : "Stack trace:");
  for (unsigned int i = 0; i < count; ++i) {
    text += "\n  #";
    text += std::to_string(i);
    text += ' ';
    cNativeDebugImpl::describeAddress(frames[i], text);
  }
  writeEntry(level, text.c_str(), file ? file : "", line);
}

unsigned int cAbstractOut::captureBacktrace(std::uintptr_t* frames, unsigned int max, unsigned int skip) {
  if (!frames) return 0;
  return cNativeDebugImpl::captureBacktrace(frames, max, skip + 1);
}

namespace {

std::atomic<cAbstractOut*> gInstalled{nullptr};

cAbstractOut& standardOut() {
  // Never destroyed: entries may still be written while statics are torn down.
  alignas(cDebugStdErr) static unsigned char storage[sizeof(cDebugStdErr)];
  static cDebugStdErr* out = new (storage) cDebugStdErr;
  return *out;
}

}  // namespace

cAbstractOut& cAbstractOut::current() {
  cAbstractOut* out = gInstalled.load(std::memory_order_acquire);
  return out ? *out : standardOut();
}

cAbstractOut* cAbstractOut::install(cAbstractOut* out) {
  cAbstractOut* previous = gInstalled.exchange(out, std::memory_order_acq_rel);
  return previous ? previous : &standardOut();
}

}  // namespace qpi
