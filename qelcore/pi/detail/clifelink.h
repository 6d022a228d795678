// A mark on the stack for code that calls out of an object (a work's action,
// a queue's pass) and touches the object again afterwards. The object keeps
// the head of a chain of such marks and cuts them all in its destructor;
// the caller asks gone() before it goes on.
//
//   cLifeLink alive(mpRuns);      // mpRuns: the object's cLifeLink*
//   sigTrigger();                 // may destroy the object
//   if (alive.gone()) return;
//   miAmuck = 0;
//
// Marks of one object are made and dropped in stack order on the object's
// thread, so the chain is a stack. No allocation, three pointer writes.
#ifndef QELCORE_PI_DETAIL_CLIFELINK_H
#define QELCORE_PI_DETAIL_CLIFELINK_H

namespace qpi {
namespace detail {

class cLifeLink {
public:
  explicit cLifeLink(cLifeLink*& head) : mppHead(&head), mpOuter(head) { head = this; }
  ~cLifeLink() {
    if (mppHead) *mppHead = mpOuter;
  }
  cLifeLink(const cLifeLink&) = delete;
  cLifeLink& operator=(const cLifeLink&) = delete;

  // The object died since this mark was made.
  bool gone() const { return mppHead == nullptr; }

  // For the dying object's destructor: every mark of its chain is gone.
  static void cutAll(cLifeLink*& head) {
    for (cLifeLink* link = head; link;) {
      cLifeLink* outer = link->mpOuter;
      link->mppHead = nullptr;
      link = outer;
    }
    head = nullptr;
  }

private:
  cLifeLink** mppHead;
  cLifeLink* mpOuter;
};

}  // namespace detail
}  // namespace qpi

#endif
