// The smallest way to put bytes into a file: create or replace it and write
// them. Archives use it for storeToFile() until a file system takes over.
// One implementation per platform directory.
#ifndef QELCORE_PI_PLATFORM_CNATIVEFILEWRITERIMPL_H
#define QELCORE_PI_PLATFORM_CNATIVEFILEWRITERIMPL_H

namespace qucs {
class cString;
}

namespace qpi {

class cNativeFileWriterImpl {
public:
  // Returns 0, or the system's error code when the file could not be
  // created or written completely.
  static int writeFile(const qucs::cString& path, const char* pData, unsigned int iSize);
};

}  // namespace qpi

#endif
