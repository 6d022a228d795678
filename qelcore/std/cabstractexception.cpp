#include "qelcore/std/cabstractexception.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "qelcore/pi/cabstractout.h"
#include "qelcore/qcs/ccomponentlocation.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/cabstractexceptionfactory.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

namespace {

void copyBounded(char* dest, const char* src, unsigned int size) {
  std::memset(dest, 0, size);
  if (!src) return;
  for (unsigned int i = 0; i + 1 < size && src[i]; ++i) dest[i] = src[i];
}

// "ME=dump": show every exception where it is raised, caught or not.
bool dumpOnConstruction() {
  const char* me = std::getenv("ME");
  return me && std::strcmp(me, "dump") == 0;
}

}  // namespace

cAbstractException::cAbstractException(const char* text, Type type, const char* file, unsigned int line)
    : miLine(line),
      meType(type),
      mpHistory(nullptr),
      mbOutOfMemory(false),
      mpRemoteLocation(nullptr),
      miBacktraceSize(0) {
  copyBounded(mszFileName, file, FileNameSize);
  copyBounded(mszText, text, TextSize);
  std::memset(maBacktrace, 0, sizeof maBacktrace);
  miBacktraceSize = qpi::cAbstractOut::captureBacktrace(maBacktrace, BacktraceSize, 1);
  if (dumpOnConstruction()) {
    qpi::cAbstractOut& out = qpi::cAbstractOut::current();
    const char* where = file ? file : "unknown";
    if (out.enabled(qpi::cAbstractOut::LevelWarning, where)) {
      std::string header("Exception constructed (");
      header += mszText;
      header += "):";
      out.writeStackTrace(qpi::cAbstractOut::LevelWarning, header.c_str(), where, line);
    }
  }
}

cAbstractException::cAbstractException(const cAbstractException& other)
    : std::exception(other), mpHistory(nullptr), mpRemoteLocation(nullptr) {
  copyBase(other);
}

cAbstractException::cAbstractException(cAbstractException&& other) noexcept
    : std::exception(other), mpHistory(nullptr), mpRemoteLocation(nullptr) {
  *this = std::move(other);
}

cAbstractException& cAbstractException::operator=(const cAbstractException& other) {
  if (this != &other) copyBase(other);
  return *this;
}

cAbstractException& cAbstractException::operator=(cAbstractException&& other) noexcept {
  if (this != &other) {
    cAbstractException* history = other.mpHistory;
    other.mpHistory = nullptr;
    qcs::cComponentLocation* remote = other.mpRemoteLocation;
    other.mpRemoteLocation = nullptr;
    takeFields(other, history, remote);
  }
  return *this;
}

cAbstractException::~cAbstractException() {
  delete mpHistory;
  delete mpRemoteLocation;
}

void cAbstractException::copyBase(const cAbstractException& other) {
  // Copy the chain and the location first: if that throws, this object is
  // unchanged.
  tAutoPtr<qcs::cComponentLocation> remote(other.mpRemoteLocation ? new qcs::cComponentLocation(*other.mpRemoteLocation)
                                                                  : nullptr);
  cAbstractException* history = other.mpHistory ? other.mpHistory->clone() : nullptr;
  takeFields(other, history, remote.release());
}

void cAbstractException::setRemoteInfo(const qcs::cComponentLocation& location) {
  qcs::cComponentLocation* remote = new qcs::cComponentLocation(location);
  delete mpRemoteLocation;
  mpRemoteLocation = remote;
}

void cAbstractException::takeFields(const cAbstractException& other, cAbstractException* history,
                                    qcs::cComponentLocation* remote) noexcept {
  std::memcpy(mszFileName, other.mszFileName, FileNameSize);
  miLine = other.miLine;
  std::memcpy(mszText, other.mszText, TextSize);
  meType = other.meType;
  delete mpHistory;
  mpHistory = history;
  delete mpRemoteLocation;
  mpRemoteLocation = remote;
  mbOutOfMemory = other.mbOutOfMemory;
  miBacktraceSize = other.miBacktraceSize;
  std::memcpy(maBacktrace, other.maBacktrace, sizeof maBacktrace);
}

const qucs::cLIMessage* cAbstractException::liMessage() const { return nullptr; }
const qucs::cString* cAbstractException::dialog() const { return nullptr; }
bool cAbstractException::isRemote() const { return remoteLocation() != nullptr; }
const qcs::cComponentLocation* cAbstractException::remoteLocation() const { return mpRemoteLocation; }
bool cAbstractException::outOfMemoryCondition() const { return mbOutOfMemory; }
const char* cAbstractException::what() const noexcept { return mszText; }

void cAbstractException::dump() const {
  qpi::cAbstractOut& out = qpi::cAbstractOut::current();
  for (const cAbstractException* e = this; e; e = e->mpHistory) {
    const char* file = e->mszFileName[0] ? e->mszFileName : "unknown";
    if (!out.enabled(qpi::cAbstractOut::LevelError, file)) continue;
    std::string entry(e->typeName().c_str());
    entry += e->meType == TypeBug ? " (bug)" : " (runtime)";
    const qucs::cLIMessage* msg = e->liMessage();
    if (msg) {
      cAsciiString text;
      msg->untranslated(text);
      entry += ": ";
      entry += text.c_str();
    } else {
      entry += " --- no message ---";
    }
    out.write(qpi::cAbstractOut::LevelError, entry.c_str(), file, e->miLine);
  }
}

cAbstractException* cAbstractException::clone() const {
  tAutoPtr<cAbstractException> copy(createObject());
  if (copy.get()) *copy = *this;
  return copy.release();
}

