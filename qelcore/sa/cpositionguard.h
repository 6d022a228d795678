/// \class qsa::cPositionGuard
/// Puts an archive's position back unless the operation it guards completed.
///
/// This is what makes stores and loads of several values transactional: an
/// object that reads (or writes) a sequence of values keeps one guard for the
/// whole sequence and commits when the last value is through. If any of them
/// throws, the archive stands where it stood before the first, so the caller
/// can catch and go on as if nothing had been read.
///
/// \code
///   qsa::cAbstractDeserializer& cPoint::operator<<(qsa::cAbstractDeserializer& d) {
///     qsa::cPositionGuard guard(d);
///     int x = 0, y = 0;
///     x << d;
///     y << d;
///     guard.commit();
///     miX = x;
///     miY = y;
///     return d;
///   }
/// \endcode
///
/// Contexts opened inside the guarded sequence are held by cContext guards
/// declared after this one, so they are left before the position goes back.
/// An archive that keeps no position counter (see trackPosition() of
/// cAbstractSerializer and cAbstractDeserializer) is not moved by a guard.
#ifndef QELCORE_SA_CPOSITIONGUARD_H
#define QELCORE_SA_CPOSITIONGUARD_H

namespace qsa {

class cAbstractDeserializer;
class cAbstractSerializer;

class cPositionGuard {
public:
  ///@{
  /// Guards the position of a reader or writer (defined with their classes).
  explicit cPositionGuard(cAbstractDeserializer& d);
  explicit cPositionGuard(cAbstractSerializer& s);
  ///@}
  /// Guards a position counter directly (archive implementations).
  explicit cPositionGuard(unsigned int& position) : mpPosition(&position), miSaved(position) {}
  ~cPositionGuard() {
    if (mpPosition) *mpPosition = miSaved;
  }

  /// The guarded operation completed: the position stays where it went.
  void commit() { mpPosition = 0; }
  /// The position when the guard was made.
  unsigned int saved() const { return miSaved; }

private:
  explicit cPositionGuard(unsigned int* pPosition) : mpPosition(pPosition), miSaved(pPosition ? *pPosition : 0) {}
  cPositionGuard(const cPositionGuard&) = delete;
  cPositionGuard& operator=(const cPositionGuard&) = delete;

  unsigned int* mpPosition;
  unsigned int miSaved;
};

}  // namespace qsa

#endif
