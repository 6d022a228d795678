/// \class qcs::cComponentAddr
/// The address of a component inside its process: the id of the work queue it
/// belongs to and its own id (the module id), which the module manager
/// assigns. Text form "queue:module", e.g. 1:7.
///
/// \code
///   qcs::cComponentAddr a(1, 7);             // queue 1, module 7
///   qcs::cComponentAddr b(qstd::cAsciiString("1:7"));
///   assert(a == b && a.toString() == "1:7");
/// \endcode
///
/// An address is valid once it has been set; invalidate() clears only that
/// flag. Note that `addr == false` (comparison with any bool) yields the valid
/// flag: it is true for every valid address.
#ifndef QELCORE_QCS_CCOMPONENTADDR_H
#define QELCORE_QCS_CCOMPONENTADDR_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qcs {

class QEL_EXPORT cComponentAddr {
public:
  /// Both ids 0, not valid.
  cComponentAddr() : miModuleID(0), miQueueID(0), mbValid(false) {}
  /// Note the order: queue first. Valid.
  cComponentAddr(unsigned int queueID, unsigned int moduleID)
      : miModuleID(moduleID), miQueueID(queueID), mbValid(true) {}
  /// Zeroes, then fromString(text).
  explicit cComponentAddr(const qstd::cAsciiString& text);
  ///@{
  /// Plain copies; swap() exchanges two addresses.
  cComponentAddr(const cComponentAddr& other) = default;
  cComponentAddr& operator=(const cComponentAddr& other) = default;
  void swap(cComponentAddr& other);
  ///@}

  /// The component id the manager assigned.
  unsigned int moduleID() const { return miModuleID; }
  /// The id of the component's work queue (1 unless the component says otherwise).
  unsigned int queueID() const { return miQueueID; }
  /// Whether the address has been set.
  bool valid() const { return mbValid; }
  /// Clears the valid flag; the ids stay.
  void invalidate() { mbValid = false; }

  /// Ids and valid flags all equal.
  bool operator==(const cComponentAddr& other) const {
    return miModuleID == other.miModuleID && miQueueID == other.miQueueID && mbValid == other.mbValid;
  }
  /// Not operator==.
  bool operator!=(const cComponentAddr& other) const { return !(*this == other); }
  /// The valid flag, whatever the argument (kept so on purpose).
  bool operator==(const bool&) const { return mbValid; }

  /// Decimal queue id, ":", decimal module id; the valid flag is not shown.
  qstd::cAsciiString toString() const;
  /// Appends the text form to `out`.
  void appendTo(qstd::cAsciiString& out) const;
  ///@{
  /// Reads "queue:module", both unsigned decimal numbers (up to 4294967295)
  /// and nothing else around them; the address becomes valid. Any fault
  /// throws "Malformed component address (...)!" with the reason linked as
  /// its cause ("Expecting ":"!" when there is no colon) and leaves the
  /// address as it was.
  void fromString(const qstd::cAsciiString& text);
  void fromString(const char* text, unsigned int length);
  ///@}

  /// Without labels: module id, queue id (unsigned 32-bit); with labels the
  /// entries "ID" and "Queue". The valid flag is not archived.
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  /// Reads the two ids (labels in front of them are skipped) and sets valid;
  /// the address changes only when both were read.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);

private:
  unsigned int miModuleID;
  unsigned int miQueueID;
  bool mbValid;
};

}  // namespace qcs

#endif
