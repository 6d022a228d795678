/// \class qcs::cManagedComponent
/// The handle by which the module manager lists a component: the component,
/// and the guard that owns it when the manager was given ownership. Copying
/// hands the ownership on, as tAutoPtr does.
#ifndef QELCORE_QCS_CMANAGEDCOMPONENT_H
#define QELCORE_QCS_CMANAGEDCOMPONENT_H

#include "qelcore/qcs/cabstractcomponent.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qcs {

class QEL_EXPORT cManagedComponent {
public:
  /// Not owned: the guard stays empty.
  explicit cManagedComponent(cAbstractComponent& component);
  /// Owned; a null pointer fails the assertion "mpComponentGuard.get()".
  explicit cManagedComponent(qstd::tAutoPtr<cAbstractComponent> component);
  /// Takes the guard over from `other` (as tAutoPtr does) and shares the pointer.
  cManagedComponent(cManagedComponent& other);
  /// The same as assignment.
  cManagedComponent& operator=(cManagedComponent& other);
  /// Deletes the component when the guard owns it.
  ~cManagedComponent();

  ///@{
  /// The component.
  cAbstractComponent& component() { return *mpComponent; }
  const cAbstractComponent& component() const { return *mpComponent; }
  ///@}
  /// Whether this handle deletes the component.
  bool owned() const { return mpComponentGuard.get() != nullptr; }

private:
  friend class cModuleMgrImpl;
  /// Gives up ownership without deleting (the component is being destroyed
  /// elsewhere).
  void release() { mpComponentGuard.release(); }

  qstd::tAutoPtr<cAbstractComponent> mpComponentGuard;
  cAbstractComponent* mpComponent;
};

}  // namespace qcs

#endif
