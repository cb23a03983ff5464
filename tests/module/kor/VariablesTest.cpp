#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

#include "module/kor/korC_OdbRequestTable.h"
#include "module/kor/korC_OutputState.h"
#include "tests/support/Library.h"

// The rows themselves stand on docs/output.md; here is what holds between them, and how they are asked.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Table = korC_OdbRequestTable;
using Variable = korC_OdbRequestSpec;
using enum kprC_ProcedureType::Enm;
constexpr auto kFields = korC_OdbChannel::FIELD, kHistories = korC_OdbChannel::HISTORY;
constexpr auto kModel = korC_DomainTypeEnm::WHOLE_MODEL, kSet = korC_DomainTypeEnm::SET;

class Variables : public test::WithLibrary {
protected:
  Table const& table_ = Table::Instance();
  static std::vector<std::string> Texts(cow_List<cow_String> const& keys) {
    std::vector<std::string> texts;
    for (cow_String const& key : keys) { texts.emplace_back(key.View()); }
    return texts;
  }
  static cow_List<cow_String> Keys(std::initializer_list<char const*> texts) {
    cow_List<cow_String> keys;
    for (char const* text : texts) { keys.Append(cow_String(text)); }
    return keys;
  }
};

TEST_F(Variables, AreRowsThatDoNotContradictEachOther) {
  std::map<unsigned, int> channels;
  std::map<int, int> categories;
  std::multimap<std::string_view, Variable const*> byName;
  for (Variable const& row : Table::Rows()) {
    ++channels[row.channels];
    ++categories[static_cast<int>(row.label)];
    EXPECT_GT(row.Description().size(), row.name.size()) << row.name;
    EXPECT_FALSE(row.procedures.IsEmpty()) << row.name;
    EXPECT_EQ(row.otherProcedures.Bits() + row.reserved + row.text1.size() + row.text2.size(), 0U) << row.name;
    for (auto [at, end] = byName.equal_range(row.name); at != end; ++at) {
      bool const apart = (at->second->procedures & row.procedures).IsEmpty() || (at->second->channels & row.channels) == 0;
      EXPECT_TRUE(apart) << row.name << " twice with a procedure and a channel in common";
    }
    byName.emplace(row.name, &row);
    std::set<std::string_view> own;
    row.ForEachComponent([&](std::string_view component) { EXPECT_TRUE(own.insert(component).second) << row.name << " " << component; });
  }
  EXPECT_THAT(channels, ElementsAre(std::pair(0U, 4), std::pair(1U, 42), std::pair(2U, 173), std::pair(3U, 176)));
  std::vector<int> counts;
  for (auto const& [label, count] : categories) { counts.push_back(count); }
  EXPECT_THAT(counts, ElementsAre(20, 59, 30, 30, 18, 41, 37, 20, 31, 12, 33, 9, 5, 18, 7, 16, 9));
  EXPECT_EQ(korC_OdbCategories().size(), counts.size());
}

TEST_F(Variables, ArePreselectedWhereTheyMayBeRequested) {
  for (kprC_ProcedureRow const& procedure : kprC_procedures) {
    for (auto const channel : {kFields, kHistories}) {
      auto const keys = table_.Defaults(procedure.type, channel, kModel);
      EXPECT_THAT(Texts(table_.GetInvalidIdentifiers(keys, procedure.type, channel, kModel)), IsEmpty());
      bool const writesFields = kprC_anyOutput.Contains(procedure.type);
      if (channel == kFields) { EXPECT_EQ(keys.Size() != 0, writesFields) << procedure.command.View(); }
    }
  }
}

