// A tour of what the library offers so far: strings and messages, exceptions,
// the binary archive, signals and slots, and the debug output.
#include <cstdio>

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

void print(const char* label, const qucs::cString& text) {
  qstd::cAsciiString ascii;
  text.toAscii(ascii, '?');
  std::printf("  %-10s %s\n", label, ascii.c_str());
}

}  // namespace

int main() {
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
