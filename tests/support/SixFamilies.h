#pragma once

namespace test {

/// A journal that makes a model with an attribute of each family.
inline constexpr char const* kSixFamilies = R"({"command": "StaticStep", "name": "Step-1", "initialInc": 0.1}
{"command": "Set", "name": "Rim"}
{"command": "Surface", "name": "Face"}
{"command": "DisplacementBC", "name": "Fix", "createStepName": "Step-1", "region": "Rim", "u1": 0.0}
{"command": "Pressure", "name": "Press", "createStepName": "Step-1", "region": "Face", "magnitude": 1.0}
{"command": "ElasticFoundation", "name": "Bed", "createStepName": "Initial", "surface": "Face", "stiffness": 2.0}
{"command": "FieldOutputRequest", "name": "Fields", "createStepName": "Step-1", "variables": ["S"]}
{"command": "Temperature", "name": "Warm", "createStepName": "Step-1", "region": "Rim", "magnitudes": [20.0]}
{"command": "VelocityAdaptiveMeshConstraint", "name": "Mesh", "createStepName": "Step-1", "region": "Rim", "v1": 0.0}
)";
/// One that gives it a further step, in which each of them changes.
inline constexpr char const* kSixFamiliesEdited = R"({"command": "StaticStep", "name": "Step-2", "initialInc": 0.1}
{"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "u2": 0.5}
{"command": "setValuesInStep", "load": "Press", "stepName": "Step-2", "magnitude": 3.0}
{"command": "setValues", "interaction": "Bed", "stiffness": 4.0}
{"command": "setValuesInStep", "fieldOutputRequest": "Fields", "stepName": "Step-2", "variables": ["S", "U"]}
{"command": "setValuesInStep", "predefinedField": "Warm", "stepName": "Step-2", "magnitude": 180.0}
{"command": "setValuesInStep", "adaptiveMeshConstraint": "Mesh", "stepName": "Step-2", "v1": "FREED", "v2": 0.5}
)";

}  // namespace test
