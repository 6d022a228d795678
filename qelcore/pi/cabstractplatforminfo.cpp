#include "qelcore/pi/cabstractplatforminfo.h"

#include "qelcore/io/cfileinfo.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

cAbstractPlatformInfo::~cAbstractPlatformInfo() {}

void cAbstractPlatformInfo::osSpecificSOName(qucs::cString& name) const {
  qio::cFileInfo file{qio::cPath(name)};
  file.setFileNamePrefix(qucs::cString(osSharedObjectFilePrefix(), '?'));
  file.setFileNameSuffix(qucs::cString(osSharedObjectFileSuffix(), '?'));
  file.setFileNameExtension(qucs::cString(osSharedObjectFileExtension(), '?'));
  name = file.path().toString();
}

}  // namespace qpi
