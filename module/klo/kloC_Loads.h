#pragma once

// All types of loads.
#include "module/klo/kloC_BoltLoad.h"
#include "module/klo/kloC_ConcentratedLoads.h"
#include "module/klo/kloC_DistributedLoads.h"
#include "module/klo/kloC_FluxLoads.h"
#include "module/klo/kloC_InertiaRelief.h"
#include "module/klo/kloC_RotationLoads.h"
#include "module/klo/kloC_SubmodelStressBased.h"
#include "module/klo/kloC_Traction.h"
