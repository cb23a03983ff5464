#pragma once

#include "framework/ddr_Model.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/NonGeometricAttributes/ampC_Amplitude.h"
#include "platform/NonGeometricAttributes/conC_Connector.h"

/// The model's regions, amplitudes and connectors by name.
using ddr_RegionMap = mdl_MapString2ObjCow<rgnC_Region>;
using ddr_AmplitudeMap = mdl_MapString2ObjCow<ampC_Amplitude>;
using ddr_ConnectorMap = mdl_MapString2ObjCow<conC_Connector>;

template <> struct cls_TypeIdOf<ddr_RegionMap> {
  static constexpr unsigned value = 0x02130003;
  static constexpr char const* kName = "mdl_MapString2ObjCow<rgnC_Region>";
};
template <> struct cls_TypeIdOf<ddr_AmplitudeMap> {
  static constexpr unsigned value = 0x02130004;
  static constexpr char const* kName = "mdl_MapString2ObjCow<ampC_Amplitude>";
};
template <> struct cls_TypeIdOf<ddr_ConnectorMap> {
  static constexpr unsigned value = 0x02130006;
  static constexpr char const* kName = "mdl_MapString2ObjCow<conC_Connector>";
};

/// Registers what every model knows beside its steps and families: the extensions "regions", "amplitudes" and
/// "connectors".
DDB_API void ddr_RegisterModelMembers();
/// Takes them back.
DDB_API void ddr_UnregisterModelMembers();
