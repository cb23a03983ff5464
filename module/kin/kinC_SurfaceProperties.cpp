#include "module/kin/kinC_SurfaceProperties.h"

kinC_FilmConditionProp::kinC_FilmConditionProp() = default;
kinC_FilmConditionProp::kinC_FilmConditionProp(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kinC_ActuatorSensorProp::kinC_ActuatorSensorProp() = default;
kinC_ActuatorSensorProp::kinC_ActuatorSensorProp(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kinC_AcousticImpedanceProp::kinC_AcousticImpedanceProp() = default;
kinC_AcousticImpedanceProp::kinC_AcousticImpedanceProp(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
