/// \class qsa::cSerializeDebug
/// A readable text archive for debugging: one line per value with its type,
/// labels in front of their values, contexts as indented blocks.
///
/// \code
///   piUInt32 42
///   label "Name" cAsciiString "abc"
///   context "cLIMessage" {
///     ...
///   }
/// \endcode
///
/// Like the binary archive, a context whose guard dies without release()
/// leaves no trace in the text.
#ifndef QELCORE_SA_CSERIALIZEDEBUG_H
#define QELCORE_SA_CSERIALIZEDEBUG_H

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/tarray.h"

namespace qsa {

class QEL_EXPORT cSerializeDebug : public cAbstractSerializer {
public:
  cSerializeDebug();
  ~cSerializeDebug() override;

  void storeBlock(const char* pData, unsigned int iSize) override;
  void store(const qucs::cString& value) override;
  void store(const qstd::cAsciiString& value) override;
  void store(double value) override;
  void store(bool value) override;
  void store(long long value) override;
  void store(unsigned long long value) override;
  void store(int value) override;
  void store(unsigned int value) override;
  void store(short value) override;
  void store(unsigned short value) override;
  void store(char value) override;
  void store(unsigned char value) override;
  using cAbstractSerializer::store;
  /// Both empty the text; refused while a context is open.
  void rewind() override;
  void clear() override;
  cContextRef newContext(const char* pName) override;
  void releaseCurrentContext() override;
  cAbstractSerializer& newLabel(const qstd::cAsciiString& name) override;
  /// The text; refused while a context is open.
  qstd::tArrayRef<char> data() override;
  void swapData(qstd::tArray<char>& other) override;

  /// The text as a NUL-terminated string (contexts still open show as open).
  const char* text();
  /// Bytes of a block shown before it is cut with "...".
  void setBlockPreview(unsigned int iBytes) { miBlockPreview = iBytes; }

private:
  class cContextDataImpl;
  friend class cContextDataImpl;
  cSerializeDebug(const cSerializeDebug&) = delete;
  cSerializeDebug& operator=(const cSerializeDebug&) = delete;

  void beginLine();
  void append(const char* p);
  void append(const char* p, unsigned int n);
  void appendQuoted(const char* p, unsigned int n);
  void value(const char* typeName, const char* text);

  qstd::tArray<char> mText;
  unsigned int miDepth;
  bool mbAfterLabel;
  unsigned int miBlockPreview;
  cContextDataImpl* mpCurrent;
};

}  // namespace qsa

#endif
