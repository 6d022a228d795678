/// \class qpi::cAbstractQELApp
/// The application object. An application derives its own class from it and
/// hands an instance to the system object; the library only keeps the
/// reference and gives it back to the parts that ask (the component system
/// asks it whether closing is advisable).
///
/// \code
///   class cMyApp : public qpi::cAbstractQELApp { ... };
///   cMyApp app;
///   qpi::system().setApp(&app);
///   ...
///   qpi::system().setApp(nullptr);     // before app dies
/// \endcode
#ifndef QELCORE_PI_CABSTRACTQELAPP_H
#define QELCORE_PI_CABSTRACTQELAPP_H

#include "qelcore/qelexport.h"

namespace qpi {

class QEL_EXPORT cAbstractQELApp {
public:
  cAbstractQELApp() {}
  cAbstractQELApp(const cAbstractQELApp&) = delete;
  cAbstractQELApp& operator=(const cAbstractQELApp&) = delete;
  virtual ~cAbstractQELApp();
};

}  // namespace qpi

#endif
