/// \class qsa::cDeserializeBinary
/// The binary archive reader.
///
/// Reads without copying: it moves a position over a constant view of the
/// bytes, which must stay unchanged while they are read. Loads match type ids
/// exactly (no conversions) and skip labels in front of a value. Every
/// operation is transactional: one that fails consumes nothing. Length fields
/// are checked against what remains of the context before anything is
/// allocated, so malformed input ends in the end-of-context error.
#ifndef QELCORE_SA_CDESERIALIZEBINARY_H
#define QELCORE_SA_CDESERIALIZEBINARY_H

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cserializebinaryshared.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tconstarrayref.h"

namespace qsa {

class cSBinaryLoadContextData;
class QEL_EXPORT cDeserializeBinary : public cAbstractDeserializer, public cSerializeBinaryShared {
public:
  cDeserializeBinary();
  /// Reads the viewed bytes (not copied).
  explicit cDeserializeBinary(const qstd::tConstArrayRef<char>& data);
  /// Reads the array (not copied; it must outlive the reader). A temporary
  /// array would be gone before it is read: refused at compile time.
  explicit cDeserializeBinary(const qstd::tArray<char>& data);
  explicit cDeserializeBinary(const qstd::tArray<char>&& data) = delete;
  /// Takes the array's content over (the array is left empty).
  cDeserializeBinary(qstd::tArray<char>& data, bool bTakeOver);
  /// Reads the same bytes from the same position; open contexts stay behind.
  cDeserializeBinary(cDeserializeBinary& other);
  ~cDeserializeBinary() override;

  ///@{
  /// Starts over on other bytes (not copied); open contexts are abandoned.
  void setData(const qstd::tConstArrayRef<char>& data);
  void setData(const qstd::tArray<char>& data);
  void setData(const qstd::tArray<char>&& data) = delete;
  ///@}
  /// Starts over on a copy of the bytes.
  void setData(const char* pData, unsigned int iSize);

  void loadBlock(qstd::tArray<char>& block) override;
  void load(qucs::cString& value) override;
  void load(qstd::cAsciiString& value) final {
    // No label in front and the whole string there: nothing to undo.
    const unsigned int left = miLimit - miPos;
    if (left >= 8) {
      const unsigned long long head = get64(mpBytes + miPos);
      const unsigned int n = static_cast<unsigned int>(head >> 32);
      if (static_cast<unsigned int>(head) == idAsciiString && n <= left - 8) {
        value.setData(mpBytes + miPos + 8, n);
        miPos += 8 + n;
        return;
      }
    }
    loadAsciiString(value);
  }
  ///@{
  /// The fixed-width values are read inline when no label stands in front.
  void load(double& value) final { value = bitsDouble(get64(fixed(idDouble, 8))); }
  void load(bool& value) final { value = fixed4(idBool) != 0; }
  void load(long long& value) final { value = static_cast<long long>(get64(fixed(idInt64, 8))); }
  void load(unsigned long long& value) final { value = get64(fixed(idUInt64, 8)); }
  void load(int& value) final { value = static_cast<int>(fixed4(idInt32)); }
  void load(unsigned int& value) final { value = fixed4(idUInt32); }
  void load(short& value) final { value = static_cast<short>(get16(fixed(idInt16, 2))); }
  void load(unsigned short& value) final { value = get16(fixed(idUInt16, 2)); }
  void load(unsigned char& value) final { value = static_cast<unsigned char>(*fixed(idUChar, 1)); }
  void load(char& value) final { value = *fixed(idChar, 1); }
  ///@}

  ///@{
  /// Loads `count` consecutive elements of the values' type, as loading them
  /// one at a time would. When it fails nothing is consumed, though `values`
  /// may have been written in part.
  void loadValues(int* values, unsigned int count) { getValues(idInt32, values, count); }
  void loadValues(unsigned int* values, unsigned int count) { getValues(idUInt32, values, count); }
  void loadValues(long long* values, unsigned int count) { getValues(idInt64, values, count); }
  void loadValues(unsigned long long* values, unsigned int count) { getValues(idUInt64, values, count); }
  void loadValues(double* values, unsigned int count) { getValues(idDouble, values, count); }
  ///@}

  /// Reads the next ASCII string element without copying it: `chars` points
  /// at its bytes inside the data being read (valid while that data is, and
  /// not terminated), `length` is their number. For callers that keep text in
  /// a string type of their own (see stdstrings.h).
  void loadAsciiChars(const char*& chars, unsigned int& length);

  /// Where the bytes of the next block start and how many there are; moves nothing.
  void getNextBlockInfo(unsigned int& position, unsigned long long& size);

  void rewind() override;
  bool eoc() const override;
  ///@{
  /// The end of the open context, or of the data, is reached (labels count).
  bool eocMayBeLabels() const { return miPos >= miLimit; }
  bool eocMayBeLabels(unsigned int position) const { return position >= miLimit; }
  ///@}
  void reserialize(cAbstractSerializer& out) override;
  bool isContext() override;
  bool isLabel() override;
  cContextRef getContext(const char* pName) override;
  qstd::cAsciiString getNextContextTypeName() override;
  /// Reads the next label and returns its name.
  qstd::cAsciiString getNextLabelName() override;
  void releaseCurrentContext() override;
  cAbstractDeserializer& findLabel(const qstd::cAsciiString& name) override;
  bool tryFindLabel(const qstd::cAsciiString& name) override;

