/// \class qcs::cRegisteredInterface
/// One entry of a provider's interface list: the interface and whether the
/// provider owns it (then the entry deletes it).
///
/// The entry also links the interface back to the provider, so that an
/// interface owned elsewhere that dies first leaves the provider's list.
#ifndef QELCORE_QCS_CREGISTEREDINTERFACE_H
#define QELCORE_QCS_CREGISTEREDINTERFACE_H

#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qcs {

class cAbstractInterface;
class cAbstractInterfaceProvider;

class QEL_EXPORT cRegisteredInterface {
public:
  /// Owned (the entry deletes the interface).
  explicit cRegisteredInterface(qstd::tAutoPtr<cAbstractInterface> iface);
  /// Not owned.
  explicit cRegisteredInterface(cAbstractInterface& iface);
  cRegisteredInterface(const cRegisteredInterface&) = delete;
  cRegisteredInterface& operator=(const cRegisteredInterface&) = delete;
  /// Deletes the interface when owned.
  ~cRegisteredInterface();

  /// Null once an interface owned elsewhere has died.
  cAbstractInterface* registeredInterface() const { return mpInterface; }
  /// Whether the entry deletes the interface.
  bool owned() const { return mbOwned; }
  /// Same interface.
  bool operator==(const cRegisteredInterface& other) const { return mpInterface == other.mpInterface; }

private:
  friend class cAbstractInterfaceProvider;
  friend class cAbstractInterface;
  void link();
  void unlink();

  cAbstractInterface* mpInterface;
  bool mbOwned;
  /// The provider that lists this entry (null while it is not listed).
  cAbstractInterfaceProvider* mpProvider;
  /// Next entry of the same interface.
  cRegisteredInterface* mpNextOfInterface;
};

}  // namespace qcs

#endif
