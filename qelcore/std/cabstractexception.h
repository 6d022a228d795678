/// \class qstd::cAbstractException
/// The polymorphic base of every exception of the system.
///
/// An exception carries a localizable message (in the concrete classes), its
/// kind, the raising source file and line, a back trace captured at
/// construction and an optional chain of causes. Texts are kept in fixed
/// buffers so that constructing one needs no allocation beyond the message.
#ifndef QELCORE_STD_CABSTRACTEXCEPTION_H
#define QELCORE_STD_CABSTRACTEXCEPTION_H

#include <cstdint>
#include <exception>

#include "qelcore/qelexport.h"
#include "qelcore/std/tautoptr.h"

namespace qucs {
class cString;
class cLIMessage;
class cLILocale;
}  // namespace qucs

namespace qcs {
class cComponentLocation;
}
namespace qsa {
class cAbstractSerializer;
class cAbstractDeserializer;
}  // namespace qsa

namespace qstd {

class cAsciiString;
class cAbstractExceptionFactory;

class QEL_EXPORT cAbstractException : public std::exception {
public:
  /// A bug of the caller (a violated precondition) or a failure at run time (bad input, a failed operation).
  enum Type { TypeBug = 0, TypeRuntime = 1 };
  /// Flags of createMessage: render the whole chain, indent causes by depth.
  enum MessageFlags { MessageWithHistory = 0x1, MessageIndentHistory = 0x4 };
  /// Enumerators rather than static members: usable through a DLL import.
  enum : unsigned int { FileNameSize = 61, TextSize = 256, BacktraceSize = 64 };

  /// With the plain text `text` (cut to TextSize), raised at `file`:`line`; captures the stack.
  cAbstractException(const char* text, Type type, const char* file, unsigned int line);
  ///@{
  /// Copies and moves carry the chain of causes and the remote location along.
  cAbstractException(const cAbstractException& other);
  cAbstractException(cAbstractException&& other) noexcept;
  cAbstractException& operator=(const cAbstractException& other);
  cAbstractException& operator=(cAbstractException&& other) noexcept;
  ///@}
  ~cAbstractException() override;

  /// A new default-constructed object of the same class, owned by the caller.
  virtual cAbstractException* createObject() const = 0;
  /// The class identifier, e.g. "cBugException".
  virtual cAsciiString typeName() const = 0;
  /// The localizable message; null here.
  virtual const qucs::cLIMessage* liMessage() const;
  /// A text for a dialog; null here.
  virtual const qucs::cString* dialog() const;
  /// True once setRemoteInfo() recorded where the exception was raised.
  virtual bool isRemote() const;
  /// That location, or null for an exception raised in this process.
  virtual const qcs::cComponentLocation* remoteLocation() const;
  /// Writes the chain to the debug output, one entry per exception.
  virtual void dump() const;
  /// Writes the type name, the kind and the out-of-memory flag; the concrete
  /// classes add their message.
  virtual void store(qsa::cAbstractSerializer& s) const;
  /// Reads what store() wrote after the type name (the reader of a chain has
  /// consumed that to pick the class).
  virtual void load(qsa::cAbstractDeserializer& d);
  /// Whether this exception reports that memory ran out.
  virtual bool outOfMemoryCondition() const;
  /// A copy of the same class, owned by the caller; link() and the copies of
  /// a chain are made through it. Here: a new object from createObject()
  /// given this one's fields by assignment (fields of derived classes keep
  /// their defaults). tException overrides it with the full copy.
  virtual cAbstractException* clone() const;

  /// The short plain text ("bug", "runtime", ...).
  const char* what() const noexcept override;
  /// Where it was raised.
  const char* sourceFileName() const { return mszFileName; }
  /// The line where it was raised.
  unsigned int sourceFileLine() const { return miLine; }
  /// Bug or runtime.
  Type type() const { return meType; }
  /// Return addresses captured at construction, innermost first.
  const std::uintptr_t* backtrace() const { return maBacktrace; }
  /// How many return addresses backtrace() holds.
  unsigned int backtraceSize() const { return miBacktraceSize; }

