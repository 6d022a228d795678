// The binary archive against a hand-written loop that moves the same tagged
// bytes (4-byte id, then the payload) with memcpy into and out of a buffer
// grown beforehand: 1,000,000 unsigned ints, and 100,000 records
// {u32, i64, double, bool, 16-character string}. The archive's buffer is
// grown once as well (the serializer is rewound between runs), so both
// sides measure the moving of bytes and not the allocator. The _Fresh runs
// store into a new archive (and the peers into a new buffer) every time, so
// that the growing is measured with the stores.
#include <cstdint>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/std/casciistring.h"

#include "benchutil.h"

#if defined(QELBENCH_HAVE_BOOST_SERIALIZATION) || defined(QELBENCH_HAVE_CEREAL)
#include <streambuf>
#include <string>
#endif
#ifdef QELBENCH_HAVE_BOOST_SERIALIZATION
#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/serialization/string.hpp>
#endif
#ifdef QELBENCH_HAVE_CEREAL
#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#endif

namespace {

const unsigned int kValues = 1000000;
const unsigned int kRecords = 100000;

struct sRecord {
  unsigned int miId;
  long long miStamp;
  double mdValue;
  bool mbFlag;
  qstd::cAsciiString mName;
};

struct sPlainRecord {
  unsigned int miId;
  long long miStamp;
  double mdValue;
  bool mbFlag;
  unsigned int miNameLength;
  char maName[16];
};

void warm() {
  static bool done = false;
  if (!done) qelbench::warmMemory(256u << 20);
  done = true;
}

inline char* putTagged(char* p, unsigned int id, const void* payload, std::size_t n) {
  std::memcpy(p, &id, 4);
  std::memcpy(p + 4, payload, n);
  return p + 4 + n;
}

inline const char* getTagged(const char* p, unsigned int id, void* payload, std::size_t n) {
  unsigned int got;
  std::memcpy(&got, p, 4);
  if (got != id) std::abort();
  std::memcpy(payload, p + 4, n);
  return p + 4 + n;
}

std::vector<sRecord> makeRecords() {
  std::vector<sRecord> r(kRecords);
  for (unsigned int i = 0; i < kRecords; ++i) {
    r[i].miId = i;
    r[i].miStamp = -static_cast<long long>(i) * 1000003;
    r[i].mdValue = i * 0.5;
    r[i].mbFlag = (i & 1) != 0;
    r[i].mName = "name-0123456789a";
  }
  return r;
}

// --- 1,000,000 unsigned ints ---------------------------------------------
// The values come from an array, as data being stored does. Each side is
// measured value by value and, for the archive, through its bulk operations.

const std::vector<unsigned int>& values() {
  static std::vector<unsigned int> v;
  if (v.empty())
    for (unsigned int i = 0; i < kValues; ++i) v.push_back(i * 2654435761u);
  return v;
}

void BM_StoreUInt_Baseline(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  std::vector<char> buffer(kValues * 8);
  for (auto _ : state) {
    char* p = buffer.data();
    for (unsigned int i = 0; i < kValues; ++i) p = putTagged(p, 4, &in[i], 4);
    benchmark::DoNotOptimize(buffer.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_StoreUInt_Baseline)->Unit(benchmark::kMillisecond);

void BM_StoreUInt_Archive(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  qsa::cSerializeBinary s;
  for (auto _ : state) {
    s.rewind();
    for (unsigned int i = 0; i < kValues; ++i) in[i] >> s;
    benchmark::DoNotOptimize(s.currentPos());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_StoreUInt_Archive)->Unit(benchmark::kMillisecond);

void BM_StoreUInt_ArchiveFresh(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  for (auto _ : state) {
    qsa::cSerializeBinary s;
    for (unsigned int i = 0; i < kValues; ++i) in[i] >> s;
    benchmark::DoNotOptimize(s.currentPos());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_StoreUInt_ArchiveFresh)->Unit(benchmark::kMillisecond);

void BM_StoreUInt_ArchiveBulk(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  qsa::cSerializeBinary s;
  for (auto _ : state) {
    s.rewind();
    s.storeValues(in.data(), kValues);
    benchmark::DoNotOptimize(s.currentPos());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_StoreUInt_ArchiveBulk)->Unit(benchmark::kMillisecond);

void BM_LoadUInt_Baseline(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  std::vector<char> buffer(kValues * 8);
  char* p = buffer.data();
  for (unsigned int i = 0; i < kValues; ++i) p = putTagged(p, 4, &in[i], 4);
  std::vector<unsigned int> out(kValues);
  for (auto _ : state) {
    const char* q = buffer.data();
    for (unsigned int i = 0; i < kValues; ++i) q = getTagged(q, 4, &out[i], 4);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_LoadUInt_Baseline)->Unit(benchmark::kMillisecond);

void BM_LoadUInt_Archive(benchmark::State& state) {
  warm();
  qsa::cSerializeBinary s;
  s.storeValues(values().data(), kValues);
  qsa::cDeserializeBinary d(s.ownData());
  std::vector<unsigned int> out(kValues);
  for (auto _ : state) {
    d.rewind();
    for (unsigned int i = 0; i < kValues; ++i) out[i] << d;
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_LoadUInt_Archive)->Unit(benchmark::kMillisecond);

void BM_LoadUInt_ArchiveBulk(benchmark::State& state) {
  warm();
  qsa::cSerializeBinary s;
  s.storeValues(values().data(), kValues);
  qsa::cDeserializeBinary d(s.ownData());
  std::vector<unsigned int> out(kValues);
  for (auto _ : state) {
    d.rewind();
    d.loadValues(out.data(), kValues);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_LoadUInt_ArchiveBulk)->Unit(benchmark::kMillisecond);

// --- 100,000 records ------------------------------------------------------

void BM_StoreRecord_Baseline(benchmark::State& state) {
  warm();
  const std::vector<sRecord> records = makeRecords();
  std::vector<sPlainRecord> plain(kRecords);
  for (unsigned int i = 0; i < kRecords; ++i) {
    plain[i].miId = records[i].miId;
    plain[i].miStamp = records[i].miStamp;
    plain[i].mdValue = records[i].mdValue;
    plain[i].mbFlag = records[i].mbFlag;
    plain[i].miNameLength = records[i].mName.size();
    std::memcpy(plain[i].maName, records[i].mName.c_str(), 16);
  }
  std::vector<char> buffer(kRecords * 72);
  for (auto _ : state) {
    char* p = buffer.data();
    for (const sPlainRecord& r : plain) {
      const unsigned int flag = r.mbFlag ? 1 : 0;
      p = putTagged(p, 4, &r.miId, 4);
      p = putTagged(p, 7, &r.miStamp, 8);
      p = putTagged(p, 9, &r.mdValue, 8);
      p = putTagged(p, 8, &flag, 4);
      p = putTagged(p, 10, &r.miNameLength, 4);
      std::memcpy(p, r.maName, r.miNameLength);
      p += r.miNameLength;
    }
    benchmark::DoNotOptimize(buffer.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_StoreRecord_Baseline)->Unit(benchmark::kMillisecond);

void BM_StoreRecord_Archive(benchmark::State& state) {
  warm();
  const std::vector<sRecord> records = makeRecords();
  qsa::cSerializeBinary s;
  for (auto _ : state) {
    s.rewind();
    for (const sRecord& r : records) {
      r.miId >> s;
      r.miStamp >> s;
      r.mdValue >> s;
      r.mbFlag >> s;
      r.mName >> s;
    }
    benchmark::DoNotOptimize(s.currentPos());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_StoreRecord_Archive)->Unit(benchmark::kMillisecond);

void BM_LoadRecord_Baseline(benchmark::State& state) {
  warm();
  std::vector<char> buffer(kRecords * 72);
  char* p = buffer.data();
  for (unsigned int i = 0; i < kRecords; ++i) {
    const long long stamp = -static_cast<long long>(i) * 1000003;
    const double value = i * 0.5;
    const unsigned int flag = i & 1;
    const unsigned int length = 16;
    p = putTagged(p, 4, &i, 4);
    p = putTagged(p, 7, &stamp, 8);
    p = putTagged(p, 9, &value, 8);
    p = putTagged(p, 8, &flag, 4);
    p = putTagged(p, 10, &length, 4);
    std::memcpy(p, "name-0123456789a", 16);
    p += 16;
  }
  for (auto _ : state) {
    const char* q = buffer.data();
    sPlainRecord r;
    unsigned long long sum = 0;
    for (unsigned int i = 0; i < kRecords; ++i) {
      unsigned int flag;
      q = getTagged(q, 4, &r.miId, 4);
      q = getTagged(q, 7, &r.miStamp, 8);
      q = getTagged(q, 9, &r.mdValue, 8);
      q = getTagged(q, 8, &flag, 4);
      r.mbFlag = flag != 0;
      q = getTagged(q, 10, &r.miNameLength, 4);
      if (r.miNameLength > 16) std::abort();
      std::memcpy(r.maName, q, r.miNameLength);
      q += r.miNameLength;
      sum += r.miId + r.mbFlag + static_cast<unsigned char>(r.maName[15]);
    }
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_LoadRecord_Baseline)->Unit(benchmark::kMillisecond);

void BM_LoadRecord_Archive(benchmark::State& state) {
  warm();
  const std::vector<sRecord> records = makeRecords();
  qsa::cSerializeBinary s;
  for (const sRecord& r : records) {
    r.miId >> s;
    r.miStamp >> s;
    r.mdValue >> s;
    r.mbFlag >> s;
    r.mName >> s;
  }
  qsa::cDeserializeBinary d(s.ownData());
  for (auto _ : state) {
    d.rewind();
    sRecord r;
    unsigned long long sum = 0;
    for (unsigned int i = 0; i < kRecords; ++i) {
      r.miId << d;
      r.miStamp << d;
      r.mdValue << d;
      r.mbFlag << d;
      r.mName << d;
      sum += r.miId + r.mbFlag + static_cast<unsigned char>(r.mName[15]);
    }
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_LoadRecord_Archive)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- peers
// The same values through other libraries' binary archives, when installed.
// Both write into a stream buffer over a vector grown once, and read from
// one over the written bytes, so they move bytes as ours do.

#if defined(QELBENCH_HAVE_BOOST_SERIALIZATION) || defined(QELBENCH_HAVE_CEREAL)
struct sPeerRecord {
  unsigned int miId;
  long long miStamp;
  double mdValue;
  bool mbFlag;
  std::string mName;
  template <class A>
  void serialize(A& ar, const unsigned int = 0) {
    ar& miId& miStamp& mdValue& mbFlag& mName;
  }
};

std::vector<sPeerRecord> makePeerRecords() {
  std::vector<sPeerRecord> out;
  for (const sRecord& r : makeRecords()) out.push_back({r.miId, r.miStamp, r.mdValue, r.mbFlag, r.mName.c_str()});
  return out;
}

// Writes into a vector that keeps its capacity between runs.
class cVectorOutBuf : public std::streambuf {
public:
  explicit cVectorOutBuf(std::size_t capacity) : mBuffer(capacity) { restart(); }
  void restart() { setp(mBuffer.data(), mBuffer.data() + mBuffer.size()); }
  const char* data() const { return mBuffer.data(); }
  std::size_t written() const { return static_cast<std::size_t>(pptr() - pbase()); }

protected:
  int_type overflow(int_type c) override {
    const std::size_t used = written();
    mBuffer.resize(mBuffer.size() * 2);
    setp(mBuffer.data(), mBuffer.data() + mBuffer.size());
    pbump(static_cast<int>(used));
    if (c != traits_type::eof()) {
      *pptr() = static_cast<char>(c);
      pbump(1);
    }
    return traits_type::not_eof(c);
  }

private:
  std::vector<char> mBuffer;
};

// Reads the given bytes from the start.
class cBytesInBuf : public std::streambuf {
public:
  cBytesInBuf(const char* p, std::size_t n) : mpData(const_cast<char*>(p)), miSize(n) { restart(); }
  void restart() { setg(mpData, mpData, mpData + miSize); }

private:
  char* mpData;
  std::size_t miSize;
};
#endif

#ifdef QELBENCH_HAVE_BOOST_SERIALIZATION
const unsigned int kBoostFlags = boost::archive::no_header | boost::archive::no_codecvt;

void BM_Peer_Boost_StoreUInt(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  cVectorOutBuf buf(kValues * 8);
  for (auto _ : state) {
    buf.restart();
    boost::archive::binary_oarchive ar(buf, kBoostFlags);
    for (unsigned int v : in) ar << v;
    benchmark::DoNotOptimize(buf.written());
  }
}
BENCHMARK(BM_Peer_Boost_StoreUInt)->Unit(benchmark::kMillisecond);

void BM_Peer_Boost_StoreUIntFresh(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  for (auto _ : state) {
    cVectorOutBuf buf(64);
    boost::archive::binary_oarchive ar(buf, kBoostFlags);
    for (unsigned int v : in) ar << v;
    benchmark::DoNotOptimize(buf.written());
  }
}
BENCHMARK(BM_Peer_Boost_StoreUIntFresh)->Unit(benchmark::kMillisecond);

void BM_Peer_Boost_LoadUInt(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  cVectorOutBuf out(kValues * 8);
  {
    boost::archive::binary_oarchive ar(out, kBoostFlags);
    for (unsigned int v : in) ar << v;
  }
  cBytesInBuf buf(out.data(), out.written());
  std::vector<unsigned int> got(kValues);
  for (auto _ : state) {
    buf.restart();
    boost::archive::binary_iarchive ar(buf, kBoostFlags);
    for (unsigned int& v : got) ar >> v;
    benchmark::DoNotOptimize(got.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_Peer_Boost_LoadUInt)->Unit(benchmark::kMillisecond);

void BM_Peer_Boost_StoreRecord(benchmark::State& state) {
  warm();
  const std::vector<sPeerRecord> records = makePeerRecords();
  cVectorOutBuf buf(kRecords * 72);
  for (auto _ : state) {
    buf.restart();
    boost::archive::binary_oarchive ar(buf, kBoostFlags);
    for (const sPeerRecord& r : records) ar << r;
    benchmark::DoNotOptimize(buf.written());
  }
}
BENCHMARK(BM_Peer_Boost_StoreRecord)->Unit(benchmark::kMillisecond);

void BM_Peer_Boost_LoadRecord(benchmark::State& state) {
  warm();
  const std::vector<sPeerRecord> records = makePeerRecords();
  cVectorOutBuf out(kRecords * 72);
  {
    boost::archive::binary_oarchive ar(out, kBoostFlags);
    for (const sPeerRecord& r : records) ar << r;
  }
  cBytesInBuf buf(out.data(), out.written());
  for (auto _ : state) {
    buf.restart();
    boost::archive::binary_iarchive ar(buf, kBoostFlags);
    sPeerRecord r;
    unsigned long long sum = 0;
    for (unsigned int i = 0; i < kRecords; ++i) {
      ar >> r;
      sum += r.miId + r.mbFlag + static_cast<unsigned char>(r.mName[15]);
    }
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_Peer_Boost_LoadRecord)->Unit(benchmark::kMillisecond);
#endif

#ifdef QELBENCH_HAVE_CEREAL
void BM_Peer_Cereal_StoreUInt(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  cVectorOutBuf buf(kValues * 8);
  std::ostream os(&buf);
  for (auto _ : state) {
    buf.restart();
    cereal::BinaryOutputArchive ar(os);
    for (unsigned int v : in) ar(v);
    benchmark::DoNotOptimize(buf.written());
  }
}
BENCHMARK(BM_Peer_Cereal_StoreUInt)->Unit(benchmark::kMillisecond);

void BM_Peer_Cereal_StoreUIntFresh(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  for (auto _ : state) {
    cVectorOutBuf buf(64);
    std::ostream os(&buf);
    cereal::BinaryOutputArchive ar(os);
    for (unsigned int v : in) ar(v);
    benchmark::DoNotOptimize(buf.written());
  }
}
BENCHMARK(BM_Peer_Cereal_StoreUIntFresh)->Unit(benchmark::kMillisecond);

void BM_Peer_Cereal_LoadUInt(benchmark::State& state) {
  warm();
  const std::vector<unsigned int>& in = values();
  cVectorOutBuf out(kValues * 8);
  {
    std::ostream os(&out);
    cereal::BinaryOutputArchive ar(os);
    for (unsigned int v : in) ar(v);
  }
  cBytesInBuf buf(out.data(), out.written());
  std::istream is(&buf);
  std::vector<unsigned int> got(kValues);
  for (auto _ : state) {
    buf.restart();
    cereal::BinaryInputArchive ar(is);
    for (unsigned int& v : got) ar(v);
    benchmark::DoNotOptimize(got.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_Peer_Cereal_LoadUInt)->Unit(benchmark::kMillisecond);

void BM_Peer_Cereal_StoreRecord(benchmark::State& state) {
  warm();
  const std::vector<sPeerRecord> records = makePeerRecords();
  cVectorOutBuf buf(kRecords * 72);
  std::ostream os(&buf);
  for (auto _ : state) {
    buf.restart();
    cereal::BinaryOutputArchive ar(os);
    for (const sPeerRecord& r : records) ar(r.miId, r.miStamp, r.mdValue, r.mbFlag, r.mName);
    benchmark::DoNotOptimize(buf.written());
  }
}
BENCHMARK(BM_Peer_Cereal_StoreRecord)->Unit(benchmark::kMillisecond);

void BM_Peer_Cereal_LoadRecord(benchmark::State& state) {
  warm();
  const std::vector<sPeerRecord> records = makePeerRecords();
  cVectorOutBuf out(kRecords * 72);
  {
    std::ostream os(&out);
    cereal::BinaryOutputArchive ar(os);
    for (const sPeerRecord& r : records) ar(r.miId, r.miStamp, r.mdValue, r.mbFlag, r.mName);
  }
  cBytesInBuf buf(out.data(), out.written());
  std::istream is(&buf);
  for (auto _ : state) {
    buf.restart();
    cereal::BinaryInputArchive ar(is);
    sPeerRecord r;
    unsigned long long sum = 0;
    for (unsigned int i = 0; i < kRecords; ++i) {
      ar(r.miId, r.miStamp, r.mdValue, r.mbFlag, r.mName);
      sum += r.miId + r.mbFlag + static_cast<unsigned char>(r.mName[15]);
    }
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_Peer_Cereal_LoadRecord)->Unit(benchmark::kMillisecond);
#endif

}  // namespace
