#pragma once

#include <nlohmann/json.hpp>

#include "platform/BasicUtils/cls_Value.h"

namespace gattr {

/// Commands and their outcomes keep the order in which they were written.
using Json = nlohmann::ordered_json;

/// A JSON value as members take it. Whole numbers that a member cannot hold become real ones.
cls_Value ToValue(Json const& json);
/// A member's value as JSON; nothing is null.
Json ToJson(cls_Value const& value);

}  // namespace gattr
