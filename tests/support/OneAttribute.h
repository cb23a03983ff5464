#pragma once

#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"

namespace test {

/// One attribute of a family, "A", in a repository over a sequence of steps. Operations answer the code of the refusal, -1 where
/// there is none.
template <class Attribute> class OneAttribute : public WithLibrary {
protected:
  static std::unique_ptr<Attribute> Made(std::string_view command) {
    for (auto const& constructor : Attribute::Constructors()) {
      if (constructor.command == command) { return constructor.make(); }
    }
    throw std::invalid_argument("nothing is made by " + std::string(command));
  }
  int Create(std::string_view steps, char const* step, kprC_Arguments const& members, Attribute& attribute) {
    repository = {};
    repository.UpdateSteps(kprC_StepTable(StepsOf(steps)));
    return CodeOf([&] {
      std::string unknown;
      if (!attribute.SetInStep(step, members, &unknown)) { throw std::invalid_argument("no member is called " + unknown); }
      repository.Insert("A", attribute);
    });
  }
  /// \p own are members of the attribute itself.
  int Create(std::string_view command, std::string_view steps, char const* step, kprC_Arguments const& members = {},
             kprC_Arguments const& own = {}) {
    auto const made = Made(command);
    for (auto const& [name, value] : own) { EXPECT_TRUE(made->SetMember(name, value)) << name; }
    return Create(steps, step, members, *made);
  }
  int Edit(char const* step, kprC_Arguments const& members) {
    std::string unknown;
    return CodeOf([&] { Item().SetInStep(step, members, &unknown); });
  }
  int Deactivate(char const* step) {
    return CodeOf([&] { Item().Deactivate(step); });
  }
  int Move(char const* from, char const* to) {
    return CodeOf([&] { Item().Move(from, to); });
  }
  int Reset(char const* step) {
    return CodeOf([&] { Item().Reset(step); });
  }
  Attribute& Item() { return repository.Get("A"); }
  std::string History() {
    std::string numbers;
    for (auto const status : Item().History()) { numbers += (numbers.empty() ? "" : " ") + std::to_string(static_cast<int>(status)); }
    return numbers;
  }

  kprC_PropagatingContainer<Attribute> repository;
};

}  // namespace test
