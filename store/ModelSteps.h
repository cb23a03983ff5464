#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "framework/ddr_Model.h"
#include "module/kpr/engine/kprC_StepNameProcedurePair.h"

namespace gattr {

/// The steps of a model, as a writer needs them: a step is written once, where the model holds its steps, and everywhere
/// else by its name. They are listed when somebody asks.
class ModelSteps {
public:
  ModelSteps() = default;
  explicit ModelSteps(ddr_Model const& model);

  std::vector<kprC_StepNameProcedurePair> const& Pairs() const;
  /// Whether \p object is the step called \p name. Equal content is enough, so that what is written does not depend on
  /// what is shared. Cheapest when asked in step order.
  bool IsStep(std::string_view name, cls_Object const& object) const;
  /// Whether the step at \p index has that name and is equal to \p object, which may be null.
  bool IsAt(std::size_t index, std::string_view name, cls_Object const* object) const;
  /// Whether \p extension is where the model holds its steps.
  bool IsHome(cls_Object const& extension) const { return &extension == home_.ConstGet(); }
  /// Whether \p other lists the same steps, not only equal ones.
  bool Same(ModelSteps const& other) const { return home_.Same(other.home_); }

private:
  cow_Handle<mdl_Extension> home_;
  mutable std::vector<kprC_StepNameProcedurePair> pairs_;
  mutable std::vector<std::size_t> byName_;  // positions in the order of the names
  mutable bool listed_ = false;
  mutable std::size_t expected_ = 0;
};

}  // namespace gattr
