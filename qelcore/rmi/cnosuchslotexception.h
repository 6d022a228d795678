// A public slot was asked for by a name that the interface does not publish.
#ifndef QELCORE_RMI_CNOSUCHSLOTEXCEPTION_H
#define QELCORE_RMI_CNOSUCHSLOTEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"

namespace qrmi {

class QEL_EXPORT cNoSuchSlotException : public qstd::cRuntimeException {
public:
  cNoSuchSlotException();
  cNoSuchSlotException(const qucs::cLIMessage& msg, const qstd::cAsciiString& slotName,
                       const qstd::cAsciiString& slotArgs, const char* file, unsigned int line);
  cNoSuchSlotException(const cNoSuchSlotException& other);
  cNoSuchSlotException& operator=(const cNoSuchSlotException& other);
  ~cNoSuchSlotException() override;
  void swap(cNoSuchSlotException& other);

  qstd::cAbstractException* createObject() const override;
  qstd::cAbstractException* clone() const override;
  qstd::cAsciiString typeName() const override;
  const qstd::cAsciiString& slotName() const { return msSlot; }
  const qstd::cAsciiString& slotArgs() const { return msArgs; }

private:
  qstd::cAsciiString msSlot;
  qstd::cAsciiString msArgs;
};

}  // namespace qrmi

#endif
