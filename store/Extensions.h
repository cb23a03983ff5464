#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "framework/ddr_Model.h"

namespace gattr {

/// Refuses the extension of that member name, in words such as "expected an object of class kprC_StepContainer".
using RefuseExtension = std::function<void(std::string_view member, std::string const& expected)>;

/// For a model that was read: gives it the extensions that it lacks, which are of modules that came after it was written, and
/// empty. Refuses one of another class than its module registers, and a model without steps.
void CompleteExtensions(ddr_Model& model, RefuseExtension const& refuse);

/// Refuses the lack of the extension that holds the steps.
void RefuseLackOfSteps(RefuseExtension const& refuse);

}  // namespace gattr
