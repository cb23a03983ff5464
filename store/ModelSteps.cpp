#include "store/ModelSteps.h"

#include <algorithm>
#include <numeric>

namespace gattr {

namespace {

/// Takes the pairs of a name and a step from what an extension writes.
class Collector final : public cls_WriteVisitor {
public:
  explicit Collector(std::vector<kprC_StepNameProcedurePair>& pairs) : pairs_(pairs) {}

  bool StartWrite(unsigned, cls_Uid const&) const override { return true; }
  void WriteBool(std::string_view, bool) const override {}
  void WriteInteger(std::string_view, long long) const override {}
  void WriteReal(std::string_view, double) const override {}
  void WriteText(std::string_view, std::string_view) const override {}
  void WriteNull(std::string_view) const override {}
  void WriteObject(std::string_view, cls_Object const&) const override {}
  void WriteNested(std::string_view, cls_Object const& object) const override {
    if (auto const* const pair = dynamic_cast<kprC_StepNameProcedurePair const*>(&object)) { pairs_.push_back(*pair); }
  }
  void StartList(std::string_view, std::size_t count) const override { pairs_.reserve(count); }
  void EndList() const override {}
  bool StartMap(std::string_view, std::size_t) const override { return false; }
  void EndMap() const override {}

private:
  std::vector<kprC_StepNameProcedurePair>& pairs_;
};

}  // namespace

ModelSteps::ModelSteps(ddr_Model const& model) {
  if (auto const* const steps = model.ConstExtension(ddr_Model::stepsCmd())) { steps->DBWrite(Collector(pairs_)); }
  byName_.resize(pairs_.size());
  std::iota(byName_.begin(), byName_.end(), std::size_t{0});
  std::ranges::sort(byName_, {}, [this](std::size_t index) { return pairs_[index].stepName.View(); });
}

bool ModelSteps::IsPair(std::size_t index, kprC_StepNameProcedurePair const& pair) const {
  if (index >= pairs_.size()) { return false; }
  kprC_StepNameProcedurePair const& own = pairs_[index];
  return own.stepName == pair.stepName && cls_MemberTraits<cow_Handle<kprC_Procedure>>::Equal(own.procedure, pair.procedure);
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
