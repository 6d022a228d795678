#include "qelcore/pi/platform/cnativefilewriterimpl.h"

#include <cerrno>
#include <cstdio>
#include <vector>

#include "qelcore/ucs/cstring.h"

namespace qpi {

int cNativeFileWriterImpl::writeFile(const qucs::cString& path, const char* pData, unsigned int iSize) {
  // File names go to the wide-character functions as UTF-16.
  std::vector<wchar_t> name;
  const unsigned int n = path.size();
  const unsigned int* pChars = n ? path.data() : 0;
  for (unsigned int i = 0; i < n; ++i) {
    unsigned int c = pChars[i];
    if (c >= 0x10000u && c <= 0x10FFFFu) {
      c -= 0x10000u;
      name.push_back(static_cast<wchar_t>(0xD800u + (c >> 10)));
      name.push_back(static_cast<wchar_t>(0xDC00u + (c & 0x3FFu)));
    } else {
      name.push_back(static_cast<wchar_t>(c > 0x10FFFFu ? 0xFFFDu : c));
    }
  }
  name.push_back(L'\0');
  errno = 0;
  std::FILE* f = _wfopen(name.data(), L"wb");
  if (!f) return errno ? errno : EIO;
  const bool written = iSize == 0 || std::fwrite(pData, 1, iSize, f) == iSize;
  int error = written ? 0 : (errno ? errno : EIO);
  if (std::fclose(f) != 0 && error == 0) error = errno ? errno : EIO;
  return error;
}

}  // namespace qpi
