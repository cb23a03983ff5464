#include "platform/CaeUtils/mdl_PropagationStatus.h"

template class omu_PrimEnum<mdl_PropagationStatusEnm, 1>;