void cAbstractException::link(const cAbstractException& cause) { link(cause.clone()); }

void cAbstractException::link(cAbstractException* cause) {
  if (!cause) return;
  cAbstractException* last = this;
  while (last->mpHistory) last = last->mpHistory;
  last->mpHistory = cause;
}

const cAbstractException* cAbstractException::has(const cAsciiString& typeName) const { return has(typeName.c_str()); }

const cAbstractException* cAbstractException::has(const char* typeName) const {
  if (!typeName) return nullptr;
  for (const cAbstractException* e = this; e; e = e->mpHistory)
    if (std::strcmp(e->typeName().c_str(), typeName) == 0) return e;
  return nullptr;
}

bool cAbstractException::hasOutOfMemoryCondition() const {
  for (const cAbstractException* e = this; e; e = e->mpHistory)
    if (e->outOfMemoryCondition()) return true;
  return false;
}

qucs::cLIMessage cAbstractException::toMessage() const {
  if (hasOutOfMemoryCondition()) return qucs::cLIMessage("$QTR$Out of memory!");
  if (const qucs::cLIMessage* msg = liMessage()) return *msg;
  qucs::cLIMessage msg("$QTR$%s%");
  msg << what();
  return msg;
}

void cAbstractException::createMessage(const cAbstractException& e, qucs::cString& out, unsigned int /*flags*/,
                                       const qucs::cLILocale* locale) {
  const qucs::cLIMessage* msg = e.liMessage();
  if (!msg) {
    out.appendC(e.what());
    return;
  }
  qucs::cString text;
  if (locale)
    locale->translate(*msg, text);
  else
    msg->untranslated(text);
  out.addString(text);
}

void cAbstractException::createMessage(qucs::cString& out, const qucs::cString& separator, unsigned int flags,
                                       const qucs::cLILocale* locale) const {
  qucs::cString result;
  createMessage(*this, result, flags, locale);
  if (flags & MessageWithHistory) {
    unsigned int depth = 1;
    for (const cAbstractException* e = mpHistory; e; e = e->mpHistory, ++depth) {
      result.addString(separator);
      if (flags & MessageIndentHistory)
        for (unsigned int i = 0; i < depth; ++i) result.append(static_cast<unsigned int>(' '));
      createMessage(*e, result, flags, locale);
    }
  }
  out.swap(result);
}

void cAbstractException::store(qsa::cAbstractSerializer& s) const {
  qsa::cPositionGuard guard(s);
  typeName() >> s;
  static_cast<int>(meType) >> s;
  mbOutOfMemory >> s;
  guard.commit();
}

void cAbstractException::loadKind(qsa::cAbstractDeserializer& d, Type& type, bool& outOfMemory) {
  qsa::cPositionGuard guard(d);
  int kind = 0;
  bool oom = false;
  kind << d;
  oom << d;
  if (kind != TypeBug && kind != TypeRuntime)
    cSTDExceptions::throwOutOfRange("cAbstractException", "load", OutOfRangeValue, kind, TypeBug, TypeRuntime);
  guard.commit();
  type = static_cast<Type>(kind);
  outOfMemory = oom;
}

void cAbstractException::load(qsa::cAbstractDeserializer& d) {
  Type type;
  bool outOfMemory;
  loadKind(d, type, outOfMemory);
  setKind(type, outOfMemory);
}

void cAbstractException::storeWithMessage(qsa::cAbstractSerializer& s, const qucs::cLIMessage& message) const {
  qsa::cPositionGuard guard(s);
  cAbstractException::store(s);
  message >> s;
  guard.commit();
}

void cAbstractException::loadWithMessage(qsa::cAbstractDeserializer& d, qucs::cLIMessage& message) {
  qsa::cPositionGuard guard(d);
  Type type;
  bool outOfMemory;
  loadKind(d, type, outOfMemory);
  qucs::cLIMessage loaded;
  loaded << d;
  guard.commit();
  setKind(type, outOfMemory);
  message.swap(loaded);
}

void cAbstractException::storeRecursive(qsa::cAbstractSerializer& s) const {
  QEL_TRACE("cAbstractException::storeRecursive");
  qsa::cPositionGuard guard(s);
  for (const cAbstractException* e = this; e; e = e->mpHistory) {
    true >> s;
    e->store(s);
  }
  false >> s;
  guard.commit();
}

tAutoPtr<cAbstractException> cAbstractException::createFromStream(qsa::cAbstractDeserializer& d,
                                                                  const cAbstractExceptionFactory& factory) {
  qsa::cPositionGuard guard(d);
  tAutoPtr<cAbstractException> first;
  cAbstractException* last = nullptr;
  for (unsigned int n = 0;; ++n) {
    bool more = false;
    more << d;
    if (!more) break;
    // Chains are freed and copied recursively; a stream cannot ask for more.
    if (n >= MaxStreamedChain)
      cSTDExceptions::throwOutOfRange("cAbstractException", "createFromStream", OutOfRangeSize, n + 1, 0,
                                      MaxStreamedChain);
    cAsciiString name;
    name << d;
    tAutoPtr<cAbstractException> e(factory.createException(name));
    if (e.get() == nullptr) cSTDExceptions::throwUnknownExceptionType(name);
    e->load(d);
    if (last == nullptr) {
      last = e.get();
      first = e;
    } else {
      cAbstractException* next = e.release();
      last->link(next);
      last = next;
    }
  }
  guard.commit();
  return first;
}

}  // namespace qstd
