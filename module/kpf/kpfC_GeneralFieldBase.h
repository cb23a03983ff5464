#pragma once

#include "module/kpf/kpfC_Field.h"
#include "module/kpf/kpfC_FromFileState.h"

/// Values of a field; a single one may be given for a list of one.
class kpfC_Magnitudes : public cow_1DArrayList<double> {
public:
  using cow_1DArrayList::cow_1DArrayList;
};
template <> struct cls_MemberTraits<kpfC_Magnitudes> : cls_ListTraits<kpfC_Magnitudes, double> {
  static std::string_view FromValue(kpfC_Magnitudes& values, cls_Value const& from) {
    bool const single = from.As<double>() != nullptr || from.As<long long>() != nullptr;
    return cls_ListTraits::FromValue(values, single ? cls_Value(cls_Value::List{from}) : from);
  }
};

/// The first of a field's values as a member of its own: who sets it keeps those behind it.
struct kpfC_FirstMagnitude : cls_MemberTraits<mdl_PropAttr<kpfC_Magnitudes>> {
  using Magnitudes = mdl_PropAttr<kpfC_Magnitudes>;
  using Whole = cls_MemberTraits<Magnitudes>;
  using First = cls_MemberTraits<mdl_PropAttr<double>>;

  static void Describe(cls_MemberInfo& info) { First::Describe(info); }
  /// Where it is stored, the list stands once more.
  static void Read(cls_ReadVisitor const& in, std::string_view name, Magnitudes& values) {
    if (in.IsBrief()) {
      mdl_PropAttr<double> first;
      First::Read(in, name, first);
      return Set(values, first);
    }
    Magnitudes const before = values;
    Whole::Read(in, name, values);
    if (!Equal(before, values)) { in.Refuse(name, "what the member says under its other name"); }
  }
  static cls_Value ToValue(Magnitudes const& values) {
    if (!values.HasValue()) { return Whole::ToValue(values); }
    return values.ConstGet().IsEmpty() ? cls_Value() : cls_Value(values.ConstGet()[0]);
  }
  static std::string_view FromValue(Magnitudes& values, cls_Value const& from) {
    mdl_PropAttr<double> first;
    std::string_view const expected = First::FromValue(first, from);
    if (expected == "") { Set(values, first); }
    return expected;
  }

private:
  static void Set(Magnitudes& values, mdl_PropAttr<double> const& first) {
    if (!first.HasValue()) { return static_cast<void>(values = first.State()); }
    kpfC_Magnitudes list = values.ConstGet();
    if (list.IsEmpty()) { list.Append(0.0); }
    list.Get(0) = first.ConstGet();
    values = std::move(list);
  }
};

/// What the values of a uniform field are over a cross section.
enum class kpfC_CrossSectionDistributionEnm {
  CONSTANT_THROUGH_THICKNESS = 0,
  GRADIENTS_THROUGH_SHELL_CS = 1,  ///< a value at the reference surface and its gradient through the thickness
  GRADIENTS_THROUGH_BEAM_CS = 2,   ///< a value at the origin of the section and its gradients along the section's axes
  POINTS_THROUGH_SECTION = 3,      ///< values at the points of the section
};
template <> struct omu_EnumTable<kpfC_CrossSectionDistributionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"CONSTANT_THROUGH_THICKNESS", 0},
                                                               {"GRADIENTS_THROUGH_SHELL_CS", 1},
                                                               {"GRADIENTS_THROUGH_BEAM_CS", 2},
                                                               {"POINTS_THROUGH_SECTION", 3},
                                                               {nullptr, 0}};
};

/// Per-step state of a field with values over a cross section.
class DDB_API kpfC_GeneralFieldBaseState : public kprC_StateOf<kpfC_GeneralFieldBaseState, kpfC_FromFileState> {
public:
  using CrossSectionDistributionEnm = kpfC_CrossSectionDistributionEnm;

  kpfC_GeneralFieldBaseState() = default;
  explicit kpfC_GeneralFieldBaseState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() {
    return {"the values that the cross section takes, the reference value first", "of the quantity"};
  }

  mdl_PropAttr<omu_PrimEnum<CrossSectionDistributionEnm, 1>> crossSectionDistribution;
  mdl_PropAttr<kpfC_Magnitudes> magnitudes;

  /// The first of its values.
  std::optional<double> Magnitude() const override;
  /// Refuses what does not go with the cross section: 33 not one value, 34 not two over a shell, 35 so many as no beam has, 38 none at the
  /// points of a section or scaled by a field; then what of a file does.
  void AssertValid() const override;
  /// Refuses of gradients over a beam: 35 not three values, in a plane 36 not two, 37 any in axisymmetric space.
  void AssertInSpace(SpaceEnm space) const override;

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    using Self = kpfC_GeneralFieldBaseState;
    kpfC_FromFileState::VisitMembers(visit);
    visit("crossSectionDistribution", &Self::crossSectionDistribution, cls_MemberText{"what the values are over a cross section"});
    visit("magnitudes", &Self::magnitudes, Type::value());
    visit("magnitude", &Self::magnitudes,
          cls_MemberText{"the first of the magnitudes", Type::value().unit}.Through(
              cls_opsOf<mdl_PropAttr<kpfC_Magnitudes>, kpfC_FirstMagnitude>));
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kpfC_GeneralFieldBaseState>(visit); }

