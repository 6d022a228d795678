// What the file system layer needs to know of the platform beyond its
// native file system (which cPlatform::createFsImpl creates). One
// implementation per platform directory.
#ifndef QELCORE_PI_PLATFORM_CNATIVEFSINFO_H
#define QELCORE_PI_PLATFORM_CNATIVEFSINFO_H

namespace qpi {

class cNativeFsInfo {
public:
  // The platform's qio::cPath::Style.
  static int pathStyle();
  // The qio::cIOException::Kind of a system error code.
  static int errorKind(int code);
  // The separator of directory lists in environment variables (':' or ';').
  static unsigned int listSeparator();
};

}  // namespace qpi

#endif
