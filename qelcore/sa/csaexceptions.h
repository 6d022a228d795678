/// \class qsa::cSAExceptions
/// The errors of the archives. Every archive throws through these; each
/// exception carries the position its throw function was called from.
#ifndef QELCORE_SA_CSAEXCEPTIONS_H
#define QELCORE_SA_CSAEXCEPTIONS_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ccallsite.h"

namespace qstd {
class cAbstractException;
class cAsciiString;
}  // namespace qstd

namespace qsa {

class QEL_EXPORT cSAExceptions {
public:
  /// "Unable to deserialize - end of context!".
  [[noreturn]] static void throwEndOfContext(qstd::cCallSite at = qstd::cCallSite::here());
  /// "Unable to deserialize - label ("%label%") not found in current context!".
  [[noreturn]] static void throwLabelNotFound(const qstd::cAsciiString& label,
                                              qstd::cCallSite at = qstd::cCallSite::here());
  /// "Serialization error (%class%)!" with `cause` linked.
  [[noreturn]] static void throwSerializationError(const qstd::cAbstractException& cause,
                                                   const qstd::cAsciiString& className,
                                                   qstd::cCallSite at = qstd::cCallSite::here());
  /// "Deserialization error in (%class%)!" with `cause` linked.
  [[noreturn]] static void throwDeserializationError(const qstd::cAbstractException& cause,
                                                     const qstd::cAsciiString& className,
                                                     qstd::cCallSite at = qstd::cCallSite::here());
  /// A context handle that holds no context was used (bug exception).
  [[noreturn]] static void throwContextRefNoImpl(qstd::cCallSite at = qstd::cCallSite::here());
  /// "Attempt to serialize the local type %type%!" (a type without archive operators).
  [[noreturn]] static void throwUnserializable(const char* typeName, qstd::cCallSite at = qstd::cCallSite::here());
  /// "Calling erase() with open contexts is invalid!".
  [[noreturn]] static void throwSerializerClearWithOpenContexts(qstd::cCallSite at = qstd::cCallSite::here());
  /// "Calling data() with open contexts is invalid!".
  [[noreturn]] static void throwSerializerDataWithOpenContexts(qstd::cCallSite at = qstd::cCallSite::here());
  /// "Invalid type id (%id%) while deserializing!".
  [[noreturn]] static void throwInvalidTypeId(long long id, qstd::cCallSite at = qstd::cCallSite::here());
  /// A patch whose element differs in size from the element it would replace.
  [[noreturn]] static void throwPatchSizeMissmatch(unsigned int position, unsigned long long size,
                                                   unsigned long long patchSize,
                                                   qstd::cCallSite at = qstd::cCallSite::here());
  /// The type mismatch of a reader: labelled when a label has been read.
  [[noreturn]] static void throwTypeMissmatch(const qstd::cAsciiString& expected, const qstd::cAsciiString& got,
                                              const qstd::cAsciiString& lastLabel,
                                              qstd::cCallSite at = qstd::cCallSite::here());
};

}  // namespace qsa

#endif
