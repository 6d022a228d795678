#include "qelcore/qp/cabstractpollable.h"

#include "qelcore/qp/cabstractprocessdata.h"
#include "qelcore/qp/cqpexceptions.h"

namespace qp {

cAbstractPollable::cAbstractPollable() { bindData(ContextPolled); }

cAbstractPollable::cAbstractPollable(cAbstractProcessData& data) : cAbstractProcess(data) {
  if (data.context() != ContextNone) cQPExceptions::throwProcessDataInUse(__FILE__, __LINE__);
  bindData(ContextPolled);
}

cAbstractPollable::~cAbstractPollable() {}

void cAbstractPollable::interrupt(bool) {}

}  // namespace qp
