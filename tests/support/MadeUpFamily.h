#pragma once

#include "framework/mdl_PropList.h"
#include "module/kpr/family/ddb_FamilyModule.h"
#include "module/kpr/family/kprC_TypeOf.h"
#include "module/kpr/family/kprC_TypedAttribute.h"
#include "module/kpr/kprC_assert.h"
#include "platform/CaeUtils/omu_Refusals.h"
#include "tests/support/Library.h"
#include "tests/support/PlainHistory.h"

// A family that no product has. It uses what a family may say of itself and the present ones do not: other statuses, other
// operations with their tests in another order, admission by the facts of a step and by values, a type that is not carried,
// states by procedure, lists of propagating values, two regions or none. It has two repositories in a module of its own, devices
// and gauges; a sibling with the same tables, guides, lives inside the module of steps and refuses with its numbers.

class tstC_State;
class tstC_SamplerState;
class tstC_PairingState;
class tstC_Device;
class tstC_Gauge;
class tstC_Guide;
class tstC_Heater;
class tstC_Pulse;
class tstC_Sampler;
class tstC_Pairing;
class tstC_Rail;
inline constexpr unsigned tstC_moduleNumber = 0x3E7;
CLS_TYPE_ID(tstC_moduleNumber, 0x01, tstC_State)
CLS_TYPE_ID(tstC_moduleNumber, 0x02, tstC_SamplerState)
CLS_TYPE_ID(tstC_moduleNumber, 0x03, tstC_PairingState)
CLS_TYPE_ID(tstC_moduleNumber, 0x04, tstC_Device)
CLS_TYPE_ID(tstC_moduleNumber, 0x05, tstC_Gauge)
CLS_TYPE_ID(tstC_moduleNumber, 0x06, tstC_Guide)
CLS_TYPE_ID(tstC_moduleNumber, 0x07, tstC_Heater)
CLS_TYPE_ID(tstC_moduleNumber, 0x08, tstC_Pulse)
CLS_TYPE_ID(tstC_moduleNumber, 0x09, tstC_Sampler)
CLS_TYPE_ID(tstC_moduleNumber, 0x0A, tstC_Pairing)
CLS_TYPE_ID(tstC_moduleNumber, 0x0B, tstC_Rail)
CLS_TYPE_ID(tstC_moduleNumber, 0x0C, kprC_PropagatingContainer<tstC_Device>)
CLS_TYPE_ID(tstC_moduleNumber, 0x0D, kprC_PropagatingContainer<tstC_Gauge>)
CLS_TYPE_ID(tstC_moduleNumber, 0x0E, kprC_PropagatingContainer<tstC_Guide>)
CLS_TYPE_ID(tstC_moduleNumber, 0x0F, kprC_PropagatingState<tstC_State>)

enum class tstC_ErrorEnm : int {};
template <class Error> constexpr Error tstC_Code(int number) { return static_cast<Error>(number); }
inline void tstC_Assert(bool condition, tstC_ErrorEnm code) {
  static constexpr auto rows = [] {
    std::array<nex_ErrorRow, 24> made{};
    for (int i = 0; i < 24; ++i) { made[static_cast<std::size_t>(i)] = {i, false, "Refused.", "Refused"}; }
    return made;
  }();
  static constexpr omu_RefusalTable table = {.module = "tst", .sourceName = "tst", .rows = rows, .valueErrorLine = 1, .textLine = 1};
  omu_Assert(table, condition, static_cast<int>(code));
}

class tstC_State : public kprC_StateOf<tstC_State, kprC_State> {
public:
  tstC_State() = default;
  explicit tstC_State(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> magnitude;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("off", &tstC_State::switchedOff_, cls_MemberText{"whether it is switched off"}.NotSettable());
    visit("magnitude", &tstC_State::magnitude, cls_MemberText{"how much"});
  }
};
/// Hot from the beginning in steps that solve for a temperature.
class tstC_SamplerState final : public kprC_StateOf<tstC_SamplerState, tstC_State> {
public:
  static constexpr kprC_ProcedureSet kThermal = {kprC_ProcedureType::HeatTransfer, kprC_ProcedureType::CoupledTempDisplacement};

