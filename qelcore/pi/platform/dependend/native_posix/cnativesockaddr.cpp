// Socket addresses of POSIX systems.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include "qelcore/pi/platform/cnativesockaddrimpl.h"
