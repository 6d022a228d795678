/// \class qce::cCoreExtensionMgr
/// The core extensions of a process: services that plug-in modules (or the
/// library itself) contribute, asked in the order they were added when an
/// object of a type name is wanted.
///
/// \code
///   qce::cCoreExtensionMgr& extensions = qpi::system().coreExtensions();
///   qstd::tAutoPtr<qucs::cAbstractEnDec> utf16 = extensions.createEnDec("Endec-UTF16");
///   extensions.load(qstd::cAsciiString("qelipv6"), frame);   // finds libqelipv6.so / qelipv6.dll
///   qstd::tAutoPtr<qce::cNetAbstractAddress> a = extensions.createNetAddress("TcpIpv6");
/// \endcode
///
/// A manager of its own starts empty. The system's manager (see qpi::cSystem)
/// starts with the library's own extensions:
/// \code
///   serializer "Binary"             the binary archive (cSerializeBinary /
///                                   cDeserializeBinary); createSerializer's
///                                   second text "utf8" stores strings as
///                                   UTF-8, anything else as 32-bit characters
///   encoders "Endec-UTF8",          cEnDecUTF8, cEnDecUTF16 (little-endian,
///                                   no byte order mark)
///            "Endec-UTF16"
///   network address "TcpIpv4"       qce::cNetIPv4Address
/// \endcode
///
/// A look-up that finds nothing throws cUnsupportedExtensionException "No %s%
/// of type "%specialized%" found!" (%s% the kind: "netwok address",
/// "serializer", "Encoder / Decoder").
///
/// Module files are loaded by file name (as given to the platform's loader)
/// or by module name: the name gets the platform's library naming
/// (cAbstractPlatformInfo::osSpecificSOName) and is looked for in
/// modulePaths(): the directories of the environment variable
/// "QELCORE_MODULE_PATH", then the library's own module directory
/// (cPlatform::moduleDirectory()). Note that a string literal names neither
/// kind by itself: write load(qucs::cString("lib/x.so")) or
/// load(qstd::cAsciiString("x"), frame).
#ifndef QELCORE_QCE_CCOREEXTENSIONMGR_H
#define QELCORE_QCE_CCOREEXTENSIONMGR_H

#include "qelcore/io/csearchpaths.h"
#include "qelcore/qce/cabstractcoreextension.h"
#include "qelcore/qce/cextensionpair.h"
#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tconstarrayref.h"
#include "qelcore/std/tptrlist.h"

namespace qcs {
class cAbstractModule;
class cPlugInGuard;
}  // namespace qcs
namespace qsa {
class cAbstractDeserializer;
class cAbstractSerializer;
class cReferenceFrame;
}  // namespace qsa
namespace qucs {
class cAbstractEnDec;
class cString;
}  // namespace qucs

namespace qce {

class cNetAbstractAddress;

class QEL_EXPORT cCoreExtensionMgr {
public:
  /// The list of entries, in insertion order.
  typedef qstd::tPtrList<cExtensionPair> tExtensions;

  /// Module paths on the system's file system.
  cCoreExtensionMgr();
  /// Module paths on `fs`.
  explicit cCoreExtensionMgr(const qio::cFs& fs);
  /// Takes over the extensions of `other`, which is left empty.
  cCoreExtensionMgr(cCoreExtensionMgr& other);
  /// Drops this manager's extensions and takes over those of `other`.
  cCoreExtensionMgr& operator=(cCoreExtensionMgr& other);
  virtual ~cCoreExtensionMgr();

  /// Appends an entry owning the extension.
  void add(qstd::tAutoPtr<cAbstractCoreExtension> extension);
  /// Lists the core extension of a plug-in already loaded (see
  /// qcs::cPlugInMgr::loadPlugIn); the entry owns the plug-in and its file
  /// from now on. A plug-in that is no core extension is unloaded with the
  /// runtime exception "Module ("%name%") does not provide core extension
  /// functionality." (its file name, or its name when it is linked in).
  qcs::cAbstractModule& add(qstd::tAutoPtr<qcs::cPlugInGuard> plugIn);

  /// Opens the module file, lets its plug-in be created with `frame` and
  /// lists the plug-in's core extension (the entry owns the plug-in and its
  /// file). A module that is no core extension is unloaded again with the
  /// runtime exception "Module ("%name%") does not provide core extension
  /// functionality."; errors of the class loader come unchanged.
  qcs::cAbstractModule& load(const qucs::cString& fileName, qsa::cReferenceFrame& frame);
  /// The same with a reference frame of its own.
  qcs::cAbstractModule& load(const qucs::cString& fileName);
  /// The same for a module name, found as described above; a name found
  /// nowhere is handed to the loader as completed, which reports the
  /// system's error.
  qcs::cAbstractModule& load(const qstd::cAsciiString& name, qsa::cReferenceFrame& frame);
  /// Whether the module file exists: the name completed by the platform's
  /// library naming, checked on the system's file system. Loads nothing.
  bool has(const qucs::cString& fileName) const;
  ///@{
  /// Where load() by module name looks.
  qio::cSearchPaths& modulePaths() { return mModulePaths; }
  const qio::cSearchPaths& modulePaths() const { return mModulePaths; }
  ///@}

  /// The first extension, of any kind, that supports the type name; null
  /// when none does.
  cAbstractCoreExtension* hasExtension(const qstd::cAsciiString& typeName) const;
  /// provides(names) of every extension of that kind, in list order.
  void provides(cAbstractCoreExtension::ExtensionType type, qstd::tVector<qstd::cAsciiString>& names) const;

  ///@{
  /// Objects by type name, made by the first extension of the kind that
  /// supports the name; owned by the caller. cUnsupportedExtensionException
  /// when none does.
  qstd::tAutoPtr<cNetAbstractAddress> createNetAddress(const qstd::cAsciiString& typeName) const;
  qstd::tAutoPtr<qsa::cAbstractSerializer> createSerializer(const qstd::cAsciiString& typeName,
                                                            const qstd::cAsciiString& second) const;
  qstd::tAutoPtr<qsa::cAbstractDeserializer> createDeserializer(const qstd::cAsciiString& typeName,
                                                                qstd::tConstArrayRef<char> data) const;
  qstd::tAutoPtr<qsa::cAbstractDeserializer> createDeserializer(const qstd::cAsciiString& typeName,
                                                                const qucs::cString& fileName) const;
  qstd::tAutoPtr<qucs::cAbstractEnDec> createEnDec(const qstd::cAsciiString& typeName) const;
  ///@}

  /// The entries in insertion order.
  const tExtensions& extensions() const { return mExtensions; }
  /// Removes the entries that own plug-ins, each plug-in before its file,
  /// the last loaded first.
  void unloadPlugIns();
  /// Empties the list, deleting what the entries own.
  void clear();

private:
  void initModulePaths();
  cAbstractCoreExtension& find(cAbstractCoreExtension::ExtensionType type, const char* kindText,
                               const qstd::cAsciiString& typeName) const;

  tExtensions mExtensions;
  qio::cSearchPaths mModulePaths;
};

}  // namespace qce

#endif
