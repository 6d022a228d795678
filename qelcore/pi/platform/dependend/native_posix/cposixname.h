// A path in the form the POSIX calls take: NUL-terminated UTF-8 bytes, with
// escaped bytes of names that were not UTF-8 restored. Short paths stay on
// the stack.
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXNAME_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_POSIX_CPOSIXNAME_H

namespace qucs {
class cString;
}
namespace qio {
class cPath;
}

namespace qpi {

class cPosixName {
public:
  // A name that cannot be one (a NUL character, a character beyond Unicode)
  // throws InvalidName for `operation`.
  cPosixName(const qio::cPath& path, const char* operation);
  // The same for a bare text (a name inside a directory).
  cPosixName(const qucs::cString& text, const qio::cPath& path, const char* operation);
  cPosixName(const cPosixName&) = delete;
  cPosixName& operator=(const cPosixName&) = delete;
  ~cPosixName();

  const char* c_str() const { return mpName; }
  unsigned int length() const { return miLength; }

private:
  void encode(const unsigned int* p, unsigned int n, const qio::cPath& path, const char* operation);

  char maStack[512];
  char* mpName;
  unsigned int miLength;
};

}  // namespace qpi

#endif
