// Replays fuzz inputs without libFuzzer: every file named on the command line,
// and every file inside every directory named there, is fed to the target once.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void runFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  unsigned long count = 0;
  for (int i = 1; i < argc; ++i) {
    std::filesystem::path path(argv[i]);
    if (std::filesystem::is_directory(path)) {
      for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
        if (entry.is_regular_file()) {
          runFile(entry.path());
          ++count;
        }
    } else if (std::filesystem::is_regular_file(path)) {
      runFile(path);
      ++count;
    } else {
      std::fprintf(stderr, "replay: no such file or directory: %s\n", argv[i]);
      return 2;
    }
  }
  // Also the empty input, which every target must take.
  LLVMFuzzerTestOneInput(nullptr, 0);
  std::printf("replayed %lu inputs\n", count);
  return 0;
}
