#pragma once

#include "module/kin/Types.h"
#include "platform/BasicUtils/cls_2DArrayTraits.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// How surfaces in contact resist sliding.
enum class kinC_FrictionFormulationEnm { FRICTIONLESS, PENALTY, EXPONENTIAL_DECAY, ROUGH, LAGRANGE, USER_DEFINED };
/// Whether friction depends on the direction. ORTHOTROPIC is refused: ANISOTROPIC has taken its place.
enum class kinC_DirectionalityEnm { ISOTROPIC, ORTHOTROPIC, ANISOTROPIC };
/// What the row of an exponential decay holds.
enum class kinC_ExponentialDecayDefinitionEnm { COEFFICIENTS, TEST_DATA };
/// How far surfaces may slide without slipping.
enum class kinC_MaximumElasticSlipEnm { FRACTION, ABSOLUTE_DISTANCE };

template <> struct omu_EnumTable<kinC_FrictionFormulationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"FRICTIONLESS", 0}, {"PENALTY", 1}, {"EXPONENTIAL_DECAY", 2}, {"ROUGH", 3}, {"LAGRANGE", 4}, {"USER_DEFINED", 5}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_DirectionalityEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"ISOTROPIC", 0}, {"ORTHOTROPIC", 1}, {"ANISOTROPIC", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_ExponentialDecayDefinitionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"COEFFICIENTS", 0}, {"TEST_DATA", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_MaximumElasticSlipEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"FRACTION", 0}, {"ABSOLUTE_DISTANCE", 1}, {nullptr, 0}};
};

/// Friction between surfaces in contact.
class DDB_API kinC_TangentialBehavior final : public cls_Persistent<kinC_TangentialBehavior, cls_Object> {
public:
  using FormulationEnm = kinC_FrictionFormulationEnm;
  using DirectionalityEnm = kinC_DirectionalityEnm;
  using ExponentialDecayDefinitionEnm = kinC_ExponentialDecayDefinitionEnm;
  using MaximumElasticSlipEnm = kinC_MaximumElasticSlipEnm;

  omu_PrimEnum<FormulationEnm> formulation = FormulationEnm::FRICTIONLESS;
  omu_PrimEnum<DirectionalityEnm> directionality = DirectionalityEnm::ISOTROPIC;
  /// One or two coefficients to a row, then what they depend on, in this order: slip rate, pressure, temperature, field variables.
  /// With an exponential decay one row: static and dynamic coefficient and decay, or two measured coefficients and a slip rate.
  cow_2DArray<double> table;
  bool slipRateDependency = false;
  bool pressureDependency = false;
  bool temperatureDependency = false;
  int dependencies = 0;
  omu_PrimEnum<ExponentialDecayDefinitionEnm> exponentialDecayDefinition = ExponentialDecayDefinitionEnm::COEFFICIENTS;
  double shearStressLimit = cls_unsetReal;
  omu_PrimEnum<MaximumElasticSlipEnm> maximumElasticSlip = MaximumElasticSlipEnm::FRACTION;
  double fraction = cls_unsetReal;
  double absoluteDistance = cls_unsetReal;
  double elasticSlipStiffness = cls_unsetReal;
  int nStateDependentVars = 0;
  bool useProperties = false;

  kinC_TangentialBehavior();
  explicit kinC_TangentialBehavior(cls_ReadVisitor const& in);

  /// Refuses, by formulation. PENALTY and LAGRANGE: 16 a shear stress limit that is not above 0, then the table: 68 a missing
  /// coefficient, 69 a missing column, 15 a negative coefficient, 101 slip rate, 102 pressure. USER_DEFINED: 19 a negative number of
  /// variables. EXPONENTIAL_DECAY: 80, 15, 81, 82 by coefficients, 68, 84, 85, 79 by test data. Then for all: 17 a fraction or 18 a
  /// distance that is not above 0, 79 a negative elastic slip stiffness, 111 ORTHOTROPIC.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_TangentialBehavior;
    visit("formulation", &Self::formulation, cls_MemberText{"how sliding is resisted"});
    visit("directionality", &Self::directionality, cls_MemberText{"whether friction depends on the direction"});
    visit("table", &Self::table,
          cls_MemberText{"rows of a friction coefficient, two where anisotropic, then slip rate, pressure, temperature and field variables "
                         "as far as it depends on them; of a decay one row: static and dynamic coefficient, decay; as test data two "
                         "coefficients, slip rate"});
    visit("slipRateDependency", &Self::slipRateDependency, cls_MemberText{"whether the rows have a column of slip rates"});
    visit("pressureDependency", &Self::pressureDependency, cls_MemberText{"whether the rows have a column of contact pressures"});
    visit("temperatureDependency", &Self::temperatureDependency, cls_MemberText{"whether the rows have a column of temperatures"});
    visit("dependencies", &Self::dependencies, cls_MemberText{"number of field variables in the rows"});
    visit("exponentialDecayDefinition", &Self::exponentialDecayDefinition, cls_MemberText{"what the row of a decay holds"});
    visit("shearStressLimit", &Self::shearStressLimit,
          cls_MemberText{"largest shear stress before surfaces slide; no limit where not given", "force/length^2"});
    visit("maximumElasticSlip", &Self::maximumElasticSlip, cls_MemberText{"how the largest elastic slip is given"});
    visit("fraction", &Self::fraction,
          cls_MemberText{"the largest elastic slip as a fraction of the size of an element; the solver's where not given"});
    visit("absoluteDistance", &Self::absoluteDistance, cls_MemberText{"the largest elastic slip as a distance", "length"});
    visit("elasticSlipStiffness", &Self::elasticSlipStiffness,
          cls_MemberText{"shear stress per elastic slip; rigid until surfaces slide where not given", "force/length^3"});
    visit("nStateDependentVars", &Self::nStateDependentVars, cls_MemberText{"number of variables that a user subroutine keeps"});
    visit("useProperties", &Self::useProperties, cls_MemberText{"whether the rows hold what a user subroutine is to be given"});
  }

private:
  DDB_LOCAL void AssertFrictionTable() const;
  DDB_LOCAL void AssertDecay() const;
};
