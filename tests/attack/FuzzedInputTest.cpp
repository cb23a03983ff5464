#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include "tests/support/FuzzTargets.h"

namespace {

struct Target {
  char const* name;  ///< of the folder of its corpus
  void (*run)(std::string_view);
  int inputs;  ///< made of the corpus; GATTR_INPUTS times as many where that is given
};
constexpr Target kTargets[] = {{"Journal", fuzz::Journal, 300}, {"Text", fuzz::Text, 1000}, {"ModelFile", fuzz::ModelFile, 100}};

std::vector<std::string> Corpus(char const* name) {
  std::vector<std::string> inputs;
  for (auto const& entry : std::filesystem::directory_iterator(std::string(GATTR_SOURCE_DIR "/tests/fuzz/corpus/") + name)) {
    std::ifstream in(entry.path(), std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  std::ranges::sort(inputs);  // the same on every file system
  return inputs;
}

/// An input with a few pieces changed, dropped, doubled, or taken from another.
std::string Mutated(std::string input, std::string const& other, std::mt19937& random) {
  constexpr std::string_view kBytes = "{}[]\",:0123456789-.enul\\\t\n\0\xC3\xFF";
  auto const below = [&random](std::size_t end) { return end == 0 ? 0 : random() % end; };
  for (std::size_t edits = 1 + below(4); edits > 0; --edits) {
    std::size_t const at = below(input.size() + 1), from = below(other.size() + 1), size = 1 + below(24);
    switch (below(4)) {
      case 0: input.replace(at, 1, 1, kBytes[below(kBytes.size())]); break;
      case 1: input.erase(at, size); break;
      case 2: input.insert(at, input.substr(below(input.size() + 1), size)); break;
      default: input.insert(at, other, from, size); break;
    }
  }
  return input;
}

class FuzzedInput : public testing::TestWithParam<Target> {};

TEST_P(FuzzedInput, IsRefusedOrMakesAModelThatReadsBack) {
  Target const& target = GetParam();
  std::vector<std::string> const corpus = Corpus(target.name);
  ASSERT_FALSE(corpus.empty());
  for (std::string const& input : corpus) { target.run(input); }
  char const* const times = std::getenv("GATTR_INPUTS");
  int const inputs = target.inputs * (times == nullptr ? 1 : std::atoi(times));
  std::mt19937 random(7);
  for (int i = 0; i < inputs; ++i) { target.run(Mutated(corpus[random() % corpus.size()], corpus[random() % corpus.size()], random)); }
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzedInput, testing::ValuesIn(kTargets), [](auto const& work) { return std::string(work.param.name); });

}  // namespace
