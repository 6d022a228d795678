#include "qelcore/qce/net++/cnetabstractserver.h"

#include "qelcore/std/casciistring.h"

namespace qce {

cNetAbstractServer::cNetAbstractServer(qpi::cWorkQueue* queue) : cNetAbstractSocket(queue), miAcceptBatch(16) {}
cNetAbstractServer::~cNetAbstractServer() {}
void cNetAbstractServer::listen(unsigned int) {}
void cNetAbstractServer::listen(const cNetAbstractAddress&) {}
void cNetAbstractServer::listen(const qstd::cAsciiString&) {}
void cNetAbstractServer::listen(const char*) {}
bool cNetAbstractServer::isListening() const { return false; }
unsigned int cNetAbstractServer::port() const { return 0; }
void cNetAbstractServer::close() {}
void cNetAbstractServer::setAcceptBatch(unsigned int count) { miAcceptBatch = count ? count : 1; }
void cNetAbstractServer::ready(unsigned int) {}
void cNetAbstractServer::listenAt(const void*, unsigned int) {}

}  // namespace qce