  /// Records the location of the remote component that raised the exception
  /// (when it was rebuilt from another process's archive). Copies keep it; the
  /// archive form does not carry it.
  void setRemoteInfo(const qcs::cComponentLocation& location);

  /// Appends a copy of `cause` at the end of the chain of causes.
  void link(const cAbstractException& cause);
  /// The first cause, or null.
  const cAbstractException* history() const { return mpHistory; }
  ///@{
  /// The first exception of the chain (this one included) of that type, or null.
  const cAbstractException* has(const cAsciiString& typeName) const;
  const cAbstractException* has(const char* typeName) const;
  ///@}
  /// Whether any exception of the chain reports that memory ran out.
  bool hasOutOfMemoryCondition() const;

  /// The exception as one message ("Out of memory!" when flagged).
  qucs::cLIMessage toMessage() const;
  /// Clears `out` and renders this exception and, with MessageWithHistory, its
  /// causes, each preceded by `separator` (and its depth in blanks with
  /// MessageIndentHistory). With a locale the messages are translated.
  void createMessage(qucs::cString& out, const qucs::cString& separator, unsigned int flags,
                     const qucs::cLILocale* locale) const;
  /// Appends the rendered text of one exception (no causes).
  static void createMessage(const cAbstractException& e, qucs::cString& out, unsigned int flags,
                            const qucs::cLILocale* locale);

  /// The whole chain, outermost first: for each exception a bool true and
  /// its store(), then a bool false.
  void storeRecursive(qsa::cAbstractSerializer& s) const;
  /// Rebuilds a chain written by storeRecursive(), creating each exception
  /// through the factory from its type name. Null when the chain is empty.
  static tAutoPtr<cAbstractException> createFromStream(qsa::cAbstractDeserializer& d,
                                                       const cAbstractExceptionFactory& factory);
  /// Longest chain createFromStream() rebuilds.
  static constexpr unsigned int MaxStreamedChain = 1000;

protected:
  /// Marks the exception as reporting that memory ran out.
  void setOutOfMemoryCondition(bool on) { mbOutOfMemory = on; }
  /// What load() reads, without changing the exception, and its setting:
  /// a class that loads more than the base applies it when all was read.
  static void loadKind(qsa::cAbstractDeserializer& d, Type& type, bool& outOfMemory);
  /// Applies what loadKind() read.
  void setKind(Type type, bool outOfMemory) {
    meType = type;
    mbOutOfMemory = outOfMemory;
  }
  ///@{
  /// For classes that store a message after the base's part: both in one
  /// go, and back; a failed load changes neither the exception nor `message`
  /// and leaves the reader where it was.
  void storeWithMessage(qsa::cAbstractSerializer& s, const qucs::cLIMessage& message) const;
  void loadWithMessage(qsa::cAbstractDeserializer& d, qucs::cLIMessage& message);
  ///@}

private:
  friend class cSTDExceptions;
  /// Takes ownership of `cause` and attaches it after the last cause.
  void link(cAbstractException* cause);
  void copyBase(const cAbstractException& other);
  /// Copies the fields of `other` except its chain and remote location, and
  /// takes `history` and `remote` (owned) as this object's.
  void takeFields(const cAbstractException& other, cAbstractException* history,
                  qcs::cComponentLocation* remote) noexcept;

  char mszFileName[FileNameSize];
  unsigned int miLine;
  char mszText[TextSize];
  Type meType;
  cAbstractException* mpHistory;
  bool mbOutOfMemory;
  qcs::cComponentLocation* mpRemoteLocation;
  unsigned int miBacktraceSize;
  std::uintptr_t maBacktrace[BacktraceSize];
};

}  // namespace qstd

#endif
