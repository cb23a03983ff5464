#pragma once

// All interaction properties and contact controls.
#include "module/kin/kinC_ContactControls.h"
#include "module/kin/kinC_ContactProperty.h"
#include "module/kin/kinC_IncidentWaveProperty.h"
#include "module/kin/kinC_SurfaceProperties.h"
