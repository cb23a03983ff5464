#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "command/Check.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"

namespace gattr {

/// Looks at a model for what is allowed and hardly meant: family by family at its attributes, then at all that they left. Suppressed
/// attributes act on nothing, but use what they name.
class Warnings {
public:
  Warnings(ddr_Model const& model, std::vector<Finding>& findings);

  /// From here on attributes are those of \p repository.
  void Begin(kprC_StepAwareRepository const& repository) { repository_ = &repository; }
  /// An attribute by itself.
  void LookAt(kprC_StepDependent const& item);
  /// What the family's attributes that were looked at do to each other. Each is told of once with the one that it meets first.
  void LookAtFamily();
  /// Behind all families: steps in which nothing holds, and what nobody names.
  void LookAtModel();

private:
  /// What attributes can both prescribe: a quantity of a region or connector, in a coordinate system.
  struct Target {
    cls_Reference kind;
    std::string name, csys;
    unsigned quantity;

    auto operator<=>(Target const&) const = default;
  };
  struct Span {
    std::size_t begin, end;  ///< positions of steps; end is one past the last
    kprC_StepDependent const* item;
    cls_Object const* state;
    std::uint32_t components;
  };

  void LookAtRegion(kprC_StepDependent const& item);
  void LookAtValues(kprC_StepDependent const& item);
  /// Tells once of each member that \p state, of the step at \p index, leaves open.
  void LookAtOpen(kprC_StepDependent const& item, std::size_t index, cls_Object const& state, std::set<std::string_view>& told);
  void Add(FindingKind found, kprC_StepDependent const& item, std::string step, std::string member, std::string text, std::string hint);
  void LookAtSpans(Target const& target, std::vector<Span>& spans);
  void LookAtHold();
  void LookAtUnused();
  /// Keeps what \p object names.
  void NoteNames(cls_Object const& object);
  static bool PrescribeAlike(Span const& span, Span const& other, int component);

  ddr_Model const& model_;
  kprC_StepAwareRepository const* repository_ = nullptr;
  std::vector<Finding>& findings_;
  std::map<Target, std::vector<Span>> spans_;
  std::vector<int> holding_;  // by step: how many that hold begin, less those that end
  std::map<cls_Reference, std::unordered_set<std::string>> named_;
};

}  // namespace gattr
