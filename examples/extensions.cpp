// Core extensions: objects made by type name, and the IPv6 addresses that a
// module file installed with the library adds at run time.
#include <cstdio>

#include "qelcore/qelcore.h"

namespace {

void show(qce::cCoreExtensionMgr& extensions, const char* type, const char* text) {
  qstd::tAutoPtr<qce::cNetAbstractAddress> address = extensions.createNetAddress(type);
  address->fromString(text);
  std::printf("  %s %s -> %s\n", address->addrType().c_str(), text,
              address->toString(qce::cNetAbstractAddress::WithPort).c_str());
}

}  // namespace

int main() {
  std::printf("QELCore core extensions\n");
  qce::cCoreExtensionMgr& extensions = qpi::system().coreExtensions();
  show(extensions, "TcpIpv4", "192.168.0.1:80");
  try {
    show(extensions, "TcpIpv6", "[2001:db8:0:0::1]:443");
  } catch (const qce::cUnsupportedExtensionException& e) {
    qstd::cAsciiString text;
    e.liMessage()->untranslated(text);
    std::printf("  %s\n", text.c_str());
  }

  qsa::cReferenceFrame frame;
  qcs::cAbstractModule& module = extensions.load(qstd::cAsciiString("qelipv6"), frame);
  std::printf("  loaded %s\n", module.moduleInfo().name().c_str());
  show(extensions, "TcpIpv6", "[2001:db8:0:0::1]:443");

  qpi::cSystem::cleanup();  // unloads the module
  return 0;
}
