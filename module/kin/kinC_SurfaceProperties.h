#pragma once

#include "module/kin/kinC_InteractionProperty.h"
#include "platform/BasicUtils/cls_2DArrayTraits.h"

// The properties of interactions of one surface with what is around it.

/// Heat that a surface gives to a fluid flowing past it.
class DDB_API kinC_FilmConditionProp final : public cls_Persistent<kinC_FilmConditionProp, kinC_ThermalIP> {
public:
  static constexpr omn_FixedString constructorCmd() { return "FilmConditionProp"; }

  bool temperatureDependency = false;
  int dependencies = 0;
  cow_2DArray<double> table;

  kinC_FilmConditionProp();
  explicit kinC_FilmConditionProp(cls_ReadVisitor const& in);

  /// Refuses nothing.
  void AssertValid() const override {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_FilmConditionProp;
    kinC_ThermalIP::VisitMembers(visit);
    visit("temperatureDependency", &Self::temperatureDependency, cls_MemberText{"whether the rows have a column of surface temperatures"});
    visit("dependencies", &Self::dependencies, cls_MemberText{"number of field variables in the rows"});
    visit("table", &Self::table,
          cls_MemberText{"rows of a film coefficient, then temperature and field variables as far as it depends on them",
                         "power/(length^2*temperature), temperature"});
  }
};

/// What a user element that acts or measures is given.
class DDB_API kinC_ActuatorSensorProp final : public cls_Persistent<kinC_ActuatorSensorProp, kinC_OtherIP> {
public:
  static constexpr omn_FixedString constructorCmd() { return "ActuatorSensorProp"; }

  cls_xoList<double> realProperties;
  cls_xoList<int> integerProperties;

  kinC_ActuatorSensorProp();
  explicit kinC_ActuatorSensorProp(cls_ReadVisitor const& in);

  /// Refuses nothing.
  void AssertValid() const override {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_ActuatorSensorProp;
    kinC_OtherIP::VisitMembers(visit);
    visit("realProperties", &Self::realProperties, cls_MemberText{"real properties of the user element, in its order"});
    visit("integerProperties", &Self::integerProperties, cls_MemberText{"integer properties of the user element, in its order"});
  }
};

/// Whether a table gives pressure by velocity or the reverse.
enum class kinC_AcousticTableEnm { IMPEDANCE, ADMITTANCE };
template <> struct omu_EnumTable<kinC_AcousticTableEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"IMPEDANCE", 0}, {"ADMITTANCE", 1}, {nullptr, 0}};
};

/// How a surface answers to sound.
class DDB_API kinC_AcousticImpedanceProp final : public cls_Persistent<kinC_AcousticImpedanceProp, kinC_OtherIP> {
public:
  using TableTypeEnm = kinC_AcousticTableEnm;

  static constexpr omn_FixedString constructorCmd() { return "AcousticImpedanceProp"; }

  omu_PrimEnum<TableTypeEnm> tableType = TableTypeEnm::IMPEDANCE;
  bool frequencyDependency = false;
  cow_2DArray<double> table;

  kinC_AcousticImpedanceProp();
  explicit kinC_AcousticImpedanceProp(cls_ReadVisitor const& in);

  /// Refuses nothing.
  void AssertValid() const override {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_AcousticImpedanceProp;
    kinC_OtherIP::VisitMembers(visit);
    visit("tableType", &Self::tableType, cls_MemberText{"what the table gives"});
    visit("frequencyDependency", &Self::frequencyDependency, cls_MemberText{"whether the rows have a column of frequencies"});
    visit("table", &Self::table,
          cls_MemberText{"rows of real and imaginary part, then the frequency where it depends on it; of an admittance the inverse unit",
                         "force*time/length^3, the same, cycles/time"});
  }
};
