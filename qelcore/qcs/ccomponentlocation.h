/// \class qcs::cComponentLocation
/// Where a component lives across processes and hosts: its address, the name
/// of the host and the id of the process it runs in, and an optional local id.
/// Text form `queue:module-pid@host`, with `:localid` appended when there is
/// one, e.g. `1:7-4711@hostA` or `1:7-4711@hostA:x`.
///
/// \code
///   qcs::cComponentLocation here;               // this host and process, no address yet
///   here.setAddress(qcs::cComponentAddr(1, 7));
///   qcs::cComponentLocation same(here.toString());
///   assert(same == here);
/// \endcode
///
/// The separators are not escaped: a host name or local id holding "-", "@",
/// ":" or blanks does not survive the text form (`1:7-12@my-host` reads back the
/// host "my"). Avoid such names where locations travel as text; the archive
/// form keeps every field exactly.
#ifndef QELCORE_QCS_CCOMPONENTLOCATION_H
#define QELCORE_QCS_CCOMPONENTLOCATION_H

#include "qelcore/qcs/ccomponentaddr.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qcs {

class QEL_EXPORT cComponentLocation {
public:
  /// An invalid address on this host, in this process (see provide()).
  cComponentLocation();
  /// The fields as given.
  cComponentLocation(const cComponentAddr& address, const qstd::cAsciiString& hostName,
                     const qstd::cAsciiString& localId, unsigned int pid);
  /// Empty fields and pid 0, then fromString(text).
  explicit cComponentLocation(const qstd::cAsciiString& text);
  ///@{
  /// Plain copies and moves; swap() exchanges two locations.
  cComponentLocation(const cComponentLocation& other) = default;
  cComponentLocation(cComponentLocation&& other) noexcept = default;
  cComponentLocation& operator=(const cComponentLocation& other) = default;
  cComponentLocation& operator=(cComponentLocation&& other) noexcept = default;
  void swap(cComponentLocation& other) noexcept;
  ///@}

  /// The component's address.
  const cComponentAddr& address() const { return mAddress; }
  /// Replaces the address; the rest stays.
  void setAddress(const cComponentAddr& address) { mAddress = address; }
  /// The name of the host of the component's process.
  const qstd::cAsciiString& hostName() const { return msHostName; }
  /// The optional further qualifier; empty by default.
  const qstd::cAsciiString& localId() const { return msLocalId; }
  /// The id of the component's process.
  unsigned int pid() const { return miPid; }

  /// Host name and process id of this process (read from the platform once
  /// per process), empty local id; the address is left alone.
  void provide();

  /// Address, host name, local id and pid all equal.
  bool operator==(const cComponentLocation& other) const;
  /// Not operator==.
  bool operator!=(const cComponentLocation& other) const { return !(*this == other); }

  ///@{
  /// The text form (see the class comment); appendTo() appends it to `out`.
  qstd::cAsciiString toString() const;
  void appendTo(qstd::cAsciiString& out) const;
  ///@}
  /// Reads the text form. Only the address part is checked: a malformed one
  /// throws the malformed-address exception and leaves the location as it
  /// was. The rest is read as words: a pid that is missing or no decimal
  /// number (or above 4294967295) gives pid 0 and empty host name and local
  /// id; missing words give empty texts; words after the local id are ignored.
  void fromString(const qstd::cAsciiString& text);

  /// Without labels: the address, host name, local id, pid. With labels: the
  /// label "LocalAddress" before a context "ModuleAddress" holding the
  /// address, then the entries "HostName", "LocalID" and "PID".
  qsa::cAbstractSerializer& operator>>(qsa::cAbstractSerializer& s) const;
  /// Reads either layout (the address context is taken when it is there);
  /// the location changes only when all was read.
  qsa::cAbstractDeserializer& operator<<(qsa::cAbstractDeserializer& d);

private:
  /// `queue:module-pid@` at `out` (room for 33 characters); returns the count.
  unsigned int writeNumbers(char* out) const;

  cComponentAddr mAddress;
  qstd::cAsciiString msHostName;
  qstd::cAsciiString msLocalId;
  unsigned int miPid;
};

}  // namespace qcs

#endif
