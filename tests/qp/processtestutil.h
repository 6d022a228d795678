// A pollable process for tests of process data.
#ifndef QELCORE_TESTS_QP_PROCESSTESTUTIL_H
#define QELCORE_TESTS_QP_PROCESSTESTUTIL_H

#include "qelcore/qp/cabstractpollable.h"
#include "qelcore/qp/cabstractprocessdata.h"

namespace qeltest {

class cScan : public qp::cAbstractPollable {
public:
  cScan() {}
  explicit cScan(qp::cAbstractProcessData& d) : cAbstractPollable(d) {}
  void start() { processData().restart(); }
  void finish() { processData().setFinished(); }
};

}  // namespace qeltest

#endif
