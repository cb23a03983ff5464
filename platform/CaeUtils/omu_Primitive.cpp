#include "platform/CaeUtils/omu_Primitive.h"

omu_Primitive::~omu_Primitive() = default;