TEST_F(Variables, AreFoundByNameAndProcedure) {
  struct Energies {
    unsigned procedure;
    char const* components;
  };
  for (auto const& [procedure, components] :
       {Energies{ModalDynamics, "ALLKE ALLSE ALLWK"}, Energies{SteadyStateSubspace, "ALLKE ALLSE ALLWK"},
        Energies{Soils, "ALLAE ALLCD ALLEE ALLFD ALLIE ALLJD ALLKE ALLPD ALLSE ALLSD ALLVD ALLWK ETOTAL"},
        Energies{ExplicitDynamics, "ALLAE ALLCD ALLDMD ALLFD ALLIE ALLKE ALLPD ALLSE ALLVD ALLWK ALLCW ALLMW ALLPW ETOTAL"},
        Energies{TempDisplacementDynamics,
                 "ALLAE ALLCD ALLDMD ALLFD ALLHF ALLIE ALLIHE ALLKE ALLPD ALLSE ALLVD ALLWK ALLCW ALLMW ALLPW ETOTAL"},
        Energies{ImplicitDynamics, "ALLAE ALLCD ALLDMD ALLEE ALLFD ALLIE ALLJD ALLKE ALLKL ALLPD ALLQB ALLSE ALLSD ALLVD ALLWK ETOTAL"}}) {
    EXPECT_EQ(table_.Request("ALLEN", procedure)->components, components) << procedure;
  }
  EXPECT_EQ(table_.Request("ALLEN", HeatTransfer), nullptr);
  EXPECT_EQ(table_.Label("POR", Soils), Variable::LabelEnm::Fluids);
  EXPECT_EQ(table_.Label("POR", SteadyStateDirect), Variable::LabelEnm::Acoustics);
  EXPECT_EQ(table_.Print("CSTRESS", StaticLinearPerturbation), Variable::PrintEnm::Contact);
  EXPECT_EQ(test::CodeOf([&] { table_.Request("STRESS", Static); }), 12);
  EXPECT_EQ(test::CodeOf([&] { table_.RequestFromComponent("S77", Static); }), 13);
  EXPECT_EQ(test::CodeOf([&] { table_.AssertKnown("S77"); }), 13);
  EXPECT_EQ(test::CodeOf([&] { table_.AssertKnown("Stress"); }), 12);
}

TEST_F(Variables, AreFoundByTheirComponents) {
  EXPECT_TRUE(table_.IsComponentRequest("S11") && !table_.IsComponentRequest("S") && !table_.IsComponentRequest("S77"));
  EXPECT_EQ(table_.RequestFromComponent("S11", Frequency), cow_String("S"));
  EXPECT_EQ(table_.RequestFromComponent("U1", Static), cow_String("U")) << "UT lists it, too, behind it";
  EXPECT_EQ(table_.RequestSpecFromComponent("ALLKL", Static), nullptr);
  EXPECT_EQ(table_.RequestSpecFromComponent("ALLKE", ImplicitDynamics), table_.Request("ALLEN", ImplicitDynamics));
  EXPECT_EQ(table_.LabelFromComponent("HFL1", HeatTransfer), Variable::LabelEnm::Thermal);
  EXPECT_EQ(table_.PrintFromComponent("RF1", Static), Variable::PrintEnm::Node);
  EXPECT_TRUE(table_.ComponentHasLabel("S11", Variable::LabelEnm::Stresses, Static));
  EXPECT_FALSE(table_.ComponentHasLabel("S11", Variable::LabelEnm::Stresses, HeatTransfer));
}

TEST_F(Variables, SpawnThoseThatAreWorkedOutFromThem) {
  EXPECT_TRUE(table_.IsParentRequest("S") && !table_.IsParentRequest("MISES"));
  EXPECT_THAT(Texts(table_.SpawnedIdentifiers("S", Static)), ElementsAre("SP", "MISES", "TRESC", "PRESS", "INV3"));
  EXPECT_THAT(Texts(table_.SpawnedIdentifiers("S", HeatTransfer)), IsEmpty());
}

