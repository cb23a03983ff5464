#include "store/ModelSteps.h"

#include <algorithm>
#include <numeric>

#include "store/ObservingVisitor.h"

namespace gattr {

namespace {

/// Takes the pairs of a name and a step from what an extension writes.
class Collector final : public ObservingVisitor {
public:
  explicit Collector(std::vector<kprC_StepNameProcedurePair>& pairs) : pairs_(pairs) {}

  void WriteNested(std::string_view, cls_Object const& object) const override {
    if (auto const* const pair = dynamic_cast<kprC_StepNameProcedurePair const*>(&object)) { pairs_.push_back(*pair); }
  }

private:
  std::vector<kprC_StepNameProcedurePair>& pairs_;
};

}  // namespace

ModelSteps::ModelSteps(ddr_Model const& model) {
  home_ = model.ConstExtension(ddr_Model::stepsCmd());
  if (home_ != nullptr) { home_->DBWrite(Collector(pairs_)); }
  byName_.resize(pairs_.size());
  std::iota(byName_.begin(), byName_.end(), std::size_t{0});
  std::ranges::sort(byName_, {}, [this](std::size_t index) { return pairs_[index].stepName.View(); });
}

bool ModelSteps::IsAt(std::size_t index, std::string_view name, cls_Object const* object) const {
  if (index >= pairs_.size() || pairs_[index].stepName != name) { return false; }
  kprC_Procedure const* const own = pairs_[index].procedure.ConstGet();
  return own == object || (own != nullptr && object != nullptr && own->Equals(*object));
}

bool ModelSteps::IsStep(std::string_view name, cls_Object const& object) const {
  if (pairs_.empty()) { return false; }
  std::size_t index = expected_ < pairs_.size() ? expected_ : 0;
  if (pairs_[index].stepName != name) {
    auto const found = std::ranges::lower_bound(byName_, name, {}, [this](std::size_t at) { return pairs_[at].stepName.View(); });
    if (found == byName_.end() || pairs_[*found].stepName != name) { return false; }
    index = *found;
  }
  auto const& procedure = pairs_[index].procedure;
  if (!procedure) { return false; }
  bool const same = procedure.ConstGet() == &object || procedure->Equals(object);
  if (same) { expected_ = index + 1; }
  return same;
}

}  // namespace gattr
