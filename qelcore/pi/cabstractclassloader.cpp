#include "qelcore/pi/cabstractclassloader.h"

namespace qpi {

cAbstractClassLoader::cAbstractClassLoader(const qucs::cString& libFileName)
    : miReferences(0), mLibFileName(libFileName) {}

cAbstractClassLoader::~cAbstractClassLoader() {}

bool cAbstractClassLoader::hasComponentSection() const { return true; }

bool cAbstractClassLoader::hasPlugInSection() const { return true; }

}  // namespace qpi
