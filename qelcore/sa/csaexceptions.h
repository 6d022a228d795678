/// \class qsa::cSAExceptions
/// The errors of the archives. Every archive throws through these.
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
  /// "Unable to deserialize - end of context!".
  [[noreturn]] static void throwEndOfContext();
  /// "Unable to deserialize - label ("%label%") not found in current context!".
  [[noreturn]] static void throwLabelNotFound(const qstd::cAsciiString& label);
  /// "Serialization error (%class%)!" with `cause` linked.
  [[noreturn]] static void throwSerializationError(const qstd::cAbstractException& cause,
                                                   const qstd::cAsciiString& className);
  /// "Deserialization error in (%class%)!" with `cause` linked.
  [[noreturn]] static void throwDeserializationError(const qstd::cAbstractException& cause,
                                                     const qstd::cAsciiString& className);
  /// A context handle that holds no context was used (bug exception).
  [[noreturn]] static void throwContextRefNoImpl();
  /// "Attempt to serialize the local type %type%!" (a type without archive operators).
  [[noreturn]] static void throwUnserializable(const char* typeName);
  /// "Calling erase() with open contexts is invalid!".
  [[noreturn]] static void throwSerializerClearWithOpenContexts();
  /// "Calling data() with open contexts is invalid!".
  [[noreturn]] static void throwSerializerDataWithOpenContexts();
  /// "Invalid type id (%id%) while deserializing!".
  [[noreturn]] static void throwInvalidTypeId(long long id);
  /// A patch whose element differs in size from the element it would replace.
  [[noreturn]] static void throwPatchSizeMissmatch(unsigned int position, unsigned long long size,
                                                   unsigned long long patchSize);
  /// The type mismatch of a reader: labelled when a label has been read.
  [[noreturn]] static void throwTypeMissmatch(const qstd::cAsciiString& expected, const qstd::cAsciiString& got,
                                              const qstd::cAsciiString& lastLabel);
};

}  // namespace qsa

#endif
