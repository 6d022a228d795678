// Socket addresses of Windows (Winsock).
#include <winsock2.h>
#include <ws2tcpip.h>

#include "qelcore/pi/platform/cnativesockaddrimpl.h"
