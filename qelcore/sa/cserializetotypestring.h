/// \class qsa::cSerializeToTypeString
/// A serializer that keeps no values, only their type names, as a list joined
/// by ", ": streaming the arguments of a call into it gives the parameter list
/// of its signature ("piInt32, cString, piBool"). Labels leave no trace;
/// contexts cannot be described.
#ifndef QELCORE_SA_CSERIALIZETOTYPESTRING_H
#define QELCORE_SA_CSERIALIZETOTYPESTRING_H

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/casciistring.h"

namespace qsa {

class QEL_EXPORT cSerializeToTypeString : public cAbstractSerializer {
public:
  cSerializeToTypeString();
  ~cSerializeToTypeString() override;

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
  /// Both empty the type string.
  void rewind() override;
  void clear() override;
  /// Unsupported: a context has no type name.
  cContextRef newContext(const char* pName) override;
  void releaseCurrentContext() override;
  cAbstractSerializer& newLabel(const qstd::cAsciiString& name) override;
  /// Unsupported: there are no bytes.
  qstd::tArrayRef<char> data() override;
  /// Hands the type string out as bytes and starts a new one.
  void swapData(qstd::tArray<char>& other) override;
  /// Appends one name. Override to render names differently.
  virtual void storeType(const char* pTypeName);

  /// The type names stored so far, joined by ", ".
  qstd::cAsciiString typeString() const { return mTypeString; }

private:
  qstd::cAsciiString mTypeString;
};

}  // namespace qsa

#endif
