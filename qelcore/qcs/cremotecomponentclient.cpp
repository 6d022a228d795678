#include "qelcore/qcs/cremotecomponentclient.h"

#include <memory>
#include <vector>

#include "qelcore/pi/csystem.h"
#include "qelcore/qce/net++/cnetabstractclient.h"
#include "qelcore/qcs/cremoteoptions.h"
#include "qelcore/qcs/detail/cremotetcplink.h"
#include "qelcore/qcs/detail/nestedwait.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qcs {

class cRemoteComponentClientImpl : public qrmi::cConnectable {
public:
  cRemoteComponentClientImpl(cRemoteComponentClient& owner, cModuleMgr& mgr, const cRemoteOptions& options)
      : mOwner(owner), mMgr(mgr), mOptions(options), mbEstablished(false) {
    QEL_ASSERT(options.hasSecret(), "qcs/cremotecomponentclient");
    mClient.connection().setReceiveLimit(mOptions.maxFrameSize() + 64u * 1024u);
  }
  ~cRemoteComponentClientImpl() override { retire(); }

  // The current link stops listening; it is destroyed once nothing of it is
  // on the stack any more.
  void retire() {
    if (mpLink) {
      mpLink->detach();
      mRetired.push_back(std::move(mpLink));
    }
    mbEstablished = false;
    for (std::size_t i = 0; i < mRetired.size();) {
      if (mRetired[i]->busy())
        ++i;
      else
        mRetired.erase(mRetired.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }

  void connect(const qstd::cAsciiString& address) {
    mClient.close();
    retire();
    msError = qstd::cAsciiString();
    // A malformed address throws here, before a session exists.
    mClient.connectTo(address);
    mpLink.reset(new detail::cRemoteTcpLink(detail::cRemoteSession::Client, mMgr, mOptions, mClient.connection()));
    mpLink->mOnEstablished = [this] {
      mbEstablished = true;
      mOwner.sigConnected();
    };
    mpLink->mOnClosed = [this] {
      const bool was = mpLink != nullptr;
      if (was) msError = mpLink->session().closeReason();
      if (msError.empty()) msError = "connection closed";
      mbEstablished = false;
      mOwner.sigDisconnected();
    };
  }

  cRemoteComponentClient& mOwner;
  cModuleMgr& mMgr;
  const cRemoteOptions mOptions;
  qce::cNetAbstractClient mClient;
  std::unique_ptr<detail::cRemoteTcpLink> mpLink;
  std::vector<std::unique_ptr<detail::cRemoteTcpLink>> mRetired;
  bool mbEstablished;
  qstd::cAsciiString msError;
};

cRemoteComponentClient::cRemoteComponentClient(cModuleMgr& mgr, const cRemoteOptions& options)
    : mpImpl(new cRemoteComponentClientImpl(*this, mgr, options)) {
  sigConnected.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
  sigDisconnected.setInvocationBehavior(qrmi::cAbstractSignal::eMayBeUnconnected);
}

cRemoteComponentClient::~cRemoteComponentClient() { delete mpImpl; }

void cRemoteComponentClient::connect(const qstd::cAsciiString& address) { mpImpl->connect(address); }

bool cRemoteComponentClient::waitConnected(unsigned int milliseconds) {
  cRemoteComponentClientImpl& d = *mpImpl;
  detail::waitNested([&d] { return d.mbEstablished || !d.mpLink || d.mpLink->closed(); }, milliseconds,
                     "RemoteConnectWait");
  return isConnected();
}

bool cRemoteComponentClient::isConnected() const {
  return mpImpl->mbEstablished && mpImpl->mpLink && !mpImpl->mpLink->closed();
}

const qstd::cAsciiString& cRemoteComponentClient::lastError() const { return mpImpl->msError; }

void cRemoteComponentClient::close() {
  mpImpl->mClient.close();
  mpImpl->retire();
}

}  // namespace qcs
