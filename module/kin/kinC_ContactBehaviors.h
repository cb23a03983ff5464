#pragma once

#include "module/kin/Types.h"
#include "platform/BasicUtils/cls_2DArrayTraits.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

// What surfaces in contact do to each other beside pressure and friction.

/// What the first column of a damping table holds.
enum class kinC_DampingDefinitionEnm { COEFFICIENT, CRITICAL_FRACTION };
/// The text by which the solver chooses.
enum class kinC_TangentFractionEnm { DEFAULT };
/// How damping falls off with the clearance.
enum class kinC_ClearanceDependenceEnm { STEP, LINEAR, BILINEAR };
/// Where conductances come from.
enum class kinC_ConductanceDefinitionEnm { TABULAR, USER_DEFINED };

template <> struct omu_EnumTable<kinC_DampingDefinitionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"COEFFICIENT", 0}, {"CRITICAL_FRACTION", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_TangentFractionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_ClearanceDependenceEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"STEP", 0}, {"LINEAR", 1}, {"BILINEAR", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_ConductanceDefinitionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"TABULAR", 0}, {"USER_DEFINED", 1}, {nullptr, 0}};
};

/// Damping of the relative motion of surfaces that come near each other.
class DDB_API kinC_Damping final : public cls_Persistent<kinC_Damping, cls_Object> {
public:
  using DefinitionEnm = kinC_DampingDefinitionEnm;
  using TangentFractionEnm = kinC_TangentFractionEnm;
  using ClearanceDependenceEnm = kinC_ClearanceDependenceEnm;

  omu_PrimEnum<DefinitionEnm> definition = DefinitionEnm::COEFFICIENT;
  double tangentFraction = cls_unsetReal;
  omu_PrimEnum<ClearanceDependenceEnm> clearanceDependence = ClearanceDependenceEnm::STEP;
  /// The damping coefficient and, but for STEP, the clearance.
  cow_2DArray<double> table{1, 1, 0.0};

  kinC_Damping();
  explicit kinC_Damping(cls_ReadVisitor const& in);

  /// Refuses: STEP 91 no coefficient; LINEAR 40 other than two rows of two columns from clearance 0 to coefficient 0, 92 a negative
  /// clearance; BILINEAR the same of three rows, the first two of one coefficient, and 40 clearances that do not rise; then 90 a negative
  /// first coefficient, 89 a negative tangent fraction.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_Damping;
    visit("definition", &Self::definition, cls_MemberText{"what the table holds"});
    visit("tangentFraction", &Self::tangentFraction,
          cls_MemberText{"damping along the surfaces as a fraction of that along the normal"}.Unset(omu_wordOf<TangentFractionEnm>));
    visit("clearanceDependence", &Self::clearanceDependence, cls_MemberText{"how damping falls off with the clearance"});
    visit("table", &Self::table,
          cls_MemberText{"with STEP a row of a coefficient, else rows of coefficient and clearance, from clearance 0 to coefficient 0",
                         "force*time/length^3, length"});
  }
};

/// What conducts between surfaces over a gap, or by the pressure between them.
struct kinC_GapConductance {
  using DefinitionEnm = kinC_ConductanceDefinitionEnm;

  omu_PrimEnum<DefinitionEnm> definition = DefinitionEnm::TABULAR;
  bool clearanceDependency = false;
  bool pressureDependency = false;
  bool temperatureDependencyC = false;
  bool temperatureDependencyP = false;
  int dependenciesC = 0;
  int dependenciesP = 0;
  cow_2DArray<double> clearanceDepTable;
  cow_2DArray<double> pressureDepTable;

  /// Refuses, of each table that it depends on: 95 fewer than two rows or columns, 94 a negative conductance; of the clearances, unless
  /// they come with temperatures or \p massFlow, 105 a first clearance and 106 a last conductance that are not exactly 0.
  DDB_API void AssertValid(bool massFlow = false) const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_GapConductance;
    visit("definition", &Self::definition, cls_MemberText{"whether tables give the conductance or a user subroutine"});
    visit("clearanceDependency", &Self::clearanceDependency, cls_MemberText{"whether it depends on the clearance"});
    visit("pressureDependency", &Self::pressureDependency, cls_MemberText{"whether it depends on the contact pressure"});
    visit("temperatureDependencyC", &Self::temperatureDependencyC, cls_MemberText{"whether the rows of clearances have temperatures"});
    visit("temperatureDependencyP", &Self::temperatureDependencyP, cls_MemberText{"whether the rows of pressures have temperatures"});
    visit("dependenciesC", &Self::dependenciesC, cls_MemberText{"number of field variables in the rows of clearances"});
    visit("dependenciesP", &Self::dependenciesP, cls_MemberText{"number of field variables in the rows of pressures"});
    visit("clearanceDepTable", &Self::clearanceDepTable,
          cls_MemberText{"rows of conductance, clearance, then what else it depends on, from clearance 0 to conductance 0"});
    visit("pressureDepTable", &Self::pressureDepTable, cls_MemberText{"rows of conductance, pressure, then what else it depends on"});
  }
};

