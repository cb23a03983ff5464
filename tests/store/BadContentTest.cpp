#include <functional>
#include <string>

#include "tests/store/Bag.h"

namespace {

using Out = cls_WriteVisitor const&;

/// What a store says of content that it wrote itself and cannot have meant, without the file's name.
std::string RefusalOf(
    Store const& store, ddr_Model const& model, std::function<void()> const& afterWriting = [] {}) {
  ScratchFolder folder;
  auto const path = folder / store.fileName;
  std::string refusal = Refusal([&] { store.write(model, path); });
  if (refusal.empty()) {
    afterWriting();
    refusal = Refusal([&] { store.read(path); });
  }
  EXPECT_TRUE(refusal.empty() || refusal.starts_with(path.string() + ": ")) << refusal;
  return refusal.empty() ? "" : refusal.substr(path.string().size() + 2);
}

void ExpectRefused(ddr_Model const& model, std::string const& expected) {
  for (Store const& store : kStores) { EXPECT_EQ(RefusalOf(store, model), expected) << store.fileName; }
}
/// The same of a member that is missing, which the text form takes for one that is as in a new object.
void ExpectRefusedInModelFile(ddr_Model const& model, std::string const& expected) { EXPECT_EQ(RefusalOf(kModelFile, model), expected); }

/// The members of a region, but for one.
Liar::Content Region(std::string_view left, Liar::Content instead) {
  return [left, instead](Out out) {
    auto const unless = [&](std::string_view member, auto&& write) { member == left ? instead(out) : write(member); };
    unless("name", [&](auto member) { out.WriteText(member, "Set-1"); });
    unless("kind", [&](auto member) { out.WriteText(member, "SET"); });
    unless("dimension", [&](auto member) { out.WriteInteger(member, 2); });
    unless("mixed", [&](auto member) { out.WriteBool(member, false); });
    unless("empty", [&](auto member) { out.WriteBool(member, false); });
    unless("instanceKind", [&](auto member) { out.WriteText(member, "SOLID"); });
    if (left.empty()) { instead(out); }
  };
}

TEST(BadContent, IsRefusedByBothStoresInTheSameWords) {
  struct Row {
    char const* member;  ///< that is written wrong; "" for what follows after the members
    Liar::Content write;
    char const* expected;
  };
  Row const rows[] = {
      {"name", [](Out out) { out.WriteInteger("name", 5); }, "name: expected a text, found 5"},
      {"name", [](Out out) { out.WriteNull("name"); }, "name: expected a text, found null"},
      {"name", [](Out out) { out.StartList("name", 0), out.EndList(); }, "name: expected a text, found a list"},
      {"name", [](Out out) { out.WriteNested("name", rgnC_Region()); }, "name: expected a text, found an object"},
      {"dimension", [](Out out) { out.WriteText("dimension", "2"); }, "dimension: expected an integer, found \"2\""},
      {"dimension", [](Out out) { out.WriteReal("dimension", 2.5); }, "dimension: expected an integer, found 2.5"},
      {"dimension", [](Out out) { out.WriteBool("dimension", true); }, "dimension: expected an integer, found true"},
      {"dimension", [](Out out) { out.WriteInteger("dimension", 1LL << 40); }, "dimension: expected a 32-bit integer"},
      {"mixed", [](Out out) { out.WriteInteger("mixed", 1); }, "mixed: expected true or false, found 1"},
      {"mixed", [](Out out) { out.WriteNull("mixed"); }, "mixed: expected true or false, found null"},
      {"kind", [](Out out) { out.WriteText("kind", "SETS"); },
       "kind: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: SETS  Permissible: SET, SURFACE"},
      {"kind", [](Out out) { out.WriteText("kind", "set"); },
       "kind: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: set  Permissible: SET, SURFACE"},
      {"", [](Out out) { out.WriteText("more", "x"); }, "more: no such member is known"},
      {"", [](Out out) { out.WriteNested("more", rgnC_Region()); }, "more: no such member is known"},
      {"", [](Out out) { out.WriteText("name", "again"); }, "name: stands twice"},
      {"dimension", [](Out out) { out.WriteReal("dimension", std::numeric_limits<double>::infinity()); },
       "dimension: expected a finite number"},
      {"name", [](Out out) { out.WriteText("name", "\xC0\x80"); }, "name: expected a text in UTF-8"},
  };
  for (Row const& row : rows) {
    ddr_Model const model = ModelWith(cow_Handle<Liar>::Make(rgnC_Region::TypeId(), Region(row.member, row.write)));
    ExpectRefused(model, std::string("bag / Thing / ") + row.expected);
  }
  for (auto const& instead : {Liar::Content([](Out) {}), Liar::Content([](Out out) { out.WriteText("kinds", "SET"); })}) {
    ddr_Model const model = ModelWith(cow_Handle<Liar>::Make(rgnC_Region::TypeId(), Region("kind", instead)));
    ExpectRefusedInModelFile(model, "bag / Thing / kind: expected a text, found nothing");
  }
}

/// A shell edge load's state of the direction MOMENT, which says \p traction, or nothing, under its other name.
ddr_Model ShellEdge(char const* traction) {
  auto const content = [traction](Out out) {
    kloC_ShellEdgeLoadState state, other;
    state.SetMember("direction", "MOMENT");
    if (traction != nullptr) { other.SetMember("traction", traction); }
    for (cls_MemberRow const& row : state.MemberRows()) {
      bool const isOther = row.name == "traction";
      if (!isOther || traction != nullptr) { row.Write(out, isOther ? &other : &state); }
    }
  };
  return ModelWith(cow_Handle<Liar>::Make(kloC_ShellEdgeLoadState::TypeId(), content));
}

TEST(BadContent, IsNotAMemberThatCameLaterUnlessItsTwoNamesDisagree) {
  for (Store const& store : kStores) {
    EXPECT_EQ(RefusalOf(store, ShellEdge(nullptr)), "") << "as before";
    EXPECT_EQ(RefusalOf(store, ShellEdge("MOMENT")), "");
  }
  ExpectRefused(ShellEdge("SHEAR"), "bag / Thing / direction: expected what the member says under its other name");
}

TEST(BadContent, IsRefusedWhereAClassIsUnknownOrCannotBeMade) {
  constexpr unsigned kModule = 0x7FFE;
  struct Row {
    unsigned typeId;
    char const* expected;
  };
  Row const rows[] = {{kModule << 16 | 1, "bag / Thing / class: expected a class that can be made, found \"Gone\""},
                      {kprC_AnalysisStep::TypeId(), "bag / Thing / class: expected a class that can be made, found \"kprC_AnalysisStep\""}};
  for (Row const& row : rows) {
    for (Store const& store : kStores) {
      cls_MetadataRegistrar::initClassMetadata([](cls_ClassRegistrar& registrar) { registrar.AddClass("Gone", kModule << 16 | 1, {}); },
                                               ddb_metadataFlag);
      ddr_Model const model = ModelWith(cow_Handle<Liar>::Make(row.typeId, [](Out) {}));
      auto const forget = [] { cls_MetadataRegistrar::finalizeModule(kModule); };
      EXPECT_EQ(RefusalOf(store, model, forget), row.expected);
      forget();
    }
  }
}

/// An extension that pretends to be another.
class FalseExtension final : public mdl_Extension {
public:
  FalseExtension(unsigned typeId, Liar::Content content) : liar_(typeId, std::move(content)) {}
  unsigned DynTypeId() const override { return liar_.DynTypeId(); }
  void DBWrite(Out out) const override { liar_.DBWrite(out); }
  std::unique_ptr<cls_Object> Copy() const override { return std::make_unique<FalseExtension>(*this); }
  cls_MemberRows MemberRows() const override { return {}; }

private:
  Liar liar_;
};

/// A model whose only condition has the given records.
ddr_Model WithRecords(Liar::Content records) {
  ddr_Model model;
  AppendSteps(model, 2);
  BCs const bcs = ConstBCs(model);
  auto const condition = [records](Out out) {
    kbcC_DisplacementBC const bc;
    out.WriteBool("suppress", false);
    out.WriteNested("region", bc.Region());
    out.WriteNested("csys", bc.Csys());
    out.WriteText("distribution", "UNIFORM");
    records(out);
    out.WriteText("fieldName", "");
  };
  auto const repository = [bcs, condition](Out out) {
    Liar const liar(kbcC_DisplacementBC::TypeId(), condition);
    if (out.StartMap("map", 1)) {
      out.WriteObject("Fix", liar);
      out.EndMap();
    }
    cls_MemberTraits<kprC_StepTable>::Write(out, "procedures", bcs.Steps());
    out.StartList("danglingRegions", 0);
    out.EndList();
  };
  model.SetExtension(ddr_Model::bcCmd(), cow_Handle<FalseExtension>::Make(BCs::TypeId(), repository));
  return model;
}

struct RecordRow {
  char const* step;
  mdl_PropagationStatusEnm status;
  bool hasState;
};

Liar::Content Records(std::vector<RecordRow> const& rows) {
  cls_xoList<kprC_PropagatingState<kbcC_BCState>> records;
  for (RecordRow const& row : rows) {
    cow_Handle<kbcC_BCState> state;
    if (row.hasState) { state = cow_Handle<kbcC_DisplacementBCState>::Make(); }
    records.Append({kprC_StepNameProcedurePair(row.step, nullptr), row.status, state});
  }
  return [records](Out out) {
    if (!out.IsBrief()) { return cls_MemberTraits<std::remove_const_t<decltype(records)>>::Write(out, "states", records); }
    out.StartList("states", records.Size());
    for (std::size_t i = 0; i < records.Size(); ++i) {
      out.WriteChange(records[i].stepName.View(), records[i].state ? &*records[i].state : nullptr, i == 0);
    }
    out.EndList();
  };
}

TEST(BadContent, IsRefusedWhereRecordsDoNotGoWithTheSteps) {
  using enum mdl_PropagationStatusEnm;
  struct Row {
    char const* what;
    Liar::Content records;
    char const* expected;
    char const* expectedOfText;
  };
  Row const rows[] = {
      {"a step that is not there", Records({{"Step-1", Created, true}, {"Step-9", Modified, true}}),
       "one record for each step of the sequence, in step order", "one record for each step of the sequence, in step order"},
      {"a carried record with a status of its own",
       Records({{"Initial", NotYetCreated, false}, {"Step-1", Created, true}, {"Step-2", Modified, true}}),
       "the status and the state that follow from the steps before", "values in the first record"},
      {"a record that says nothing", Records({{"Step-1", Created, true}, {"Step-2", Modified, true}}),
       "the status and the state that follow from the steps before", "only records that say something of their own"},
      {"a status without a state", Records({{"Initial", NotYetCreated, false}, {"Step-1", Created, false}}),
       "a state in every record from the create step on", "values in the first record"},
  };
  for (Row const& row : rows) {
    for (Store const& store : kStores) {
      std::string const refusal = RefusalOf(store, WithRecords(row.records));
      EXPECT_TRUE(refusal.starts_with("boundaryConditions / Fix / states")) << row.what << ": " << refusal;
      EXPECT_NE(refusal.find(IsText(store) ? row.expectedOfText : row.expected), std::string::npos) << row.what << ": " << refusal;
    }
  }
  // and content that is right is taken, so that the table above tests what it says
  EXPECT_EQ(RefusalOf(kModelFile, WithRecords(Records({}))), "");
  EXPECT_EQ(RefusalOf(kText, WithRecords(Records({{"Step-1", Created, true}}))), "");
}

TEST(BadContent, IsRefusedWhereAnExtensionIsMissingOrAnother) {
  ddr_Model model;
  model.SetExtension(ddr_Model::regionsCmd(), cow_Handle<ddr_AmplitudeMap>::Make());
  ExpectRefused(model, "regions: expected an object of class mdl_MapString2ObjCow<rgnC_Region>");
  model.SetExtension(ddr_Model::regionsCmd(), cow_Handle<FalseExtension>::Make(rgnC_Region::TypeId(), Region("none", [](Out) {})));
  ExpectRefused(model, "regions: expected an object of another class");
}

}  // namespace
