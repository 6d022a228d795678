// Helpers shared by the file system tests.
#ifndef QELCORE_TESTS_IO_IOTESTUTIL_H
#define QELCORE_TESTS_IO_IOTESTUTIL_H

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "qelcore/io/cioexception.h"
#include "qelcore/io/cpath.h"
#include "qelcore/std/tarray.h"
#include "qelcore/ucs/cstring.h"

namespace iotest {

inline std::string text(const qucs::cString& s) {
  qstd::tArray<char> bytes = s.toUTF8();
  return std::string(bytes.data(true) ? bytes.data() : "", bytes.size());
}
inline std::string text(const qio::cPath& p) { return text(p.toString()); }
inline std::string text(const qstd::tArray<char>& bytes) {
  return std::string(bytes.data(true) ? bytes.data() : "", bytes.size());
}

// A fresh directory of its own under the test's temporary directory,
// removed with everything in it at the end (by the standard library, so
// that cleaning up does not depend on the code under test).
class cTempDir {
public:
  cTempDir() {
    static std::atomic<unsigned int> counter(0);
    std::filesystem::path base = std::filesystem::path(::testing::TempDir());
    mNative = base / ("qelcore_io_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "_" +
                      std::to_string(counter++) + "_" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    std::error_code ignored;
    std::filesystem::remove_all(mNative, ignored);
    std::filesystem::create_directories(mNative);
    mPath = qio::cPath(mNative.u8string().c_str());
  }
  ~cTempDir() {
    std::error_code ignored;
    std::filesystem::permissions(mNative, std::filesystem::perms::all, ignored);
    std::filesystem::remove_all(mNative, ignored);
  }
  const qio::cPath& path() const { return mPath; }
  qio::cPath operator/(const char* name) const { return mPath / qio::cPath(name); }
  const std::filesystem::path& native() const { return mNative; }

private:
  std::filesystem::path mNative;
  qio::cPath mPath;
};

// Runs `f`, which must throw cIOException, and returns what it threw.
template <typename F>
qio::cIOException ioError(F f) {
  try {
    f();
  } catch (const qio::cIOException& e) {
    return e;
  }
  ADD_FAILURE() << "no cIOException";
  return qio::cIOException();
}

}  // namespace iotest

#endif
