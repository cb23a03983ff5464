#include "module/kpf/kpfC_FromFileState.h"

#include <algorithm>
#include <cctype>

#include "module/kpf/kpfC_ResultsFiles.h"

namespace {
/// Characters of a UTF-8 text.
std::size_t CharactersOf(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

/// Whether \p file holds the step, as far as a number says which, with that increment.
bool Holds(kpfC_ResultsFile const& file, mdl_PropAttr<kpfC_FromFileState::Step> const& step,
           mdl_PropAttr<kpfC_FromFileState::Increment> const& increment) {
  if (!step.HasValue()) { return true; }
  auto const& place = step.ConstGet();
  int const last = static_cast<int>(file.frames.size());
  int const number = !place.word ? place.number : *place.word == kpfC_StepStateEnm::FIRST_STEP ? 1 : last;
  bool const numbered = increment.HasValue() && !increment.ConstGet().word;
  return file.Holds(number, numbered ? increment.ConstGet().number : 1);
}
}  // namespace

std::string_view kpfC_FromFileState::Extension() const {
  std::string_view const name = fileName.ConstGet().View();
  std::size_t const dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot);
}

bool kpfC_FromFileState::IsResultsFile() const {
  auto const isSame = [](char one, char other) { return std::tolower(static_cast<unsigned char>(one)) == other; };
  return std::ranges::equal(Extension(), std::string_view(".fil"), isSame) ||
         std::ranges::equal(Extension(), std::string_view(".res"), isSame);
}

void kpfC_FromFileState::AssertValid() const {
  std::string_view const name = fileName.ConstGet().View();
  auto const fits = [](auto const& place) { return !place.HasValue() || place.ConstGet().IsValid(); };
  kpfC_Assert(CharactersOf(name) <= kLongestName, kpfC_ErrorEnm::FileNameLength);
  kpfC_Assert(name.find_first_of("/\\") == std::string_view::npos, kpfC_ErrorEnm::FileElsewhere);
  kpfC_Assert(fits(beginStep) && fits(endStep), kpfC_ErrorEnm::StepValue);
  kpfC_Assert(fits(beginIncrement) && fits(endIncrement), kpfC_ErrorEnm::IncrementValue);
}

void kpfC_FromFileState::AssertInFile() const {
  auto const files = kpfC_ResultsFiles::Known();
  if (!files) { return; }
  std::string_view const name = fileName.ConstGet().View();
  auto const file = files->Find(name);
  std::string_view const kind = Extension();
  kpfC_AssertContent(file.has_value(), kpfC_ContentErrorEnm::FileMissing, kind.empty() ? "results" : kind.substr(1), name);
  if (!file->isTold) { return; }
  kpfC_Assert(Holds(*file, beginStep, beginIncrement) && Holds(*file, endStep, endIncrement), kpfC_ErrorEnm::StepNotInFile);
}