/// Heat that passes between surfaces.
class DDB_API kinC_ThermalConductance final : public cls_Persistent<kinC_ThermalConductance, cls_Object>, public kinC_GapConductance {
public:
  bool massFlowRateDependencyC = false;
  bool massFlowRateDependencyP = false;

  kinC_ThermalConductance();
  explicit kinC_ThermalConductance(cls_ReadVisitor const& in);

  void AssertValid() const { kinC_GapConductance::AssertValid(massFlowRateDependencyC); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_ThermalConductance;
    kinC_GapConductance::VisitMembers(visit);
    visit("massFlowRateDependencyC", &Self::massFlowRateDependencyC, cls_MemberText{"whether the rows of clearances have mass flow rates"});
    visit("massFlowRateDependencyP", &Self::massFlowRateDependencyP, cls_MemberText{"whether the rows of pressures have mass flow rates"});
  }
};

/// Electric current that passes between surfaces.
class DDB_API kinC_ElectricalConductance final : public cls_Persistent<kinC_ElectricalConductance, cls_Object>, public kinC_GapConductance {
public:
  kinC_ElectricalConductance();
  explicit kinC_ElectricalConductance(cls_ReadVisitor const& in);

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_GapConductance::VisitMembers(visit); }
};

/// Heat from friction and from electric current.
class DDB_API kinC_HeatGeneration final : public cls_Persistent<kinC_HeatGeneration, cls_Object> {
public:
  double conversionFraction = 1.0;
  double slaveFraction = 0.5;

  kinC_HeatGeneration();
  explicit kinC_HeatGeneration(cls_ReadVisitor const& in);

  /// Refuses: 99 a negative conversion fraction, 100 a slave fraction outside of [0, 1].
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_HeatGeneration;
    visit("conversionFraction", &Self::conversionFraction, cls_MemberText{"fraction of the dissipated energy that becomes heat"});
    visit("slaveFraction", &Self::slaveFraction, cls_MemberText{"fraction of that heat that goes into the slave surface"});
  }
};

/// Radiation over the gap between surfaces.
class DDB_API kinC_Radiation final : public cls_Persistent<kinC_Radiation, cls_Object> {
public:
  double masterEmissivity = 0.0;
  double slaveEmissivity = 0.0;
  cow_2DArray<double> table;  ///< view factor and clearance

  kinC_Radiation();
  explicit kinC_Radiation(cls_ReadVisitor const& in);

  /// Refuses: 54 an emissivity outside of [0, 1]; of a table that has rows 72 a clearance behind the first row that is not above 0, 96
  /// clearances that do not rise, 74 a view factor outside of [0, 1], 107 a first clearance and 108 a last view factor that are not 0.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_Radiation;
    visit("masterEmissivity", &Self::masterEmissivity, cls_MemberText{"emissivity of the master surface, from 0 to 1"});
    visit("slaveEmissivity", &Self::slaveEmissivity, cls_MemberText{"emissivity of the slave surface, from 0 to 1"});
    visit("table", &Self::table, cls_MemberText{"rows of view factor and clearance, from clearance 0 to view factor 0", "-, length"});
  }
};

/// The shape of what is in contact, where elements do not tell it.
class DDB_API kinC_GeometricProperties final : public cls_Persistent<kinC_GeometricProperties, cls_Object> {
public:
  double contactArea = 1.0;
  double padThickness = cls_unsetReal;

  kinC_GeometricProperties();
  explicit kinC_GeometricProperties(cls_ReadVisitor const& in);

  /// Refuses: 159 an area that is not above 0.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_GeometricProperties;
    visit("contactArea", &Self::contactArea,
          cls_MemberText{"contact area at a node of a surface of nodes, or thickness out of the plane", "length^2"});
    visit("padThickness", &Self::padThickness, cls_MemberText{"thickness of a layer between the surfaces; none where not given", "length"});
  }
};
