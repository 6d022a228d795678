// Files and paths against the standard library in the same run:
// - sequential write and read of 64 MiB in 64 KiB blocks, cFile against
//   fwrite/fread (the page cache holds the file: the figures are the cost of
//   the calls, not of the disk);
// - listing a directory of 10,000 files with their sizes, cDirIterator
//   against std::filesystem::directory_iterator;
// - joining and normalising paths, cPath against std::filesystem::path on the
//   same inputs, from ready path objects and from strings.
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "qelcore/io/cdiriterator.h"
#include "qelcore/io/cfile.h"
#include "qelcore/io/cfs.h"
#include "qelcore/io/cpath.h"
#include "qelcore/ucs/cstring.h"

#include "benchutil.h"

namespace {

const unsigned int kBlock = 64u * 1024u;
const unsigned int kBlocks = 1024;  // 64 MiB
const unsigned int kEntries = 10000;

// A directory of its own for the run, removed at exit.
struct cScratch {
  cScratch() {
    dir = std::filesystem::temp_directory_path() / ("qelcore_bench_io_" + std::to_string(::getpid()));
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir / "list");
    for (unsigned int i = 0; i < kEntries; ++i) {
      std::FILE* f = std::fopen((dir / "list" / ("entry-" + std::to_string(i) + ".dat")).c_str(), "wb");
      std::fwrite("0123456789", 1, i % 10, f);
      std::fclose(f);
    }
    block.assign(kBlock, 'q');
    qelbench::warmMemory(4u * kBlock);
  }
  ~cScratch() { std::filesystem::remove_all(dir); }
  std::string file(const char* name) const { return (dir / name).string(); }

  std::filesystem::path dir;
  std::vector<char> block;
};

cScratch& scratch() {
  static cScratch s;
  return s;
}

void writeStdio(const std::string& name) {
  std::FILE* f = std::fopen(name.c_str(), "wb");
  for (unsigned int i = 0; i < kBlocks; ++i) std::fwrite(scratch().block.data(), 1, kBlock, f);
  std::fclose(f);
}

void BM_Write64MiB_fwrite(benchmark::State& state) {
  const std::string name = scratch().file("stdio.bin");
  for (auto _ : state) writeStdio(name);
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * kBlock * kBlocks);
}
BENCHMARK(BM_Write64MiB_fwrite)->Unit(benchmark::kMillisecond);

void BM_Write64MiB_cFile(benchmark::State& state) {
  const qio::cPath name(scratch().file("qel.bin").c_str());
  const qio::cFs fs;
  for (auto _ : state) {
    qio::cFile f(fs, name, qio::cFile::Overwrite);
    for (unsigned int i = 0; i < kBlocks; ++i) f.write(scratch().block.data(), kBlock);
    f.close();
  }
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * kBlock * kBlocks);
}
BENCHMARK(BM_Write64MiB_cFile)->Unit(benchmark::kMillisecond);

void BM_Read64MiB_fread(benchmark::State& state) {
  const std::string name = scratch().file("read.bin");
  writeStdio(name);
  std::vector<char> buffer(kBlock);
  for (auto _ : state) {
    std::FILE* f = std::fopen(name.c_str(), "rb");
    while (std::fread(buffer.data(), 1, kBlock, f) == kBlock) {
    }
    std::fclose(f);
    benchmark::DoNotOptimize(buffer.data());
  }
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * kBlock * kBlocks);
}
BENCHMARK(BM_Read64MiB_fread)->Unit(benchmark::kMillisecond);

void BM_Read64MiB_cFile(benchmark::State& state) {
  const std::string name = scratch().file("read.bin");
  writeStdio(name);
  const qio::cPath path(name.c_str());
  const qio::cFs fs;
  std::vector<char> buffer(kBlock);
  for (auto _ : state) {
    qio::cFile f(fs, path, qio::cFile::Read);
    while (f.read(buffer.data(), kBlock) == kBlock) {
    }
    f.close();
    benchmark::DoNotOptimize(buffer.data());
  }
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * kBlock * kBlocks);
}
BENCHMARK(BM_Read64MiB_cFile)->Unit(benchmark::kMillisecond);

