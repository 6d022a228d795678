// The native file system of the platform and what the file system layer
// needs to know of the platform. One implementation per platform directory.
#ifndef QELCORE_PI_PLATFORM_CNATIVEFSIMPL_H
#define QELCORE_PI_PLATFORM_CNATIVEFSIMPL_H

#include "qelcore/std/tautoptr.h"

namespace qucs {
class cString;
}
namespace qio {
class cAbstractFsImpl;
class cFs;
}  // namespace qio

namespace qpi {

class cNativeFsImpl {
public:
  // A new native file system implementation for `fs`.
  static qstd::tAutoPtr<qio::cAbstractFsImpl> create(qio::cFs& fs);
  // The platform's qio::cPath::Style.
  static int pathStyle();
  // The qio::cIOException::Kind of a system error code.
  static int errorKind(int code);
  // The system's text for an error code, without line breaks.
  static void errorText(int code, qucs::cString& out);
  // The separator of directory lists in environment variables (':' or ';').
  static unsigned int listSeparator();
};

}  // namespace qpi

#endif