  explicit tstC_SamplerState(unsigned procedureType = 0) { hot = kThermal.Contains(procedureType); }
  explicit tstC_SamplerState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<bool> hot;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    tstC_State::VisitMembers(visit);
    visit("hot", &tstC_SamplerState::hot, cls_MemberText{"whether it asks for temperatures"});
  }
};
class tstC_PairingState final : public kprC_StateOf<tstC_PairingState, tstC_State> {
public:
  tstC_PairingState() = default;
  explicit tstC_PairingState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropList<double> gaps;
  mdl_PropList<cow_String> properties;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    tstC_State::VisitMembers(visit);
    visit("gaps", &tstC_PairingState::gaps, cls_MemberText{"the gap of each pair"});
    visit("properties", &tstC_PairingState::properties, cls_MemberText{"the property of each pair"});
  }
};

/// The family's page; \p Error is what it refuses with, \p Refuse raises it.
template <class ErrorEnm, auto Refuse> struct tstC_RulesOf : kprC_ProcedureRules {
  using State = tstC_State;
  using Error = ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kprC_TypeRow;
  static std::span<TypeRow const> Types();

  static constexpr kprC_StatusTable kStatuses = kprC_StatusesWith({
      {Status::Deactivated, 0},
      {Status::Status8, kprC_Known | kprC_Active | kprC_BuiltIn},
      {Status::Reserved13, kprC_Known | kprC_NoReset},
      {Status::Status14, kprC_Known | kprC_Active},
      {Status::Status15, kprC_Known | kprC_IllegalMove | kprC_Changed},
  });
  static constexpr kprC_PassTable kPass = {
      .createdOff = Status::Status15,
      .off = Status::Status15,
      .afterOff = Status::Reserved13,
      .keptFromInitial = Status::Status14,
      .asksAdmissionInPerturbation = true,
  };
  static constexpr kprC_StepRefusals<Error> kRefusals = {.unknownStep = tstC_Code<Error>(0),
                                                         .unknownStatus = tstC_Code<Error>(1),
                                                         .replaceCreateStep = tstC_Code<Error>(2),
                                                         .createNotAdmitted = tstC_Code<Error>(3),
                                                         .anneal = tstC_Code<Error>(4),
                                                         .setToPropagated = tstC_Code<Error>(5)};
  static constexpr bool kOnCopy = true;
  static constexpr auto kResetToInitial = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, tstC_Code<Error>(0)},
      {kprC_Ask::CreateStep, tstC_Code<Error>(6)},
      {kprC_Ask::NoState},
      {kprC_Ask::SwitchedOff},
      {kprC_Ask::OfType},
      {kprC_Ask::Perturbation, tstC_Code<Error>(7)},
      {kprC_Ask::Inactive, tstC_Code<Error>(8)},
      {kprC_Ask::NotEditable, tstC_Code<Error>(9)},
  });
  static constexpr auto kResetToPropagated = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, tstC_Code<Error>(0)},
      {kprC_Ask::CreateStep, tstC_Code<Error>(6)},
      {kprC_Ask::NoReset, tstC_Code<Error>(10)},
  });
  /// Leaves the records between alone; what it meets at the destination is replaced.
  static constexpr auto kMove = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, tstC_Code<Error>(0)},
      {kprC_Ask::SameStep},
      {kprC_Ask::BuiltIn},
      {kprC_Ask::Inactive, tstC_Code<Error>(11)},
      {kprC_Ask::Propagated, tstC_Code<Error>(12)},
      {kprC_Ask::IntoInitialStep, tstC_Code<Error>(13)},
      {kprC_Ask::Target},
      {kprC_Ask::NotAdmitted, tstC_Code<Error>(14)},
  });
  static constexpr auto kOperations = std::to_array<kprC_Operation>({
      {"resetToInitial", "goes back to the initial value from a step on", kprC_Effect::SwitchOff, kResetToInitial},
      {"resetToPropagated", "takes back such a reset", kprC_Effect::TakeBack, kResetToPropagated},
      {"move", "moves what a step sets to another", kprC_Effect::Move, kMove},
  });
  static constexpr auto kMoveTargets = std::to_array<kprC_MoveTarget>({{kprC_perturbationProcedures, tstC_Code<Error>(15)}});
  static constexpr kprC_EditRefusals<Error> kEdit = {tstC_Code<Error>(16), tstC_Code<Error>(16), tstC_Code<Error>(16), tstC_Code<Error>(17),
                                                     tstC_Code<Error>(18), tstC_Code<Error>(19), tstC_Code<Error>(20), tstC_Code<Error>(20),
                                                     tstC_Code<Error>(20), tstC_Code<Error>(21), tstC_Code<Error>(22), {}};

  static void Assert(bool condition, Error code) { Refuse(condition, code); }
};
using tstC_Rules = tstC_RulesOf<tstC_ErrorEnm, &tstC_Assert>;
using tstC_GuideRules = tstC_RulesOf<kprC_ErrorEnm, &kprC_Assert>;