void BM_List10000WithSizes_stdFilesystem(benchmark::State& state) {
  const std::filesystem::path dir = scratch().dir / "list";
  for (auto _ : state) {
    unsigned long long total = 0;
    for (const std::filesystem::directory_entry& e : std::filesystem::directory_iterator(dir)) total += e.file_size();
    benchmark::DoNotOptimize(total);
  }
  state.SetItemsProcessed(static_cast<long long>(state.iterations()) * kEntries);
}
BENCHMARK(BM_List10000WithSizes_stdFilesystem)->Unit(benchmark::kMillisecond);

void BM_List10000WithSizes_cDirIterator(benchmark::State& state) {
  const qio::cPath dir((scratch().dir / "list").string().c_str());
  const qio::cFs fs;
  for (auto _ : state) {
    unsigned long long total = 0;
    for (qio::cDirIterator it(fs, dir); it.next();) total += it.attributes().size();
    benchmark::DoNotOptimize(total);
  }
  state.SetItemsProcessed(static_cast<long long>(state.iterations()) * kEntries);
}
BENCHMARK(BM_List10000WithSizes_cDirIterator)->Unit(benchmark::kMillisecond);

// Bases and relative parts as programs join them: plain, with "." and "..",
// climbing out, absolute parts that replace the base.
const char* const kJoins[][2] = {
    {"/usr/local/share/app", "data/images/icon.png"},
    {"/home/user/projects/qel/build", "../src/./io/cpath.cpp"},
    {"/srv/www/htdocs/site/a/b/c", "../../../../shared/./assets/../css/main.css"},
    {"relative/dir", "./x/./y/../z"},
    {"/opt/app", "/etc/app/config.ini"},
    {"/var/lib/service/state", "cache/2024/11/entries/../../12/entry-0001.bin"},
    {"./a/b", "../../../c"},
    {"/", "tmp/file.txt"},
};
const unsigned int kJoinCount = sizeof kJoins / sizeof kJoins[0];

void BM_PathJoinNormalise_stdFilesystem(benchmark::State& state) {
  std::vector<std::filesystem::path> bases, rels;
  for (const auto& j : kJoins) bases.emplace_back(j[0]), rels.emplace_back(j[1]);
  for (auto _ : state) {
    for (unsigned int i = 0; i < kJoinCount; ++i) {
      std::filesystem::path p = (bases[i] / rels[i]).lexically_normal();
      benchmark::DoNotOptimize(p);
    }
  }
  state.SetItemsProcessed(static_cast<long long>(state.iterations()) * kJoinCount);
}
BENCHMARK(BM_PathJoinNormalise_stdFilesystem);

void BM_PathJoinNormalise_cPath(benchmark::State& state) {
  std::vector<qio::cPath> bases, rels;
  for (const auto& j : kJoins) bases.emplace_back(j[0]), rels.emplace_back(j[1]);
  for (auto _ : state) {
    for (unsigned int i = 0; i < kJoinCount; ++i) {
      qio::cPath p = (bases[i] / rels[i]).normalised();
      benchmark::DoNotOptimize(p);
    }
  }
  state.SetItemsProcessed(static_cast<long long>(state.iterations()) * kJoinCount);
}
BENCHMARK(BM_PathJoinNormalise_cPath);

void BM_PathParseJoinNormalise_stdFilesystem(benchmark::State& state) {
  std::vector<std::string> bases, rels;
  for (const auto& j : kJoins) bases.emplace_back(j[0]), rels.emplace_back(j[1]);
  for (auto _ : state) {
    for (unsigned int i = 0; i < kJoinCount; ++i) {
      std::filesystem::path p = (std::filesystem::path(bases[i]) / rels[i]).lexically_normal();
      benchmark::DoNotOptimize(p);
    }
  }
  state.SetItemsProcessed(static_cast<long long>(state.iterations()) * kJoinCount);
}
BENCHMARK(BM_PathParseJoinNormalise_stdFilesystem);

void BM_PathParseJoinNormalise_cPath(benchmark::State& state) {
  std::vector<qucs::cString> bases, rels;
  for (const auto& j : kJoins) bases.emplace_back(j[0]), rels.emplace_back(j[1]);
  for (auto _ : state) {
    for (unsigned int i = 0; i < kJoinCount; ++i) {
      qio::cPath p = (qio::cPath(bases[i]) / qio::cPath(rels[i])).normalised();
      benchmark::DoNotOptimize(p);
    }
  }
  state.SetItemsProcessed(static_cast<long long>(state.iterations()) * kJoinCount);
}
BENCHMARK(BM_PathParseJoinNormalise_cPath);

}  // namespace
