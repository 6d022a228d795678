// The errors of the archives. Every archive throws through these.
#ifndef QELCORE_SA_CSAEXCEPTIONS_H
#define QELCORE_SA_CSAEXCEPTIONS_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAbstractException;
class cAsciiString;
}  // namespace qstd

namespace qsa {

class QEL_EXPORT cSAExceptions {
public:
  [[noreturn]] static void throwEndOfContext();
  [[noreturn]] static void throwLabelNotFound(const qstd::cAsciiString& label);
  [[noreturn]] static void throwSerializationError(const qstd::cAbstractException& cause,
                                                   const qstd::cAsciiString& className);
  [[noreturn]] static void throwDeserializationError(const qstd::cAbstractException& cause,
                                                     const qstd::cAsciiString& className);
  [[noreturn]] static void throwContextRefNoImpl();
  [[noreturn]] static void throwUnserializable(const char* typeName);
  [[noreturn]] static void throwSerializerClearWithOpenContexts();
  [[noreturn]] static void throwSerializerDataWithOpenContexts();
  [[noreturn]] static void throwInvalidTypeId(long long id);
  // A patch whose element differs in size from the element it would replace.
  [[noreturn]] static void throwPatchSizeMissmatch(unsigned int position, unsigned long long size,
                                                   unsigned long long patchSize);
  // The type mismatch of a reader: labelled when a label has been read.
  [[noreturn]] static void throwTypeMissmatch(const qstd::cAsciiString& expected, const qstd::cAsciiString& got,
                                              const qstd::cAsciiString& lastLabel);
};

}  // namespace qsa

#endif
