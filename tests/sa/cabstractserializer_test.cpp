#include "qelcore/sa/cabstractserializer.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

using qsa::cSerializeBinary;

namespace {
// An archive that leaves 16-bit values to the base.
class cNo16BitTypes : public qsa::cSerializeToTypeString {
public:
  void store(short v) override { qsa::cAbstractSerializer::store(v); }
  void store(unsigned short v) override { qsa::cAbstractSerializer::store(v); }
  using qsa::cSerializeToTypeString::store;
};
}  // namespace

TEST(cAbstractSerializer, BaseStoresSixteenBitValuesAsThirtyTwo) {
  cNo16BitTypes s;
  static_cast<short>(-2) >> s;
  static_cast<unsigned short>(7) >> s;
  EXPECT_STREQ(s.typeString().c_str(), "piInt32, piUInt32");
}

TEST(cAbstractSerializer, StoreToFileWritesTheArchive) {
  cSerializeBinary s;
  0x64636261u >> s;
  const std::string path = ::testing::TempDir() + "qelcore_sa_store.bin";
  s.storeToFile(qucs::cString(path.c_str()));
  std::ifstream in(path, std::ios::binary);
  std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(content, std::string("\x04\0\0\0abcd", 8));
  in.close();
  std::remove(path.c_str());
  EXPECT_THROW(s.storeToFile(qucs::cString((::testing::TempDir() + "no/such/dir/x.bin").c_str())),
               qstd::cRuntimeException);
}
