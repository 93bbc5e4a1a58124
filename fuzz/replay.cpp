// Runs a fuzz target over kept inputs and, for a while, over random changes of them; for compilers without
// libFuzzer. Usage: TARGET SECONDS [FOLDER...]. The same inputs are tried in the same order each time.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "fuzz/target.h"

namespace {

using namespace std::string_view_literals;

using Bytes = std::string;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostBytes = 20'000;

std::vector<Bytes> KeptInputs(const std::vector<std::string>& folders) {
  std::vector<std::filesystem::path> files;
  for (const std::string& folder : folders) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  std::vector<Bytes> inputs = {{}};
  for (const auto& file : files) {
    std::ifstream stream(file, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
  }
  return inputs;
}

void Run(const Bytes& input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

/// Changes some bytes, and now and then joins two inputs.
class Changes {
 public:
  explicit Changes(const std::vector<Bytes>& inputs) : inputs_(inputs) {}

  Bytes Next() {
    Bytes bytes = Any();
    for (std::size_t count = 1 + Below(8); count > 0; --count) Change(bytes);
    bytes.resize(std::min(bytes.size(), kMostBytes));
    return bytes;
  }

 private:
  std::size_t Below(std::size_t count) { return random_() % count; }
  const Bytes& Any() { return inputs_[Below(inputs_.size())]; }
  Bytes Piece(const Bytes& bytes) {
    const std::size_t start = Below(bytes.size() + 1);
    return bytes.substr(start, Below(bytes.size() - start + 1));
  }
  void Change(Bytes& bytes) {
    static constexpr std::string_view kTelling = "\0\xFF\x80\x7F,\"'\n\r{}[]:$#%@/09-. "sv;
    const std::size_t place = Below(bytes.size() + 1);
    switch (Below(6)) {
      case 0: bytes.insert(place, 1, static_cast<char>(random_())); break;
      case 1: bytes.insert(place, 1, kTelling[Below(kTelling.size())]); break;
      case 2: bytes.erase(place, Below(9)); break;
      case 3: bytes.insert(place, Piece(Any())); break;
      case 4: bytes.insert(place, Piece(bytes)); break;
      default:
        if (place < bytes.size()) bytes[place] = static_cast<char>(bytes[place] ^ 1 << Below(8));
    }
  }

  const std::vector<Bytes>& inputs_;
  std::mt19937_64 random_{20261122};
};

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.empty()) return 2;
  const auto seconds = std::chrono::seconds(std::stoi(arguments[0]));
  const std::vector<Bytes> kept = KeptInputs({arguments.begin() + 1, arguments.end()});
  for (const Bytes& input : kept) Run(input);
  Changes changes(kept);
  std::size_t count = 0;
  for (const auto end = Clock::now() + seconds; Clock::now() < end; ++count) {
    const Bytes input = changes.Next();
    Run(input);
  }
  std::cout << kept.size() << " kept inputs, " << count << " changed ones\n";
}
