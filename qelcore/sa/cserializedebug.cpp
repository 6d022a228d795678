#include "qelcore/sa/cserializedebug.h"

#include <cstdio>
#include <cstring>

#include "qelcore/sa/cabstractcontextdata.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

namespace qsa {

class cSerializeDebug::cContextDataImpl : public cAbstractContextData {
public:
  cContextDataImpl(cSerializeDebug& s, unsigned int iBegin, unsigned int iHeaderEnd)
      : mpSerializer(&s),
        mpEnclosing(s.mpCurrent),
        miBegin(iBegin),
        miHeaderEnd(iHeaderEnd),
        mbFinished(false),
        mbLeft(false) {}
  ~cContextDataImpl() override { leave(); }

  void finish() override {
    if (mbLeft || mbFinished) return;
    cSerializeDebug& s = *mpSerializer;
    --s.miDepth;
    s.beginLine();
    s.append("}\n");
    ++s.miDepth;
    mbFinished = true;
  }
  void rewind() override {
    if (mbLeft || mbFinished) return;
    mpSerializer->mText.truncate(miHeaderEnd);
    mpSerializer->mbAfterLabel = false;
  }
  void leave() {
    if (mbLeft) return;
    cSerializeDebug& s = *mpSerializer;
    while (s.mpCurrent && s.mpCurrent != this) {
      s.mpCurrent->mbLeft = true;
      s.mpCurrent = s.mpCurrent->mpEnclosing;
      --s.miDepth;
    }
    // An abandoned context leaves no trace in the text.
    if (!mbFinished && s.mText.size() > miBegin) s.mText.truncate(miBegin);
    s.mbAfterLabel = false;
    s.mpCurrent = mpEnclosing;
    --s.miDepth;
    mbLeft = true;
  }

  cSerializeDebug* mpSerializer;
  cContextDataImpl* mpEnclosing;
  unsigned int miBegin;
  unsigned int miHeaderEnd;
  bool mbFinished;
  bool mbLeft;
};

cSerializeDebug::cSerializeDebug() : miDepth(0), mbAfterLabel(false), miBlockPreview(16), mpCurrent(0) {
  mText.setGrowStep(10);
  // text() keeps a terminator just past the end.
  mText.setFitOnErase(false);
}

cSerializeDebug::~cSerializeDebug() {
  for (cContextDataImpl* p = mpCurrent; p; p = p->mpEnclosing) p->mbLeft = true;
}

void cSerializeDebug::beginLine() {
  if (mbAfterLabel) {
    mbAfterLabel = false;
    return;
  }
  for (unsigned int i = 0; i < miDepth; ++i) append("  ");
}

void cSerializeDebug::append(const char* p) { append(p, static_cast<unsigned int>(std::strlen(p))); }

void cSerializeDebug::append(const char* p, unsigned int n) {
  if (n) mText.append(p, n);
}

void cSerializeDebug::appendQuoted(const char* p, unsigned int n) {
  append("\"");
  for (unsigned int i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(p[i]);
    char buf[8];
    if (c == '"' || c == '\\') {
      buf[0] = '\\';
      buf[1] = static_cast<char>(c);
      append(buf, 2);
    } else if (c == '\n') {
      append("\\n");
    } else if (c == '\t') {
      append("\\t");
    } else if (c < 32 || c == 127) {
      std::snprintf(buf, sizeof buf, "\\x%02X", c);
      append(buf);
    } else {
      buf[0] = static_cast<char>(c);
      append(buf, 1);
    }
  }
  append("\"");
}

void cSerializeDebug::value(const char* typeName, const char* text) {
  beginLine();
  append(typeName);
  append(" ");
  append(text);
  append("\n");
}

void cSerializeDebug::storeBlock(const char* pData, unsigned int iSize) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%u:", iSize);
  beginLine();
  append("rawBytes ");
  append(buf);
  const unsigned int shown = iSize < miBlockPreview ? iSize : miBlockPreview;
  for (unsigned int i = 0; pData && i < shown; ++i) {
    std::snprintf(buf, sizeof buf, " %02X", static_cast<unsigned char>(pData[i]));
    append(buf);
  }
  if (shown < iSize) append(" ...");
  append("\n");
}

