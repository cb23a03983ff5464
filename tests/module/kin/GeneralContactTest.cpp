#include "tests/support/RandomContact.h"

namespace {

using GeneralContact = test::WithLibrary;
using Pairs = kinC_RegionPairs;
using Names = kinC_ContactExp::Values<cow_String>;

kinC_RegionPair PairOf(char const* one, char const* two, kinC_SurfaceTypeEnm type = kinC_SurfaceTypeEnm::GEOMETRY) {
  return kinC_RegionPair(rgnC_Region(one), rgnC_Region(two), type);
}
Names NamesOf(char const* name) { return {mdl_PropAttr<cow_String>(cow_String(name))}; }

/// The rows of a listing, "A:B C:".
std::string Text(cow_2DArray<cow_String> const& rows) {
  std::string text;
  for (std::size_t i = 0; i < rows.Rows(); ++i) {
    for (std::size_t j = 0; j < rows.Columns(); ++j) { text.append(j == 0 ? i == 0 ? "" : " " : ":").append(rows.ConstGet(i, j).View()); }
  }
  return text;
}
std::size_t Count(kinC_ContactExp const& contact, char const* list) { return contact.Member(list).As<cls_Value::List>()->size(); }

/// A general contact over explicit steps S1 to S3, created in the first.
class InSteps {
public:
  explicit InSteps(kinC_ContactExp const& contact = {}) {
    repository_.UpdateSteps(kprC_StepTable(test::StepsOf("IXXX")));
    kinC_ContactExp made = contact;
    made.Insert("S1", kinC_ContactExpState());
    repository_.Insert("GC", made);
  }
  kinC_ContactExp& operator*() { return static_cast<kinC_ContactExp&>(repository_.Get("GC")); }
  kinC_ContactExp* operator->() { return &**this; }

private:
  kprC_PropagatingContainer<kinC_Interaction> repository_;
};

TEST_F(GeneralContact, HasInEveryStepWhatAPlainModelHas) {
  int done[7] = {};
  for (unsigned seed = 1; seed <= 150; ++seed) {
    test::RandomContact contact(seed);
    ASSERT_NO_FATAL_FAILURE(contact.Run(40));
    for (std::size_t kind = 0; kind < std::size(done); ++kind) { done[kind] += contact.done[kind]; }
  }
  for (int const count : done) { EXPECT_GT(count, 20); }
}

TEST_F(GeneralContact, AsksForTheGlobalPropertyBeforeAnyOther) {
  InSteps contact;
  EXPECT_EQ(test::CodeOf([&] { contact->AppendContactProperty("S2", Pairs{PairOf("A", "B")}, NamesOf("Rough")); }), 140);
  EXPECT_EQ(test::CodeOf([&] { contact->AppendContactProperty("S2", Pairs{PairOf("", "")}, NamesOf("")); }), 3);
  EXPECT_EQ(Count(*contact, "contactPropertyPairs"), 0U) << "refused edits leave the list alone";
  EXPECT_TRUE(contact->AppendContactProperty("S2", Pairs{PairOf("", "")}, NamesOf("Smooth")));
  EXPECT_TRUE(contact->AppendContactProperty("S3", Pairs{PairOf("A", "B")}, NamesOf("Rough")));
  EXPECT_EQ(test::CodeOf([&] { contact->AppendContactProperty("S1", Pairs{PairOf("A", "B")}, NamesOf("Rough")); }), 140);
  EXPECT_EQ(test::CodeOf([&] { contact->DeleteContactProperty(cow_1DArrayList<int>{0}); }), 140);
  EXPECT_EQ(Count(*contact, "contactPropertyPairs"), 2U);
  cow_String global;
  EXPECT_EQ(Text(contact->ContactProperty("S3", global, false)), "A:B:Rough");
  EXPECT_EQ(global, "Smooth");
  EXPECT_EQ(contact->InteractionProperty("S3"), "Smooth");
  EXPECT_TRUE(contact->DeleteContactProperty(cow_1DArrayList<int>{1, 0}));
}

TEST_F(GeneralContact, MergesPairsThatAreTheSameButNotGeometryWithMesh) {
  using Fields = cls_Value::Fields;
  auto const pair = [](char const* one, char const* two, char const* type) {
    return cls_Value(Fields{{"region1", one}, {"region2", two}, {"surfaceType", type}});
  };
  auto const with = [&](char const* type) {
    kinC_ContactExp made;
    made.SetMember("includedPairs", cls_Value::List{pair("A", "B", "MESH"), pair("C", "", "MESH"), pair("B", "A", type)});
    return made;
  };
  InSteps contact(with("MESH"));
  std::string unknown;
  contact->SetInStep("S1", {{"activeIncludedPairs", cls_Value::List{false, true}}}, &unknown);
  contact->SetInStep("S2", {{"activeIncludedPairs", cls_Value::List{"UNSET", "UNSET", true}}}, &unknown);
  EXPECT_EQ(Text(contact->Pairs("S3", false)), "C: B:A");
  contact->CompressRegionPairs(false);
  EXPECT_EQ(Text(contact->Pairs("S1", false)), "C:");
  EXPECT_EQ(Text(contact->Pairs("S3", false)), "A:B C:");
  InSteps mixed(with("GEOMETRY"));
  EXPECT_EQ(test::CodeOf([&] { mixed->CompressRegionPairs(false); }), 188);
  EXPECT_EQ(Count(*mixed, "includedPairs"), 3U);
}

}  // namespace
