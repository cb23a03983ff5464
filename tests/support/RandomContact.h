#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>

#include "module/kin/kinC_ContactExp.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"

namespace test {

/// Random edits of the lists of one general contact and of the steps below it, beside a plain model: every element with what the
/// steps say of it. An edit that is not done leaves the contact as it was.
class RandomContact {
public:
  explicit RandomContact(unsigned seed) : random_(seed), script_("seed " + std::to_string(seed) + ":") {
    kprC_StepSequence steps;
    steps.Append(NamedStep("Initial", 0));
    for (int n = 1; n <= 4; ++n) { steps.Append({NewName(), StepOf('X')}); }
    repository.UpdateSteps(kprC_StepTable(steps));
    kinC_ContactExp contact;
    contact.Insert(Steps().Name(1), kinC_ContactExpState());
    repository.Insert("GC", contact);
  }

  kprC_PropagatingContainer<kinC_Interaction> repository;

  void Run(int edits) {
    for (int i = 0; i < edits; ++i) {
      auto const before = Item().Copy();
      if (!Edit()) { ASSERT_TRUE(Item().Equals(*before)) << script_; }
      ASSERT_NO_FATAL_FAILURE(Compare());
      ASSERT_NO_THROW(Item().AssertValid()) << script_;
    }
  }
  int done[7] = {};

private:
  /// What the steps, by their names, say of an element.
  template <class V> struct Element {
    std::string region1, region2;
    std::map<std::string, V> said;
  };
  using Lists = std::vector<Element<bool>>;

  kinC_ContactExp& Item() { return static_cast<kinC_ContactExp&>(repository.Get("GC")); }
  kprC_StepTable const& Steps() const { return repository.Steps(); }
  std::string NameOf(std::size_t step) const { return std::string(Steps().Name(step).View()); }
  cow_String NewName() { return cow_String("S" + std::to_string(++names_)); }
  std::size_t UpTo(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n)(random_); }
  kinC_RegionPair Pair() {
    auto const region = [this] { return rgnC_Region(cow_String(std::string(1, static_cast<char>('A' + UpTo(3)))), rgnC_Surface); };
    return kinC_RegionPair(region(), region());
  }
  /// What is in force in a step.
  template <class V> std::optional<V> InForce(Element<V> const& element, std::size_t step) const {
    for (std::size_t at = step + 1; at-- > 0;) {
      if (auto const said = element.said.find(NameOf(at)); said != element.said.end()) { return said->second; }
    }
    return std::nullopt;
  }
  Element<bool>* Find(Lists& list, kinC_RegionPair const& pair) {
    for (Element<bool>& element : list) {
      rgnC_Region const one(cow_String(element.region1)), two(cow_String(element.region2));
      if ((one == *pair.region1 && two == *pair.region2) || (two == *pair.region1 && one == *pair.region2)) { return &element; }
    }
    return nullptr;
  }
  bool TakesPart(Lists& list, kinC_RegionPair const& pair, std::size_t step) {
    Element<bool> const* const element = Find(list, pair);
    return element != nullptr && InForce(*element, step) == true;
  }
  template <class V> void Forget(std::vector<Element<V>>& list, std::string const& step) {
    for (Element<V>& element : list) { element.said.erase(step); }
  }

