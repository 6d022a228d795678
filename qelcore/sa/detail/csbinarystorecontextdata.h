// One open context of a cSerializeBinary; private to the archive sources.
#ifndef QELCORE_SA_DETAIL_CSBINARYSTORECONTEXTDATA_H
#define QELCORE_SA_DETAIL_CSBINARYSTORECONTEXTDATA_H

#include "qelcore/sa/cabstractcontextdata.h"

namespace qsa {

class cSerializeBinary;

class cSBinaryStoreContextData : public cAbstractContextData {
public:
  cSBinaryStoreContextData(cSerializeBinary& serializer, cSBinaryStoreContextData* pEnclosing, unsigned int iBegin,
                           unsigned int iSizePos);
  // Leaves the context: kept up to its end when finished, dropped otherwise.
  ~cSBinaryStoreContextData() override;
  // Writes the size of the context into its header.
  void finish() override;
  // Drops what was written in the context so far.
  void rewind() override;

  unsigned int beginPos() const { return miBegin; }
  unsigned int headerEndPos() const { return miHeaderEnd; }
  bool isFinished() const { return mbFinished; }

private:
  friend class cSerializeBinary;
  void leave();

  cSerializeBinary* mpSerializer;
  cSBinaryStoreContextData* mpEnclosing;
  unsigned int miBegin;
  unsigned int miSizePos;
  unsigned int miHeaderEnd;
  unsigned int miEnd;
  bool mbFinished;
  bool mbLeft;
};

}  // namespace qsa

#endif