  /// The id of the next element, labels included; moves nothing. Throws the
  /// end-of-context error at the end of the context.
  unsigned int nextTypeId() const;
  /// The read position in the data.
  unsigned int currentPos() const { return miPos; }
  /// End of the readable range: the open context's end or the data's.
  unsigned int limitPos() const { return miLimit; }
  /// The bytes being read.
  const char* rawData() const { return mpBytes; }
  /// How many bytes are being read.
  unsigned int rawSize() const { return miSize; }
  /// How many contexts are entered.
  unsigned int contextDepth() const;
  /// The last label read, empty until one was read.
  const qstd::cAsciiString& lastLabel() const { return mLastLabel; }

private:
  friend class cSBinaryLoadContextData;
  cDeserializeBinary& operator=(const cDeserializeBinary&) = delete;

  struct sContextHeader {
    unsigned int miBegin;
    unsigned int miStart;
    unsigned long long miSize;
    bool mbHasName;
    qstd::cAsciiString mName;
  };

  unsigned int getNextTypeId(bool bSkipLabels);
  const char* loadFixed(unsigned int id, unsigned int n);
  const char* fixed(unsigned int id, unsigned int n) {
    if (miLimit - miPos >= 4 + n && get32(mpBytes + miPos) == id) {
      const char* p = mpBytes + miPos + 4;
      miPos += 4 + n;
      return p;
    }
    return loadFixed(id, n);
  }
  /// A 4-byte value: id and payload read as one 8-byte move.
  unsigned int fixed4(unsigned int id) {
    if (miLimit - miPos >= 8) {
      const unsigned long long both = get64(mpBytes + miPos);
      if (static_cast<unsigned int>(both) == id) {
        miPos += 8;
        return static_cast<unsigned int>(both >> 32);
      }
    }
    return get32(loadFixed(id, 4));
  }
  template <class T>
  void getValues(unsigned int id, T* values, unsigned int count) {
    static_assert(sizeof(T) == 4 || sizeof(T) == 8, "32- and 64-bit values");
    QEL_ASSERT((values != 0) || (count == 0), "sa/cdeserializebinary");
    const unsigned int size = 4 + sizeof(T);
    if ((miLimit - miPos) / size >= count) {
      // The common case: plain elements only. Checked as a whole after the
      // pass, which keeps the pass free of branches.
      const char* p = mpBytes + miPos;
      bool plain = true;
      for (unsigned int i = 0; i < count; ++i, p += size) {
        plain &= get32(p) == id;
        if (sizeof(T) == 4)
          fromBits(get32(p + 4), values[i]);
        else
          fromBits(get64(p + 4), values[i]);
      }
      if (plain) {
        miPos += size * count;
        return;
      }
    }
    // Labels in between, or an error: one at a time, undone on failure.
    const unsigned int start = miPos;
    try {
      for (unsigned int i = 0; i < count; ++i) load(values[i]);
    } catch (...) {
      miPos = start;
      throw;
    }
  }
  void loadAsciiString(qstd::cAsciiString& value);
  const char* loadFixedDirect(unsigned int id, unsigned int n);
  const char* loadBlockHeader(unsigned long long& size);
  void readContextHeader(sContextHeader& header);
  cContextRef openContext(const char* pName, sContextHeader& header);
  bool peekPastLabels(unsigned int& id) const;
  void expectTypeId(unsigned int id);
  unsigned int expectContext();
  void skipType(unsigned int id);
  bool trySeekToLabel(const qstd::cAsciiString& name);
  const char* loadRaw(unsigned long long n);
  unsigned int loadU32();
  void loadLabelName();
  [[noreturn]] void throwMissmatch(const char* expected, unsigned int got) const;
  void updateLimit();
  void detachContexts();

  qstd::tArray<char> mOwnData;
  bool mbOwnsData;
  qstd::tConstArrayRef<char> mData;
  const char* mpBytes;
  unsigned int miSize;
  unsigned int miPos;
  cSBinaryLoadContextData* mpCurrent;
  unsigned int miLimit;
  qstd::cAsciiString mLastLabel;
};

/// Loading from a binary archive by its own type reads inline.
inline cDeserializeBinary& operator<<(char& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(unsigned char& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(short& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(unsigned short& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(int& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(unsigned int& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(double& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(long long& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(unsigned long long& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
inline cDeserializeBinary& operator<<(bool& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}
/// The other standard integer types by their width (see cabstractserializer.h).
inline cDeserializeBinary& operator<<(signed char& v, cDeserializeBinary& d) { return loadByWidth(v, d); }
inline cDeserializeBinary& operator<<(long& v, cDeserializeBinary& d) { return loadByWidth(v, d); }
inline cDeserializeBinary& operator<<(unsigned long& v, cDeserializeBinary& d) { return loadByWidth(v, d); }
inline cDeserializeBinary& operator<<(qstd::cAsciiString& v, cDeserializeBinary& d) {
  d.load(v);
  return d;
}

}  // namespace qsa

#endif
