#include "qelcore/qcs/cremotecomponentserver.h"

#include <memory>
#include <vector>

#include "qelcore/pi/csystem.h"
#include "qelcore/pi/cwork.h"
#include "qelcore/pi/cworkqueue.h"
#include "qelcore/qce/net++/cnetabstractserver.h"
#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qcs/cmodulemgr.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/qcs/detail/cremotetcplink.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qcs {

class cRemoteComponentServerImpl : public qrmi::cConnectable {
public:
  struct cClient {
    std::unique_ptr<qce::cNetAbstractConnection> mpConnection;
    std::unique_ptr<detail::cRemoteTcpLink> mpLink;
    bool mbEstablished = false;
  };

  cRemoteComponentServerImpl(cModuleMgr& mgr, const cRemoteOptions& options)
      : mMgr(mgr), mOptions(options) {
    QEL_ASSERT(options.hasSecret(), "qcs/cremotecomponentserver");
    mServer.sigAccepted.connect(*this, &cRemoteComponentServerImpl::sltAccepted);
    mMgr.sigComponentRemoved.connect(*this, &cRemoteComponentServerImpl::sltComponentRemoved);
    mPurge.setName("RemoteServerPurge");
    mPurge.sigTrigger.connect(*this, &cRemoteComponentServerImpl::sltPurge);
    qpi::system().workQueue().addJob(mPurge);
  }
  ~cRemoteComponentServerImpl() override {
    qpi::system().workQueue().removeJob(mPurge);
    dropAll();
  }

  qsa::piVoid sltAccepted(qce::cNetAbstractServer&, qstd::tAutoPtr<qce::cNetAbstractConnection>& accepted) {
    std::unique_ptr<cClient> client(new cClient);
    client->mpConnection.reset(accepted.release());
    client->mpConnection->setReceiveLimit(mOptions.maxFrameSize() + 64u * 1024u);
    client->mpLink.reset(
        new detail::cRemoteTcpLink(detail::cRemoteSession::Server, mMgr, mOptions, *client->mpConnection));
    cClient* raw = client.get();
    client->mpLink->mOnEstablished = [raw] { raw->mbEstablished = true; };
    // A closed link is dropped later: it may be on the stack right now.
    client->mpLink->mOnClosed = [this] { mPurge.start(0, qpi::cWork::SingleTask); };
    for (cAbstractComponent* c : mExported) client->mpLink->session().exportComponent(*c);
    mClients.push_back(std::move(client));
    return qsa::piVoid();
  }

  qsa::piVoid sltComponentRemoved(cAbstractComponent& c) {
    for (std::size_t i = 0; i < mExported.size(); ++i)
      if (mExported[i] == &c) mExported.erase(mExported.begin() + static_cast<std::ptrdiff_t>(i));
    return qsa::piVoid();
  }

  qsa::piVoid sltPurge() {
    for (std::size_t i = 0; i < mClients.size();) {
      if (mClients[i]->mpLink->closed() && !mClients[i]->mpLink->busy())
        mClients.erase(mClients.begin() + static_cast<std::ptrdiff_t>(i));
      else
        ++i;
    }
    return qsa::piVoid();
  }

  void dropAll() {
    std::vector<std::unique_ptr<cClient>> clients;
    clients.swap(mClients);
    for (auto& c : clients) c->mpLink->detach();
  }

  cModuleMgr& mMgr;
  const cRemoteOptions mOptions;
  qce::cNetAbstractServer mServer;
  std::vector<cAbstractComponent*> mExported;
  std::vector<std::unique_ptr<cClient>> mClients;
  qpi::cWork mPurge;
};

cRemoteComponentServer::cRemoteComponentServer(cModuleMgr& mgr, const cRemoteOptions& options)
    : mpImpl(new cRemoteComponentServerImpl(mgr, options)) {}

cRemoteComponentServer::~cRemoteComponentServer() { delete mpImpl; }

void cRemoteComponentServer::exportComponent(cAbstractComponent& component) {
  for (cAbstractComponent* c : mpImpl->mExported)
    if (c == &component) return;
  mpImpl->mExported.push_back(&component);
  for (auto& client : mpImpl->mClients)
    if (!client->mpLink->closed()) client->mpLink->session().exportComponent(component);
}

void cRemoteComponentServer::listen(unsigned int port) { mpImpl->mServer.listen(port); }

void cRemoteComponentServer::listen(const qstd::cAsciiString& address) { mpImpl->mServer.listen(address); }

unsigned int cRemoteComponentServer::port() const { return mpImpl->mServer.port(); }

unsigned int cRemoteComponentServer::clientCount() const {
  unsigned int n = 0;
  for (const auto& client : mpImpl->mClients)
    if (client->mbEstablished && !client->mpLink->closed()) ++n;
  return n;
}

void cRemoteComponentServer::close() {
  mpImpl->mServer.close();
  mpImpl->dropAll();
}

}  // namespace qcs
