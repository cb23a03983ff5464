#pragma once

#include <nlohmann/json.hpp>

#include "platform/BasicUtils/cls_Value.h"

namespace gattr {

/// What is written keeps the order in which it was put together.
using Json = nlohmann::ordered_json;

/// A value as JSON; nothing is null.
Json ToJson(cls_Value const& value);

}  // namespace gattr
