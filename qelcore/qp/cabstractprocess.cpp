#include "qelcore/qp/cabstractprocess.h"

#include "qelcore/qp/cbasicprocessdata.h"

namespace qp {

cAbstractProcess::cAbstractProcess() : mpOwned(new cBasicProcessData), mpData(mpOwned), mbBound(false) {}

cAbstractProcess::cAbstractProcess(cAbstractProcessData& data) : mpOwned(nullptr), mpData(&data), mbBound(false) {}

cAbstractProcess::~cAbstractProcess() {
  if (mbBound) mpData->setContext(ContextNone, nullptr, nullptr);
  delete mpOwned;
}

void cAbstractProcess::bindData(Context context) {
  mpData->setContext(context, nullptr, nullptr);
  mbBound = true;
}

bool cAbstractProcess::isRunning() const { return mpData->isRunning(); }

bool cAbstractProcess::isFinished() const { return mpData->isFinished(); }

}  // namespace qp
