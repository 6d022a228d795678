#include <gtest/gtest.h>

#include "qelcore/io/cfile.h"
#include "qelcore/io/cioexceptionfactory.h"
#include "qelcore/io/cmemoryfs.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/climessage.h"

#include "iotestutil.h"

using iotest::ioError;
using iotest::text;
using qio::cIOException;

TEST(IOException, NamesTheOperationThePathAndTheError) {
  qio::cMemoryFs fs;
  const cIOException e = ioError([&] { qio::cFile f(fs, "/no/such.txt", qio::cFile::Read); });
  qstd::cAsciiString message;
  e.liMessage()->untranslated(message);
  EXPECT_STREQ(message.c_str(), "I/O error (open) on \"/no/such.txt\": No such file or directory");
  EXPECT_EQ(e.osErrorCode(), 0);  // found by the library, not the system
  EXPECT_STREQ(e.typeName().c_str(), "cIOException");
  // Whoever handles OS errors handles failed file operations too.
  try {
    throw e;
  } catch (const qstd::cOSErrorException& os) {
    EXPECT_STREQ(os.operation().c_str(), "open");
    EXPECT_EQ(text(os.fileName()), "/no/such.txt");
  }
  EXPECT_NE(std::string(e.sourceFileName()).find("cmemoryfs"), std::string::npos);
}

TEST(IOException, RebuiltFromAnArchiveAsItsOwnClass) {
  qio::cMemoryFs fs;
  fs.writeAll("/a", "1", 1);
  fs.writeAll("/b", "2", 1);
  const cIOException e = ioError([&] { fs.rename("/a", "/b"); });
  qsa::cSerializeBinary s;
  e.storeRecursive(s);
  qstd::tArray<char> bytes;
  s.swapData(bytes);
  qsa::cDeserializeBinary d(bytes);
  qstd::tAutoPtr<qstd::cAbstractException> back =
      qstd::cAbstractException::createFromStream(d, qio::cIOExceptionFactory());
  ASSERT_TRUE(back.get() != nullptr);
  EXPECT_STREQ(back->typeName().c_str(), "cIOException");
  qstd::cAsciiString a, b;
  e.liMessage()->untranslated(a);
  back->liMessage()->untranslated(b);
  EXPECT_STREQ(a.c_str(), b.c_str());
  EXPECT_STREQ(a.c_str(), "I/O error (rename) on \"/a\" and \"/b\": File exists");
  EXPECT_EQ(qio::cIOExceptionFactory().createException(qstd::cAsciiString("cOSErrorException")), nullptr);
}