  bool Edit() {
    std::size_t const kind = UpTo(6), at = UpTo(Steps().Size() - 1);
    bool const excluded = UpTo(2) == 0, editable = at >= Steps().Find("S1");
    script_ += " " + std::to_string(kind) + (excluded ? "x" : "") + " in " + NameOf(at);
    bool const did = EditOfKind(kind, at, excluded, editable);
    if (did) { ++done[kind]; }
    return did;
  }
  bool EditOfKind(std::size_t kind, std::size_t at, bool excluded, bool editable) {
    cow_String const step = Steps().Name(at);
    Lists& domain = domains_[excluded ? 1 : 0];
    auto const expect = [this](bool did, bool expected) {
      EXPECT_EQ(did, expected) << script_;
      return did;
    };
    switch (kind) {
      case 0: {
        kinC_RegionPairs pairs;
        for (std::size_t n = 0; n <= UpTo(1); ++n) { pairs.Append(Pair()); }
        bool can = editable && !(pairs.Size() == 2 && pairs[0].Key() == pairs[1].Key());
        for (auto const& pair : pairs) { can = can && !TakesPart(domains_[0], pair, at) && !TakesPart(domains_[1], pair, at); }
        if (!expect(Item().AddPairs(pairs, step, excluded), can)) { return false; }
        for (auto const& pair : pairs) {
          Element<bool>* element = Find(domain, pair);
          if (element == nullptr) {
            domain.push_back({std::string(pair.region1->Name().View()), std::string(pair.region2->Name().View()), {}});
            element = &domain.back();
          }
          element->said[NameOf(at)] = true;
        }
        return true;
      }
      case 1: {
        kinC_RegionPairs const pairs{Pair()};
        bool const can = editable && TakesPart(domain, pairs[0], at);
        if (!expect(Item().RemovePairs(pairs, step, excluded), can)) { return false; }
        Find(domain, pairs[0])->said[NameOf(at)] = false;
        return true;
      }
      case 2: {
        double const value = static_cast<double>(UpTo(9));
        kinC_RegionPair const pair = Pair();
        kinC_ContactExp::Values<kinC_SurfThick> const values{kinC_PropSurfThick(kinC_SurfThick(kinC_SurfThick::SPECIFIED, value))};
        if (!expect(Item().AppendSurfaceThickness(step, {pair}, values), editable)) { return false; }
        thicknesses_.push_back({std::string(pair.region1->Name().View()), "", {{NameOf(at), value}}});
        return true;
      }
      case 3: {
        double const value = static_cast<double>(UpTo(9));
        auto const index = UpTo(thicknesses_.size());
        bool const can = editable && index < thicknesses_.size() && InForce(thicknesses_[index], at).has_value();
        kinC_SurfThick const thickness(kinC_SurfThick::SPECIFIED, value);
        if (!expect(Item().ChangeSurfaceThickness(step, static_cast<int>(index), thickness), can)) { return false; }
        thicknesses_[index].said[NameOf(at)] = value;
        return true;
      }
      case 4: {
        auto const index = UpTo(thicknesses_.size() + 4);
        if (!expect(Item().DeleteSurfaceThickness(cow_1DArrayList<int>{static_cast<int>(index), static_cast<int>(index)}),
                    index < thicknesses_.size())) {
          return false;
        }
        thicknesses_.erase(thicknesses_.begin() + static_cast<std::ptrdiff_t>(index));
        return true;
      }
      case 5: repository.UpdateSteps(Steps().WithInserted(at + 1, {NewName(), StepOf('X')})); return true;
      default: {
        if (at == 0 || NameOf(at) == "S1" || Steps().Size() < 5) { return false; }
        for (Lists& list : domains_) { Forget(list, NameOf(at)); }
        Forget(thicknesses_, NameOf(at));
        repository.UpdateSteps(Steps().WithRemoved(at));
        return true;
      }
    }
  }

  void Compare() {
    for (std::size_t at = 0; at < Steps().Size(); ++at) {
      for (bool const excluded : {false, true}) {
        cow_2DArray<cow_String> expected;
        for (Element<bool> const& element : domains_[excluded ? 1 : 0]) {
          if (InForce(element, at) == true) { expected.AppendRow(cow_List<cow_String>{element.region1, element.region2}); }
        }
        ASSERT_EQ(Item().Pairs(Steps().Name(at), excluded), expected) << script_ << ", in " << NameOf(at);
      }
      cow_2DArray<cow_String> expected;
      for (Element<double> const& element : thicknesses_) {
        auto const value = InForce(element, at);
        if (!value) { continue; }
        expected.AppendRow(cow_List<cow_String>{element.region1, "SPECIFIED", std::to_string(static_cast<int>(*value)), "1"});
      }
      ASSERT_EQ(Item().SurfaceThickness(Steps().Name(at)), expected) << script_ << ", in " << NameOf(at);
    }
  }

  std::mt19937 random_;
  std::string script_;
  int names_ = 0;
  Lists domains_[2];
  std::vector<Element<double>> thicknesses_;
};

}  // namespace test
