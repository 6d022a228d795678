// A path in the form the wide-character Win32 calls take: UTF-16 with '\'
// separators, NUL-terminated. Absolute paths longer than the classic limit
// get the "\\?\" prefix (normalised first, as the prefix switches the
// system's own normalisation off). Short paths stay on the stack.
//
// Characters U+D800..U+DFFF become the single unit of the same value, the
// way names that are not valid UTF-16 are read back (cWin32Name::decode).
#ifndef QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32NAME_H
#define QELCORE_PI_PLATFORM_DEPENDEND_NATIVE_WIN32_CWIN32NAME_H

namespace qucs {
class cString;
}
namespace qio {
class cPath;
}

namespace qpi {

class cWin32Name {
public:
  // A name that cannot be one (a NUL character, a character beyond Unicode)
  // throws InvalidName for `operation`. `suffix` (ASCII) is appended, such
  // as "\\*" for a listing.
  cWin32Name(const qio::cPath& path, const char* operation, const char* suffix = nullptr);
  cWin32Name(const cWin32Name&) = delete;
  cWin32Name& operator=(const cWin32Name&) = delete;
  ~cWin32Name();

  const wchar_t* c_str() const { return mpName; }
  unsigned int length() const { return miLength; }

  // Appends the characters of `n` UTF-16 units to `out`; unpaired
  // surrogates are kept as they are.
  static void decode(const wchar_t* p, unsigned int n, qucs::cString& out);

private:
  wchar_t maStack[280];
  wchar_t* mpName;
  unsigned int miLength;
};

}  // namespace qpi

#endif
