#include "store/ModelSteps.h"

#include <algorithm>
#include <numeric>
#include <utility>

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
  auto const* const found = model.Extensions().ConstFind(ddr_Model::stepsCmd());
  if (found != nullptr) { home_ = *found; }
}

std::vector<kprC_StepNameProcedurePair> const& ModelSteps::Pairs() const {
  if (!std::exchange(listed_, true) && home_) { home_->DBWrite(Collector(pairs_)); }
  return pairs_;
}

bool ModelSteps::IsAt(std::size_t index, std::string_view name, cls_Object const* object) const {
  if (index >= Pairs().size() || pairs_[index].stepName != name) { return false; }
  kprC_Procedure const* const own = pairs_[index].procedure.ConstGet();
  return own == object || (own != nullptr && object != nullptr && own->Equals(*object));
}

bool ModelSteps::IsStep(std::string_view name, cls_Object const& object) const {
  if (Pairs().empty()) { return false; }
  auto const nameAt = [this](std::size_t at) { return pairs_[at].stepName.View(); };
  std::size_t index = expected_ < pairs_.size() ? expected_ : 0;
  if (pairs_[index].stepName != name) {
    if (byName_.empty()) {
      byName_.resize(pairs_.size());
      std::iota(byName_.begin(), byName_.end(), std::size_t{0});
      std::ranges::sort(byName_, {}, nameAt);
    }
    auto const found = std::ranges::lower_bound(byName_, name, {}, nameAt);
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