void cSerializeDebug::store(const qucs::cString& v) {
  qstd::tArray<char> bytes;
  qucs::cEnDecUTF8::defaultEnDec().encode(v, bytes);
  beginLine();
  append("cString ");
  appendQuoted(bytes.data(true), bytes.size());
  append("\n");
}

void cSerializeDebug::store(const qstd::cAsciiString& v) {
  beginLine();
  append("cAsciiString ");
  appendQuoted(v.c_str(), v.size());
  append("\n");
}

void cSerializeDebug::store(double v) {
  char buf[40];
  std::snprintf(buf, sizeof buf, "%.17g", v);
  value("piDouble", buf);
}

void cSerializeDebug::store(bool v) { value("piBool", v ? "true" : "false"); }

void cSerializeDebug::store(long long v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%lld", v);
  value("piInt64", buf);
}

void cSerializeDebug::store(unsigned long long v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%llu", v);
  value("piUInt64", buf);
}

void cSerializeDebug::store(int v) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%d", v);
  value("piInt32", buf);
}

void cSerializeDebug::store(unsigned int v) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%u", v);
  value("piUInt32", buf);
}

void cSerializeDebug::store(short v) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%d", static_cast<int>(v));
  value("piInt16", buf);
}

void cSerializeDebug::store(unsigned short v) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%u", static_cast<unsigned int>(v));
  value("piUInt16", buf);
}

void cSerializeDebug::store(char v) {
  char buf[24];
  const unsigned char c = static_cast<unsigned char>(v);
  if (qstd::cAsciiString::isPrintable(v) && v != '\'' && v != '\\')
    std::snprintf(buf, sizeof buf, "'%c' (%u)", v, static_cast<unsigned int>(c));
  else
    std::snprintf(buf, sizeof buf, "(%u)", static_cast<unsigned int>(c));
  value("piChar", buf);
}

void cSerializeDebug::store(unsigned char v) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%u", static_cast<unsigned int>(v));
  value("piUChar", buf);
}

void cSerializeDebug::rewind() { clear(); }

void cSerializeDebug::clear() {
  if (mpCurrent) cSAExceptions::throwSerializerClearWithOpenContexts();
  mText.clear();
  mbAfterLabel = false;
}

cContextRef cSerializeDebug::newContext(const char* pName) {
  const unsigned int begin = mText.size();
  beginLine();
  append("context ");
  if (pName) {
    appendQuoted(pName, static_cast<unsigned int>(std::strlen(pName)));
    append(" ");
  }
  append("{\n");
  cContextDataImpl* pData = new cContextDataImpl(*this, begin, mText.size());
  mpCurrent = pData;
  ++miDepth;
  return cContextRef(pData);
}

void cSerializeDebug::releaseCurrentContext() {
  if (!mpCurrent) return;
  cContextDataImpl* pData = mpCurrent;
  pData->finish();
  pData->leave();
}

cAbstractSerializer& cSerializeDebug::newLabel(const qstd::cAsciiString& name) {
  beginLine();
  append("label ");
  appendQuoted(name.c_str(), name.size());
  append(" ");
  mbAfterLabel = true;
  return *this;
}

qstd::tArrayRef<char> cSerializeDebug::data() {
  if (mpCurrent) cSAExceptions::throwSerializerDataWithOpenContexts();
  return qstd::tArrayRef<char>(mText, 0, mText.size());
}

void cSerializeDebug::swapData(qstd::tArray<char>& other) {
  if (mpCurrent) cSAExceptions::throwSerializerDataWithOpenContexts();
  mText.swap(other);
  mbAfterLabel = false;
}

const char* cSerializeDebug::text() {
  mText.append('\0');
  mText.truncate(mText.size() - 1);
  return mText.data(true) ? mText.data() : "";
}

}  // namespace qsa
