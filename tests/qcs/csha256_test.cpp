// SHA-256 and HMAC-SHA-256 against the published test vectors (FIPS 180-4
// examples, RFC 4231), whole and fed in pieces.
#include "qelcore/qcs/detail/csha256.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using qcs::detail::cHmacSha256;
using qcs::detail::cSha256;

std::string hex(const unsigned char* p, unsigned int n) {
  static const char digits[] = "0123456789abcdef";
  std::string s;
  for (unsigned int i = 0; i < n; ++i) {
    s += digits[p[i] >> 4];
    s += digits[p[i] & 15];
  }
  return s;
}

// The digest of `message`, given in pieces of `piece` bytes.
std::string sha256(const std::string& message, std::size_t piece = 1000000) {
  cSha256 h;
  for (std::size_t at = 0; at < message.size(); at += piece)
    h.update(message.data() + at, std::min(piece, message.size() - at));
  unsigned char d[cSha256::DigestSize];
  h.finish(d);
  return hex(d, sizeof(d));
}

std::string hmac(const std::string& key, const std::string& message) {
  cHmacSha256 h(key.data(), key.size());
  h.update(message.data(), message.size());
  unsigned char d[cSha256::DigestSize];
  h.finish(d);
  return hex(d, sizeof(d));
}

TEST(Sha256, PublishedVectorsWholeAndInPieces) {
  EXPECT_EQ(sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  const std::string two = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
  EXPECT_EQ(sha256(two), "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(sha256(two, 7), sha256(two));
  // A million 'a' crosses many blocks; pieces of 63 never align with them.
  const std::string million(1000000, 'a');
  EXPECT_EQ(sha256(million, 63), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
  // Lengths around the padding boundary (55, 56 and 64 bytes) differ.
  EXPECT_NE(sha256(std::string(55, 'x')), sha256(std::string(56, 'x')));
  EXPECT_EQ(sha256(std::string(64, 'x'), 1), sha256(std::string(64, 'x')));
}

TEST(HmacSha256, Rfc4231Vectors) {
  EXPECT_EQ(hmac(std::string(20, '\x0b'), "Hi There"),
            "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7");
  EXPECT_EQ(hmac("Jefe", "what do ya want for nothing?"),
            "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
  EXPECT_EQ(hmac(std::string(20, '\xaa'), std::string(50, '\xdd')),
            "773ea91e36800e46854db8ebd09181a72959098b3ef8c122d9635514ced565fe");
  // A key longer than a block is hashed first.
  EXPECT_EQ(hmac(std::string(131, '\xaa'), "Test Using Larger Than Block-Size Key - Hash Key First"),
            "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54");
}

TEST(HmacSha256, ConstantTimeComparisonFindsADifferenceAnywhere) {
  unsigned char a[32] = {}, b[32] = {};
  EXPECT_TRUE(qcs::detail::equalConstantTime(a, b, 32));
  b[31] = 1;
  EXPECT_FALSE(qcs::detail::equalConstantTime(a, b, 32));
  b[31] = 0;
  b[0] = 0x80;
  EXPECT_FALSE(qcs::detail::equalConstantTime(a, b, 32));
}

}  // namespace
