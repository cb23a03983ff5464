#pragma once

#include "framework/ddr_Model.h"
#include "platform/CoreGeometry/dtmC_Datum.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/NonGeometricAttributes/ampC_Amplitude.h"
#include "platform/NonGeometricAttributes/conC_Connector.h"
#include "platform/NonGeometricAttributes/lcsC_LoadCase.h"

/// The model's regions, amplitudes, connectors, coordinate systems, axes and load cases by name.
using ddr_RegionMap = mdl_MapString2ObjCow<rgnC_Region>;
using ddr_AmplitudeMap = mdl_MapString2ObjCow<ampC_Amplitude>;
using ddr_ConnectorMap = mdl_MapString2ObjCow<conC_Connector>;
using ddr_DatumMap = mdl_MapString2ObjCow<dtmC_Datum>;
using ddr_LoadCaseMap = mdl_MapString2ObjCow<lcsC_LoadCase>;

/// Registers what every model knows beside its steps and families: the extensions "regions", "amplitudes", "connectors",
/// "coordinateSystems", "axes" and "loadCases".
DDB_API void ddr_RegisterModelMembers();
/// Takes them back.
DDB_API void ddr_UnregisterModelMembers();