private:
  std::size_t Count() const { return magnitudes.HasValue() ? magnitudes.ConstGet().Size() : 0; }
  CrossSectionDistributionEnm CrossSection() const {
    CrossSectionDistributionEnm const said = crossSectionDistribution.ConstGet();
    return crossSectionDistribution.HasValue() ? said : CrossSectionDistributionEnm::CONSTANT_THROUGH_THICKNESS;
  }
};

/// Base of the fields with values over a cross section.
class DDB_API kpfC_GeneralFieldBase : public cls_Persistent<kpfC_GeneralFieldBase, kpfC_Field> {
public:
  using CrossSectionDistributionEnm = kpfC_CrossSectionDistributionEnm;

  template <class V> static constexpr void VisitMembers(V&& visit) { kpfC_Field::VisitMembers(visit); }
};

/// Per-step state of a general field.
class DDB_API kpfC_GeneralFieldState final : public kprC_StateOf<kpfC_GeneralFieldState, kpfC_GeneralFieldBaseState> {
public:
  using kprC_StateOf::kprC_StateOf;
  static constexpr cls_MemberText value() { return {"the values of the variable, the reference value first", "of the variable"}; }
};

/// A field of a variable that material properties may depend on, known by its number.
class DDB_API kpfC_GeneralField final : public cls_Persistent<kpfC_GeneralField, kpfC_GeneralFieldBase> {
public:
  kpfC_GeneralField() = default;
  explicit kpfC_GeneralField(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  std::unique_ptr<kpfC_FieldState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kpfC_GeneralField;
    kpfC_GeneralFieldBase::VisitMembers(visit);
    visit("variableId", &Self::variableId_, cls_MemberText{"number of the variable, from 1"});
    visit("specifyVariableId", &Self::specifyVariableId_, cls_MemberText{"whether the variable is known by its number"});
    visit("numberOfVariables", &Self::numberOfVariables_, cls_MemberText{"how many variables the field gives, from that number on"});
  }

private:
  int variableId_ = 1;
  bool specifyVariableId_ = false;
  int numberOfVariables_ = 1;
};

/// How the temperatures of a cross section are given.
enum class kpfC_TemperatureFormatEnm { POINTWISE = 0, GRADIENTS = 1 };
template <> struct omu_EnumTable<kpfC_TemperatureFormatEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"POINTWISE", 0}, {"GRADIENTS", 1}, {nullptr, 0}};
};

/// Per-step state of a temperature.
class DDB_API kpfC_TemperatureState final : public kprC_StateOf<kpfC_TemperatureState, kpfC_GeneralFieldBaseState> {
public:
  using FormatEnm = kpfC_TemperatureFormatEnm;

  kpfC_TemperatureState() = default;
  explicit kpfC_TemperatureState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() {
    return {"the temperatures of the cross section, the reference temperature first", "temperature"};
  }

  mdl_PropAttr<omu_PrimEnum<FormatEnm, 1>> format;
  mdl_PropAttr<double> exteriorTolerance;
  mdl_PropAttr<double> absoluteExteriorTolerance;

  /// Refuses in addition: 87 a tolerance that is not above zero, 88 one with a results file that is no output database.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kpfC_TemperatureState;
    kprC_StateOf::VisitMembers(visit);
    visit("temperature", &Self::magnitudes, cls_MemberText{"the same as the magnitudes", "temperature"});
    visit("format", &Self::format, cls_MemberText{"how the temperatures of a cross section are given"});
    visit("exteriorTolerance", &Self::exteriorTolerance,
          cls_MemberText{"how far outside the file's mesh a node may lie, as a fraction of the element size"}.Refused(
              kpfC_ErrorEnm::ToleranceValue));
    visit("absoluteExteriorTolerance", &Self::absoluteExteriorTolerance,
          cls_MemberText{"how far outside the file's mesh a node may lie", "length"}.Refused(kpfC_ErrorEnm::ToleranceValue));
  }
};

/// Temperature, where the analysis does not solve for it.
///
/// Refuses in addition: 67 in an adiabatic step, 68 in one of a thermally coupled analysis; 94 values by a subroutine in the initial
/// step. Created in the initial step and untouched, it stays in force in both.
class DDB_API kpfC_Temperature final : public kprC_TypeOf<kpfC_Temperature, kpfC_GeneralFieldBase> {
public:
  using FormatEnm = kpfC_TemperatureFormatEnm;
  using kprC_TypeOf::kprC_TypeOf;

  bool Admits(kprC_StepFacts step, bool carried) const override;
  bool StaysFromInitial(kprC_StepFacts step) const override { return RefusedIn(step).has_value(); }
  std::optional<int> RefusedIn(kprC_StepFacts step) const override;

protected:
  void AssertState(kpfC_FieldState const& state, std::size_t index) const override;
};