/// A repository's attributes: \p Derived says of which kind.
template <class Derived, class Rules> class tstC_AttributeOf : public cls_Persistent<Derived, kprC_TypedAttribute<Rules>> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("suppress", &tstC_AttributeOf::suppress_, cls_MemberText{"whether it is suppressed"}.NotSettable());
    visit("states", &tstC_AttributeOf::states_, cls_MemberText{"the per-step records"}.NotSettable());
  }
};
class tstC_Device : public tstC_AttributeOf<tstC_Device, tstC_Rules> {
public:
  static constexpr char const* kModule = "tst";
  static constexpr omn_FixedString itemCmd() { return "device"; }
  static std::span<kprC_Constructor<tstC_Device> const> Constructors();
};
class tstC_Gauge : public tstC_AttributeOf<tstC_Gauge, tstC_Rules> {
public:
  static constexpr char const* kModule = "tst";
  static constexpr omn_FixedString itemCmd() { return "gauge"; }
  static std::span<kprC_Constructor<tstC_Gauge> const> Constructors();
};
class tstC_Guide : public tstC_AttributeOf<tstC_Guide, tstC_GuideRules> {
public:
  static constexpr char const* kModule = "kpr";
  static constexpr omn_FixedString itemCmd() { return "guide"; }
  static std::span<kprC_Constructor<tstC_Guide> const> Constructors();
};

/// Not in adiabatic steps: what the initial step created stays in force there until it is touched.
class tstC_Heater final : public kprC_TypeOf<tstC_Heater, tstC_Device> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  bool Admits(kprC_StepFacts step, bool carried) const override {
    return !step.Has(kprC_StepFacts::Adiabatic) && kprC_TypedAttribute::Admits(step, carried);
  }
  bool StaysFromInitial(kprC_StepFacts step) const override { return step.Has(kprC_StepFacts::Adiabatic); }
};
/// In force in its own steps alone.
class tstC_Pulse final : public kprC_TypeOf<tstC_Pulse, tstC_Device> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
/// Where its step solves for what it asks for; it cannot be switched off in a steady-state response.
class tstC_Sampler final : public kprC_TypeOf<tstC_Sampler, tstC_Gauge> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  bool CarriedByValues() const override { return true; }
  bool Admits(kprC_StepFacts step, bool carried) const override {
    std::size_t const create = States().CreateStep();
    auto const* state = create == kprC_StepTable::npos ? nullptr : static_cast<tstC_SamplerState const*>(States().State(create));
    bool const hot = state != nullptr && state->hot.HasValue() && state->hot.ConstGet();
    return (!hot || tstC_SamplerState::kThermal.Contains(step.procedureType)) && kprC_TypedAttribute::Admits(step, carried);
  }

protected:
  void AssertOperation(kprC_Effect effect, std::size_t index, std::size_t) const override {
    bool const steady = Steps().Facts(index).Has(kprC_StepFacts::SteadyState);
    tstC_Assert(effect != kprC_Effect::SwitchOff || !steady, tstC_Code<tstC_ErrorEnm>(23));
  }
};
/// Acts on pairs of two regions.
class tstC_Pairing final : public cls_Persistent<tstC_Pairing, tstC_Device> {
public:
  tstC_Pairing() = default;
  explicit tstC_Pairing(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  std::unique_ptr<tstC_State> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    tstC_Device::VisitMembers(visit);
    visit("first", &tstC_Pairing::first_, cls_MemberText{"one side"}.RefersTo(cls_Reference::Region));
    visit("second", &tstC_Pairing::second_, cls_MemberText{"the other"}.RefersTo(cls_Reference::Region));
  }

private:
  rgnC_Region first_, second_;
};
class tstC_Rail final : public kprC_TypeOf<tstC_Rail, tstC_Guide> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

