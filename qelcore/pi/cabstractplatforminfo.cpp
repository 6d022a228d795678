#include "qelcore/pi/cabstractplatforminfo.h"

#include "qelcore/io/cfileinfo.h"
#include "qelcore/ucs/cstring.h"

namespace qpi {

cAbstractPlatformInfo::~cAbstractPlatformInfo() {}

void cAbstractPlatformInfo::osSpecificSOName(qucs::cString& name) const {
  // The directory part stays as written; the file name is completed.
  unsigned int fileStart = 0;
  for (unsigned int i = 0; i < name.size(); ++i)
    if (name[i] == '/' || name[i] == '\\') fileStart = i + 1;
  qucs::cString file;
  file.setData(name.data(true) + fileStart, name.size() - fileStart);
  qio::cFileInfo info((qio::cPath(file)));
  info.setFileNamePrefix(qucs::cString(osSharedObjectFilePrefix(), '?'));
  info.setFileNameSuffix(qucs::cString(osSharedObjectFileSuffix(), '?'));
  info.setFileNameExtension(qucs::cString(osSharedObjectFileExtension(), '?'));
  name.truncate(fileStart);
  name.addString(info.fileName());
}

}  // namespace qpi
