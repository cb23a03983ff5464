#include "module/kpr/model/kprC_StepContainer.h"

#include <random>

#include "module/kpr/steps/kprC_Steps.h"
#include "tests/module/kpr/kprTestSteps.h"

namespace {

kprC_StepHandle NewStatic() { return kprC_MakeStep(kprC_ProcedureType::Static); }

std::string NamesOf(kprC_StepContainer const& steps) {
  std::string names;
  for (cow_String const& name : steps.Names()) { names += (names.empty() ? "" : " ") + std::string(name.View()); }
  return names;
}

kprC_StepContainer ContainerOf(std::string_view names) {
  kprC_StepContainer steps;
  std::istringstream in{std::string(names)};
  for (std::string name; in >> name;) { steps.Insert(steps.Name(steps.Size() - 1), name, NewStatic()); }
  return steps;
}

TEST(StepContainer, RefusesAnEditAndStaysAsItIs) {
  struct Row {
    char const* what;
    int code;
    void (*edit)(kprC_StepContainer&);
  };
  constexpr Row kRows[] = {
      {"insert after an unknown step", 81, [](kprC_StepContainer& s) { s.Insert("C", "D", NewStatic()); }},
      {"insert a name in use", 46, [](kprC_StepContainer& s) { s.Insert("A", "B", NewStatic()); }},
      {"insert an empty name", 46, [](kprC_StepContainer& s) { s.Insert("A", "", NewStatic()); }},
      {"insert no step", 47, [](kprC_StepContainer& s) { s.Insert("A", "D", nullptr); }},
      {"insert an initial step", 82, [](kprC_StepContainer& s) { s.Insert("A", "D", kprC_MakeStep(kprC_initialStepType)); }},
      {"insert a name twice", 46,
       [](kprC_StepContainer& s) {
         kprC_StepContainer::NamedStep const twice[] = {{"D", NewStatic()}, {"D", NewStatic()}};
         s.Insert("A", twice);
       }},
      {"remove an unknown step", 81, [](kprC_StepContainer& s) { s.Remove("C"); }},
      {"remove the initial step", 46, [](kprC_StepContainer& s) { s.Remove("Initial"); }},
      {"rename an unknown step", 81, [](kprC_StepContainer& s) { s.Rename("C", "D"); }},
      {"rename the initial step", 46, [](kprC_StepContainer& s) { s.Rename("Initial", "D"); }},
      {"rename to a name in use", 46, [](kprC_StepContainer& s) { s.Rename("A", "B"); }},
      {"rename to the empty name", 46, [](kprC_StepContainer& s) { s.Rename("A", ""); }},
      {"replace an unknown step", 81, [](kprC_StepContainer& s) { s.Replace("C", NewStatic()); }},
      {"replace the initial step", 143, [](kprC_StepContainer& s) { s.Replace("Initial", NewStatic()); }},
      {"replace by no step", 47, [](kprC_StepContainer& s) { s.Replace("A", nullptr); }},
  };
  kprC_StepContainer const before = ContainerOf("A B");
  for (Row const& row : kRows) {
    kprC_StepContainer steps = before;
    EXPECT_EQ(RefusalOf([&] { row.edit(steps); }), row.code) << row.what;
    EXPECT_TRUE(steps.Table().Same(before.Table())) << row.what;
  }
}

TEST(StepContainer, EditsSeveralStepsAtOnceAsOneByOne) {
  kprC_StepContainer steps = ContainerOf("A B");
  kprC_StepContainer::NamedStep const added[] = {{"C", NewStatic()}, {"D", NewStatic()}};
  steps.Insert("A", added);
  EXPECT_EQ(NamesOf(steps), "Initial A C D B");
  cow_String const gone[] = {"D", "A"};
  steps.Remove(gone);
  EXPECT_EQ(NamesOf(steps), "Initial C B");
}

TEST(StepContainer, GivesARenamedOrReplacedEntryAnIdentityOfItsOwn) {
  kprC_StepContainer steps = ContainerOf("A B");
  kprC_StepContainer const before = steps;
  steps.Rename("A", "C");
  EXPECT_NE(steps.Table()[1].Uid(), before.Table()[1].Uid());
  EXPECT_EQ(&steps.Step(1), &before.Step(1));
  steps.Replace("B", NewStatic());
  EXPECT_NE(steps.Table()[2].Uid(), before.Table()[2].Uid());
  EXPECT_EQ(steps.Table()[0].Uid(), before.Table()[0].Uid());
}

// Random edits against a plain list of names and steps; every earlier copy stays what it was.
TEST(StepContainer, HoldsWhatTheEditsSay) {
  std::mt19937 random(7);
  auto const below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  std::vector<std::pair<std::string, kprC_Step const*>> expected = {{"Initial", nullptr}};
  kprC_StepContainer steps;
  expected[0].second = &steps.Step(0);
  std::vector<std::pair<kprC_StepContainer, std::string>> snapshots;
  for (int edit = 0; edit < 400; ++edit) {
    std::string const name = "S" + std::to_string(edit);
    std::size_t const at = below(expected.size());
    kprC_StepHandle const step = kprC_MakeStep(kprC_procedures[below(kprC_procedures.size())].type);
    unsigned const kind = at == 0 ? 0 : static_cast<unsigned>(below(4));
    if (kind == 0) {
      steps.Insert(expected[at].first, name, step);
      expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at) + 1, {name, step.ConstGet()});
    } else if (kind == 1) {
      steps.Remove(expected[at].first);
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
    } else if (kind == 2) {
      steps.Rename(expected[at].first, name);
      expected[at].first = name;
    } else {
      steps.Replace(expected[at].first, step);
      expected[at].second = step.ConstGet();
    }
    ASSERT_EQ(steps.Size(), expected.size());
    ASSERT_EQ(steps.Table().Sequence().Size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      auto const& [itsName, itsStep] = expected[i];
      ASSERT_EQ(steps.Index(itsName), i);
      ASSERT_EQ(steps.Name(i), itsName);
      // the very object, wherever it is asked for
      ASSERT_EQ(&steps.Step(i), itsStep);
      ASSERT_EQ(steps.Table()[i].procedure.ConstGet(), itsStep);
      ASSERT_EQ(steps.Table()[i].procedure.ConstGet(), itsStep);
    }
    if (edit % 40 == 0) { snapshots.emplace_back(steps, NamesOf(steps)); }
  }
  for (auto const& [copy, names] : snapshots) { EXPECT_EQ(NamesOf(copy), names); }
}

