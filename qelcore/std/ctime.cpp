#include "qelcore/std/ctime.h"

#include "qelcore/pi/platform/cnativetimeimpl.h"

namespace qstd {

cTime::cTime() : mullTime(qpi::cNativeTimeImpl::now()) {}

cTime cTime::diff() const { return cTime(qpi::cNativeTimeImpl::diff(mullTime)); }

}  // namespace qstd
