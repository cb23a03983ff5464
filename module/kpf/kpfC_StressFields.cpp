#include "module/kpf/kpfC_StressFields.h"

std::size_t kpfC_StressComponents(kpfC_SectionTypeEnm section, ddr_Model::SpaceEnm space) {
  struct Row {
    std::size_t inSpace, planar, axisymmetric;
  };
  static constexpr Row kRows[] = {
      /* SOLID             */ {6, 4, 4},
      /* REGULAR_SHELL     */ {3, 0, 2},
      /* GENERALIZED_SHELL */ {6, 0, 4},
      /* MEMBRANE          */ {3, 0, 2},
      /* REGULAR_BEAM      */ {2, 1, 0},
      /* GENERALIZED_BEAM  */ {4, 2, 0},
      /* TRUSS             */ {1, 1, 0},
  };
  Row const& row = kRows[static_cast<std::size_t>(section)];
  switch (space) {
    case ddr_Model::SpaceEnm::THREE_D: return row.inSpace;
    case ddr_Model::SpaceEnm::TWO_D_PLANAR: return row.planar;
    case ddr_Model::SpaceEnm::AXISYMMETRIC: return row.axisymmetric;
  }
  return 0;
}

void kpfC_StressState::AssertValid() const {
  bool const geostatic = Distribution() == DistribTypeEnum::GEOSTATIC;
  kpfC_Assert(geostatic || !HasMagnitudes(), kpfC_ErrorEnm::GeostaticMagnitudeSuperfluous);
  kpfC_Assert(geostatic || !HasCoords(), kpfC_ErrorEnm::GeostaticCoordSuperfluous);
  kpfC_Assert(geostatic || !(lateralCoeff1.HasValue() || lateralCoeff2.HasValue()), kpfC_ErrorEnm::LateralCoeffSuperfluous);
  AssertNoTensor(kpfC_ErrorEnm::StressTensorSuperfluous);
  kpfC_Assert(!geostatic || HasBothMagnitudes(), kpfC_ErrorEnm::GeostaticMagnitudeMissing);
  kpfC_Assert(!geostatic || HasBothCoords(), kpfC_ErrorEnm::GeostaticCoordMissing);
  kpfC_Assert(!geostatic || lateralCoeff1.HasValue(), kpfC_ErrorEnm::LateralCoeffMissing);
  AssertTensor();
}

void kpfC_StressTensorState::AssertValid() const {
  AssertNoTensor(kpfC_ErrorEnm::TensorSuperfluous);
  AssertTensor();
}
