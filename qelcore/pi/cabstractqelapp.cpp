#include "qelcore/pi/cabstractqelapp.h"

namespace qpi {

cAbstractQELApp::~cAbstractQELApp() {}

}  // namespace qpi