TEST_F(Variables, AreValidByProcedureChannelAndDomain) {
  auto const keys = Keys({"S", "U1", "NT", "ALLEN", "CTF", "SOF", "ECD", "INFC", "P"});
  auto const field = [&](unsigned procedure) { return Texts(table_.GetInvalidFieldIdentifiers(keys, procedure, kModel)); };
  auto const history = [&](unsigned procedure, korC_DomainTypeEnm domain) {
    return Texts(table_.GetInvalidHistoryIdentifiers(keys, procedure, domain));
  };
  EXPECT_THAT(field(Static), ElementsAre("ALLEN", "CTF", "SOF", "ECD", "INFC"));
  EXPECT_THAT(field(HeatTransfer), ElementsAre("S", "U1", "ALLEN", "CTF", "SOF", "ECD", "INFC", "P"));
  EXPECT_THAT(history(Static, kSet), ElementsAre("SOF", "ECD", "INFC", "P"));
  EXPECT_THAT(history(Static, korC_DomainTypeEnm::CONNECTOR), ElementsAre("S", "U1", "NT", "ALLEN", "SOF", "ECD", "INFC", "P"));
  EXPECT_THAT(history(ExplicitDynamics, korC_DomainTypeEnm::INTEGRATED_OUTPUT_SECTION),
              ElementsAre("S", "U1", "NT", "ALLEN", "CTF", "ECD", "INFC", "P"));
  EXPECT_THAT(Texts(table_.Filter(keys, HeatTransfer, kFields, kModel)), ElementsAre("NT"));
  EXPECT_THAT(Texts(table_.GetInvalidLabelIdentifiers(keys, Static, Variable::LabelEnm::Stresses, kFields, kModel)),
              ElementsAre("U1", "NT", "ALLEN", "CTF", "SOF", "ECD", "INFC", "P"));
  EXPECT_THAT(Texts(table_.GetInvalidPrintIdentifiers(keys, Static, Variable::PrintEnm::Node, kFields, kModel)),
              ElementsAre("S", "ALLEN", "CTF", "SOF", "ECD", "INFC", "P"));
  EXPECT_THAT(
      Texts(table_.GetInvalidPrintIdentifiers(keys, Static, Variable::PrintEnm::Node, Variable::PrintEnm::Element, kFields, kModel)),
      ElementsAre("ALLEN", "CTF", "SOF", "ECD", "INFC"));
  EXPECT_THAT(Texts(table_.Requests(Variable::LabelEnm::Diffusion, MassDiffusion, kFields, kModel)),
              ElementsAre("CONC", "NNC", "CONCFL", "ISOL"));
  EXPECT_THAT(table_.Labels(kFields, MassDiffusion, kModel),
              ElementsAre(Variable::LabelEnm::Diffusion, Variable::LabelEnm::Volume, Variable::LabelEnm::State));
  EXPECT_EQ(table_.Labels(kHistories).size(), 16U) << "all but the error indicators";
  EXPECT_THAT(Texts(table_.All(MassDiffusion, kHistories, kSet)),
              ElementsAre("CONC", "NNC", "CONCFL", "ISOL", "SOL", "SVOL", "EVOL", "ESOL", "IVOL", "COORD", "SDV", "FV", "UVARM", "DT"));
  EXPECT_EQ(table_.DefaultRequests(ExplicitDynamics, kHistories, kModel).front().numIntervals, 200);
}

TEST_F(Variables, AreWhatSymbolsStandForAndTheOtherWayRound) {
  using enum korC_VariablesTypeEnm;
  auto const listed = [](korC_VariablesTypeEnm symbol, unsigned procedure) {
    return Texts(korC_VariablesOf(symbol, procedure, kHistories, kModel));
  };
  EXPECT_THAT(listed(ENERGY_ALL, Static), ElementsAre("ALLEN"));
  EXPECT_THAT(listed(INCREMENTATION_ALL, ExplicitDynamics), ElementsAre("DT", "DMASS"));
  EXPECT_THAT(listed(RADIATION_ALL, Static), IsEmpty());
  EXPECT_THAT(Texts(korC_VariablesOf(NODE_PRESELECT, Static, kFields, kModel)), ElementsAre("U", "RF", "CF"));
  korC_FieldOutputState state(Static);
  ASSERT_TRUE(state.ConvertSymbolToVariables(Static, false));
  EXPECT_THAT(Texts(state.variables.ConstGet().Keys()), ElementsAre("S", "PE", "PEEQ", "PEMAG", "LE", "U", "RF", "CF", "CSTRESS", "CDISP"));
  EXPECT_FALSE(state.ConvertSymbolToVariables(Static, false)) << "a list stays a list";
  ASSERT_TRUE(state.ConvertVariablesToSymbol(Static, false));
  EXPECT_EQ(state.variables.ConstGet().Symbol(), PRESELECT);
}

}  // namespace
