#pragma once

// All types of interactions.
#include "module/kin/kinC_AcousticInteractions.h"
#include "module/kin/kinC_ActuatorSensor.h"
#include "module/kin/kinC_ContactExp.h"
#include "module/kin/kinC_ContactExpEdits.h"
#include "module/kin/kinC_ContactPairs.h"
#include "module/kin/kinC_ElasticFoundation.h"
#include "module/kin/kinC_ThermalInteractions.h"
