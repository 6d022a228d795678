/// \class qcs::cModuleLoadException
/// A module file could not be loaded or does not provide what was asked of
/// it. Class loaders raise it with the module's file name and a message of
/// their own.
#ifndef QELCORE_QCS_CMODULELOADEXCEPTION_H
#define QELCORE_QCS_CMODULELOADEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/texception.h"
#include "qelcore/ucs/cstring.h"

namespace qcs {

class QEL_EXPORT cModuleLoadException : public qstd::tException<cModuleLoadException, qstd::cRuntimeException> {
public:
  /// "cModuleLoadException", the name in the exception registry.
  static const char* staticTypeName() { return "cModuleLoadException"; }

  /// What went wrong with the module file.
  enum KindOfProblem : unsigned int {
    eLoadFailed = 0,     ///< the system could not load the file
    eNotProvided = 1,    ///< the module lacks what was asked of it (no component, no plug-in, no instance)
    eInvalidModule = 2,  ///< the file is no module of this framework (a section is missing)
  };

  /// eLoadFailed, no file name, no message.
  cModuleLoadException() : meProblem(eLoadFailed) {}
  /// The problem with `fileName`, told by `msg`, raised at `file`:`line`.
  cModuleLoadException(KindOfProblem problem, const qucs::cString& fileName, const qucs::cLIMessage& msg,
                       const char* file, unsigned int line);

  /// What went wrong.
  KindOfProblem problem() const { return meProblem; }
  /// The module file, as given to the loader.
  const qucs::cString& fileName() const { return mFileName; }

  /// The runtime exception's part, then the problem (unsigned 32-bit) and the
  /// file name.
  void store(qsa::cAbstractSerializer& s) const override;
  /// Reads the same; the exception changes only when all was read.
  void load(qsa::cAbstractDeserializer& d) override;

private:
  KindOfProblem meProblem;
  qucs::cString mFileName;
};

}  // namespace qcs

#endif
