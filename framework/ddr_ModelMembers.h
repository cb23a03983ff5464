#pragma once

#include "framework/ddr_Model.h"
#include "platform/CoreGeometry/dtmC_Datum.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/NonGeometricAttributes/ampC_Amplitude.h"
#include "platform/NonGeometricAttributes/conC_Connector.h"

/// The model's regions, amplitudes, connectors, coordinate systems and axes by name.
using ddr_RegionMap = mdl_MapString2ObjCow<rgnC_Region>;
using ddr_AmplitudeMap = mdl_MapString2ObjCow<ampC_Amplitude>;
using ddr_ConnectorMap = mdl_MapString2ObjCow<conC_Connector>;
using ddr_DatumMap = mdl_MapString2ObjCow<dtmC_Datum>;

/// Registers what every model knows beside its steps and families: the extensions "regions", "amplitudes", "connectors",
/// "coordinateSystems" and "axes".
DDB_API void ddr_RegisterModelMembers();
/// Takes them back.
DDB_API void ddr_UnregisterModelMembers();
