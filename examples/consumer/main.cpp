// A minimal application using the installed library through its umbrella header.
#include <cstdio>
#include <string>

#include "qelcore/qelcore.h"

namespace {

// Collects the entries instead of writing them to stderr.
class cCollectingOut : public qpi::cAbstractOut {
public:
  std::string msText;

protected:
  void writeEntry(Level, const char* text, const char*, unsigned int) override { msText += text; }
};

}  // namespace

int main() {
  cCollectingOut out;
  qpi::cAbstractOut* previous = qpi::cAbstractOut::install(&out);
  QEL_WARNING("hello from the consumer");
  qpi::cAbstractOut::install(previous);
  if (out.msText != "hello from the consumer") {
    std::fprintf(stderr, "consumer: unexpected debug output \"%s\"\n", out.msText.c_str());
    return 1;
  }
  std::printf("consumer: linked against the installed QELCore and used it\n");
  return 0;
}
