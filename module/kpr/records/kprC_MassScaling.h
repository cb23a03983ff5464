#pragma once

#include "module/kpr/Types.h"
#include "platform/CoreGeometry/rgnC_Region.h"

/// How masses are scaled; by whom the scaling is switched off.
enum class kprC_MassScalingTypeEnm { SEMI_AUTOMATIC, AUTOMATIC, REINITIALIZE, DISABLE_THROUGHOUT_STEP };
enum class kprC_MassScalingOccursEnm { AT_BEGINNING, THROUGHOUT_STEP };
/// Which elements are scaled, and to what increment.
enum class kprC_MassScalingObjectiveEnm { UNIFORM, BELOW_MIN, SET_EQUAL_DT, ROLLING };
enum class kprC_MassScalingDirectionEnm { GLOBAL_X, GLOBAL_Y, GLOBAL_Z, GLOBAL_NONE };
/// Stands for the whole model in the place of a region.
enum class kprC_MassScalingModelEnm { MODEL };
/// Where a step's definitions come from.
enum class kprC_MassScalingPreviousStepEnm { PREVIOUS_STEP, ARRAY };

template <> struct omu_EnumTable<kprC_MassScalingTypeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"SEMI_AUTOMATIC", 0}, {"AUTOMATIC", 1}, {"REINITIALIZE", 2}, {"DISABLE_THROUGHOUT_STEP", 3}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_MassScalingOccursEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"AT_BEGINNING", 0}, {"THROUGHOUT_STEP", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_MassScalingObjectiveEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"UNIFORM", 0}, {"BELOW_MIN", 1}, {"SET_EQUAL_DT", 2}, {"ROLLING", 3}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_MassScalingDirectionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"GLOBAL_X", 0}, {"GLOBAL_Y", 1}, {"GLOBAL_Z", 2}, {"GLOBAL_NONE", 3}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_MassScalingModelEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MODEL", 0}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_MassScalingPreviousStepEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"PREVIOUS_STEP", 0}, {"ARRAY", 1}, {nullptr, 0}};
};

/// A definition of mass scaling in an explicit step: masses are raised so that the stable increment is longer.
class DDB_API kprC_MassScaling final : public cls_Persistent<kprC_MassScaling, cls_Object> {
public:
  using MassScalingTypeEnm = kprC_MassScalingTypeEnm;
  using MassScalingOccursEnm = kprC_MassScalingOccursEnm;
  using MassScalingObjectiveEnm = kprC_MassScalingObjectiveEnm;
  using MassScalingDirectionEnm = kprC_MassScalingDirectionEnm;
  using MassScalingModelEnm = kprC_MassScalingModelEnm;
  using MassScalingPreviousStepEnm = kprC_MassScalingPreviousStepEnm;

  omu_PrimEnum<MassScalingTypeEnm> type = MassScalingTypeEnm::SEMI_AUTOMATIC;
  omu_PrimEnum<MassScalingOccursEnm> occurs = MassScalingOccursEnm::AT_BEGINNING;
  omu_PrimEnum<MassScalingObjectiveEnm> objective = MassScalingObjectiveEnm::UNIFORM;
  omu_PrimEnum<MassScalingDirectionEnm> direction = MassScalingDirectionEnm::GLOBAL_NONE;
  rgnC_Region region;
  double factor = cls_unsetReal;
  double dt = cls_unsetReal;
  int frequency = cls_unsetInteger;
  int numberInterval = cls_unsetInteger;
  double feedRate = cls_unsetReal;
  double extrudedLength = cls_unsetReal;
  int crossSection = cls_unsetInteger;

  kprC_MassScaling();
  explicit kprC_MassScaling(cls_ReadVisitor const& in);

  /// Whether the masses change during the step.
  bool IsVariable() const { return IsVariable(type, occurs); }
  /// The same of a definition of that type. Refuses a type that there is not with a text alone, without a number.
  static bool IsVariable(MassScalingTypeEnm type, MassScalingOccursEnm occurs);

  /// Refuses, by type: semi-automatic at the beginning 56 without a factor or an increment above 0; throughout the step 55
  /// without an increment above 0, then 57; automatic 58 feed rate, 59 extruded length, 60 nodes in the cross-section, then
  /// 57; the others nothing. 57: frequency and number of intervals are both 0 or not given.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("type", &kprC_MassScaling::type, cls_MemberText{"how masses are scaled, or that scaling of earlier steps ends"});
    visit("occurs", &kprC_MassScaling::occurs, cls_MemberText{"once or again and again"});
    visit("objective", &kprC_MassScaling::objective, cls_MemberText{"which elements are scaled, and to what increment"});
    visit("direction", &kprC_MassScaling::direction, cls_MemberText{"direction of rolling"});
    visit("region", &kprC_MassScaling::region,
          cls_MemberText{"the elements; the whole model where not given"}
              .RefersTo(cls_Reference::Region)
              .Unset(omu_wordOf<MassScalingModelEnm>));
    visit("factor", &kprC_MassScaling::factor, cls_MemberText{"factor on the masses"});
    visit("dt", &kprC_MassScaling::dt, cls_MemberText{"the stable increment to be reached", "time"});
    visit("frequency", &kprC_MassScaling::frequency, cls_MemberText{"number of increments between two scalings"});
    visit("numberInterval", &kprC_MassScaling::numberInterval, cls_MemberText{"number of scalings in the step"});
    visit("feedRate", &kprC_MassScaling::feedRate, cls_MemberText{"estimated speed of the rolled product", "length/time"});
    visit("extrudedLength", &kprC_MassScaling::extrudedLength, cls_MemberText{"average length of an element along the rolling", "length"});
    visit("crossSection", &kprC_MassScaling::crossSection, cls_MemberText{"number of nodes in the cross-section of the product"});
  }
};
