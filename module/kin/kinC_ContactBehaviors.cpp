#include "module/kin/kinC_ContactBehaviors.h"

#include "module/kin/kinC_Checks.h"

using enum kinC_ErrorEnm;

#define KIN_BEHAVIOR(Class) \
  Class::Class() = default; \
  Class::Class(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
KIN_BEHAVIOR(kinC_Damping)
KIN_BEHAVIOR(kinC_ThermalConductance)
KIN_BEHAVIOR(kinC_ElectricalConductance)
KIN_BEHAVIOR(kinC_HeatGeneration)
KIN_BEHAVIOR(kinC_Radiation)
KIN_BEHAVIOR(kinC_GeometricProperties)
#undef KIN_BEHAVIOR

void kinC_Damping::AssertValid() const {
  using enum kinC_ClearanceDependenceEnm;
  if (clearanceDependence == STEP) {
    kinC_Assert(!table.IsEmpty(), DampingMissing);
  } else {
    bool const bilinear = clearanceDependence == BILINEAR;
    std::size_t const last = bilinear ? 2 : 1;
    kinC_Assert(table.Rows() == last + 1 && table.Columns() == 2, DampingTable);
    kinC_Assert(table.ConstGet(0, 1) == 0.0 && table.ConstGet(last, 0) == 0.0, DampingTable);
    kinC_Assert(!bilinear || table.ConstGet(0, 0) == table.ConstGet(1, 0), DampingTable);
    kinC_Assert(kinC_IsNotNegative(table, 1), DampingClearance);
    kinC_Assert(!bilinear || kinC_IsIncreasing(table, 1), DampingTable);
  }
  kinC_Assert(table.ConstGet(0, 0) >= 0.0, DampingCoefficient);
  kinC_Assert(tangentFraction >= 0.0, TangentFraction);
}

void kinC_GapConductance::AssertValid(bool massFlow) const {
  auto const assertTable = [](cow_2DArray<double> const& table) {
    kinC_Assert(table.Rows() >= 2 && table.Columns() >= 2, GapConductanceTable);
    kinC_Assert(kinC_IsNotNegative(table, 0), GapConductance);
  };
  if (clearanceDependency) {
    cow_2DArray<double> const& table = clearanceDepTable;
    assertTable(table);
    bool const exact = !temperatureDependencyC && !massFlow;
    kinC_Assert(!exact || table.ConstGet(0, 1) == 0.0, ConductivityAtZeroClearance);
    kinC_Assert(!exact || table.ConstGet(table.Rows() - 1, 0) == 0.0, ClearanceAtZeroConductivity);
  }
  if (pressureDependency) { assertTable(pressureDepTable); }
}

void kinC_HeatGeneration::AssertValid() const {
  kinC_Assert(conversionFraction >= 0.0, HeatConversionFraction);
  kinC_Assert(kinC_IsFraction(slaveFraction), HeatWeightingFactor);
}

void kinC_Radiation::AssertValid() const {
  kinC_Assert(kinC_IsFraction(masterEmissivity) && kinC_IsFraction(slaveEmissivity), Emissivity);
  if (table.IsEmpty()) { return; }
  kinC_Assert(table.Columns() >= 2, ViewFactorAtZeroClearance);
  for (std::size_t row = 1; row < table.Rows(); ++row) { kinC_Assert(table.ConstGet(row, 1) > 0.0, ClearanceNotPositive); }
  kinC_Assert(kinC_IsIncreasing(table, 1), ClearanceNotIncreasing);
  for (std::size_t row = 0; row < table.Rows(); ++row) { kinC_Assert(kinC_IsFraction(table.ConstGet(row, 0)), ViewFactor); }
  kinC_Assert(table.ConstGet(0, 1) == 0.0, ViewFactorAtZeroClearance);
  kinC_Assert(table.ConstGet(table.Rows() - 1, 0) == 0.0, ClearanceAtZeroViewFactor);
}

void kinC_GeometricProperties::AssertValid() const { kinC_Assert(contactArea > 0.0, ContactArea); }
