#pragma once

#include "module/kpf/kpfC_GeneralFieldBase.h"
#include "module/kpf/kpfC_InitialState.h"
#include "module/kpf/kpfC_MaterialFields.h"
#include "module/kpf/kpfC_ScalarFields.h"
#include "module/kpf/kpfC_StressFields.h"
#include "module/kpf/kpfC_Velocity.h"
