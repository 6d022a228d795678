// One open context of a cDeserializeBinary; private to the archive sources.
#ifndef QELCORE_SA_DETAIL_CSBINARYLOADCONTEXTDATA_H
#define QELCORE_SA_DETAIL_CSBINARYLOADCONTEXTDATA_H

#include "qelcore/sa/cabstractcontextdata.h"

namespace qsa {

class cDeserializeBinary;

class cSBinaryLoadContextData : public cAbstractContextData {
public:
  cSBinaryLoadContextData(cDeserializeBinary& deserializer, cSBinaryLoadContextData* pEnclosing, unsigned int iBegin,
                          unsigned int iStart, unsigned int iHeaderEnd, unsigned long long iSize);
  // Leaves the context: past its end when finished, back before it otherwise.
  ~cSBinaryLoadContextData() override;
  void finish() override;
  void rewind() override;

  unsigned int startPos() const { return miStart; }
  unsigned int headerEndPos() const { return miHeaderEnd; }
  unsigned int endPos() const { return static_cast<unsigned int>(miStart + miSize); }
  unsigned long long size() const { return miSize; }
  bool isFinished() const { return mbFinished; }

private:
  friend class cDeserializeBinary;
  void leave();

  cDeserializeBinary* mpDeserializer;
  cSBinaryLoadContextData* mpEnclosing;
  unsigned int miBegin;
  unsigned int miStart;
  unsigned int miHeaderEnd;
  unsigned long long miSize;
  bool mbFinished;
  bool mbLeft;
};

}  // namespace qsa

#endif