namespace test::madeup {
using enum kprC_ProcedureType::Enm;
inline constexpr kprC_ProcedureSet kMany =
    Initial | Static | ImplicitDynamics | ExplicitDynamics | HeatTransfer | CoupledTempDisplacement | StaticLinearPerturbation;

inline constexpr auto kTypes = [] {
  auto types = std::to_array<kprC_TypeRow>({
      kprC_RowOf<tstC_Heater, tstC_State>("Heater", "Heater", kMany),
      kprC_RowOf<tstC_Pulse, tstC_State>("Pulse", "Pulse", kMany),
      kprC_RowOf<tstC_Pairing, tstC_PairingState>("Pairing", "Pairing", kMany | Frequency),
      kprC_RowOf<tstC_Sampler, tstC_SamplerState>("Sampler", "Sampler", kMany),
  });
  types[1].propagates = false;
  types[2].inInitial = kprC_InInitial::WhereExplicit;
  return types;
}();
inline constexpr kprC_TypeRow kGuideTypes[] = {kprC_RowOf<tstC_Rail, tstC_State>("Rail", "Rail", kMany)};
inline constexpr kprC_Constructor<tstC_Device> kDevices[] = {{"Heater", "Heater", &cls_Make<tstC_Heater>},
                                                             {"Pulse", "Pulse", &cls_Make<tstC_Pulse>},
                                                             {"Pairing", "Pairing", &cls_Make<tstC_Pairing>}};
inline constexpr kprC_Constructor<tstC_Gauge> kGauges[] = {{"Sampler", "Sampler", &cls_Make<tstC_Sampler>}};
inline constexpr kprC_Constructor<tstC_Guide> kGuides[] = {{"Rail", "Rail", &cls_Make<tstC_Rail>}};

/// What the plain walk has to know of the family.
inline plain::Rules const kPlainRules = {.asksInPerturbation = true, .off = 15, .afterOff = 13, .moveEmptiesBetween = false, .staysPut = 8};

/// A test that runs with the library and the family started.
class WithMadeUpFamily : public WithLibrary {
protected:
  WithMadeUpFamily() {
    ddb_EnterModule<tstC_Device>(count_, tstC_moduleNumber, tstC_Device::kModule, [] {
      ddb_OfferRepository<tstC_Device>("devices");
      ddb_OfferRepository<tstC_Gauge>("gauges");
      ddb_OfferRepository<tstC_Guide>("guides");
      Describe<tstC_State, tstC_SamplerState, tstC_PairingState, tstC_Device, tstC_Gauge, tstC_Guide, tstC_Heater, tstC_Pulse, tstC_Sampler,
               tstC_Pairing, tstC_Rail, kprC_PropagatingContainer<tstC_Device>, kprC_PropagatingContainer<tstC_Gauge>,
               kprC_PropagatingContainer<tstC_Guide>, kprC_PropagatingState<tstC_State>>();
    });
  }
  ~WithMadeUpFamily() override {
    ddb_LeaveModule<tstC_Device>(count_, tstC_moduleNumber, [] {
      for (char const* extension : {"devices", "gauges", "guides"}) { mdl_ExtensionSubject::UnregisterExtension(extension); }
    });
  }

private:
  template <class... Classes> static void Describe() {
    (cls_MetadataRegistrar::initClassMetadata(&Classes::InitializeMetadata, ddb_metadataFlag), ...);
  }
  int count_ = 0;
};

}  // namespace test::madeup

template <> inline std::span<kprC_TypeRow const> tstC_Rules::Types() { return test::madeup::kTypes; }
template <> inline std::span<kprC_TypeRow const> tstC_GuideRules::Types() { return test::madeup::kGuideTypes; }
inline std::span<kprC_Constructor<tstC_Device> const> tstC_Device::Constructors() { return test::madeup::kDevices; }
inline std::span<kprC_Constructor<tstC_Gauge> const> tstC_Gauge::Constructors() { return test::madeup::kGauges; }
inline std::span<kprC_Constructor<tstC_Guide> const> tstC_Guide::Constructors() { return test::madeup::kGuides; }
