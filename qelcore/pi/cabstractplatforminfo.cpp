#include "qelcore/pi/cabstractplatforminfo.h"

#include "qelcore/ucs/cstring.h"

namespace qpi {

cAbstractPlatformInfo::~cAbstractPlatformInfo() {}

void cAbstractPlatformInfo::osSpecificSOName(qucs::cString& name) const {
  const unsigned int length = name.size();
  unsigned int fileStart = 0;
  for (unsigned int i = 0; i < length; ++i)
    if (name[i] == '/' || name[i] == '\\') fileStart = i + 1;
  unsigned int stemEnd = length;
  for (unsigned int i = length; i > fileStart; --i)
    if (name[i - 1] == '.') {
      stemEnd = i - 1;
      break;
    }

  const qstd::cAsciiString prefix = osSharedObjectFilePrefix();
  qucs::cString result;
  for (unsigned int i = 0; i < fileStart; ++i) result.append(name[i]);
  bool hasPrefix = stemEnd - fileStart >= prefix.size();
  for (unsigned int i = 0; hasPrefix && i < prefix.size(); ++i)
    hasPrefix = name[fileStart + i] == static_cast<unsigned char>(prefix.c_str()[i]);
  if (!hasPrefix) result.appendC(prefix.c_str());
  for (unsigned int i = fileStart; i < stemEnd; ++i) result.append(name[i]);
  result.appendC(osSharedObjectFileSuffix().c_str());
  result.appendC(osSharedObjectFileExtension().c_str());
  name = result;
}

}  // namespace qpi