/// Reads a container from a list of entries.
class Stored final : public cls_ReadVisitor {
public:
  using Entries = std::vector<std::pair<std::string, kprC_StepHandle>>;
  explicit Stored(Entries const& entries) : entries_(entries) {}

  std::string ReadText(std::string_view) const override { return entries_[next_].first; }
  bool IsNull(std::string_view) const override { return !entries_[next_].second; }
  cow_Handle<cls_Object> ReadObject(std::string_view) const override { return entries_[next_].second; }
  std::size_t StartList(std::string_view) const override { return entries_.size(); }
  void ReadNested(std::string_view, std::function<void(cls_ReadVisitor const&)> const& read) const override {
    read(*this);
    ++next_;
  }
  void EndList() const override {}
  [[noreturn]] void Refuse(std::string_view member, std::string_view expected) const override {
    throw std::runtime_error(std::string(member) + ": " + std::string(expected));
  }

  // a container stores nothing of these kinds
  unsigned TypeId() const override { return kprC_StepContainer::TypeId(); }
  bool Has(std::string_view) const override { return true; }
  bool ReadBool(std::string_view member) const override { Refuse(member, "no truth value"); }
  long long ReadInteger(std::string_view member) const override { Refuse(member, "no number"); }
  double ReadReal(std::string_view member) const override { Refuse(member, "no number"); }
  std::vector<std::string> StartMap(std::string_view member) const override { Refuse(member, "no map"); }
  void EndMap() const override {}

private:
  Entries const& entries_;
  mutable std::size_t next_ = 0;
};

TEST(StepContainer, RefusesStoredStepsThatAreNoSequence) {
  kprC_StepHandle const initial = kprC_MakeStep(kprC_initialStepType);
  std::pair<Stored::Entries, char const*> const rows[] = {
      {{{"Initial", initial}, {"A", NewStatic()}, {"B", NewStatic()}}, ""},
      {{}, "steps: \"Initial\" as the first step"},
      {{{"A", initial}}, "steps: \"Initial\" as the first step"},
      {{{"Initial", NewStatic()}}, "steps: one initial step, the first"},
      {{{"Initial", initial}, {"A", initial}}, "steps: one initial step, the first"},
      {{{"Initial", initial}, {"A", nullptr}}, "steps: a procedure for every step"},
      {{{"Initial", initial}, {"A", NewStatic()}, {"A", NewStatic()}}, "steps: steps with names of their own"},
      {{{"Initial", initial}, {"", NewStatic()}}, "steps: steps with names of their own"},
  };
  for (auto const& [entries, refusal] : rows) {
    std::string got;
    try {
      EXPECT_EQ(NamesOf(kprC_StepContainer(Stored(entries))), "Initial A B");
    } catch (std::runtime_error const& e) { got = e.what(); }
    EXPECT_EQ(got, refusal);
  }
}

}  // namespace
