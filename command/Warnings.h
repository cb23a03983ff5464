#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "command/Check.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"

namespace gattr {

/// Looks at the attributes of one family for what is allowed and hardly meant. Suppressed ones act on nothing and are passed over.
class Warnings {
public:
  Warnings(kprC_StepAwareRepository const& repository, std::vector<Finding>& findings) : repository_(repository), findings_(findings) {}

  /// An attribute by itself.
  void LookAt(kprC_StepDependent const& item);
  /// What those that were looked at do to each other. Each is told of once with the one that it meets first.
  void LookAtAll();

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
    std::uint32_t components;
  };

  void LookAtRegion(kprC_StepDependent const& item);
  void LookAtValues(kprC_StepDependent const& item);
  /// Tells once of each member that \p state, of the step at \p index, leaves open.
  void LookAtOpen(kprC_StepDependent const& item, std::size_t index, cls_Object const& state, std::set<std::string_view>& told);
  void Add(FindingKind found, kprC_StepDependent const& item, std::string step, std::string member, std::string text, std::string hint);
  void LookAtSpans(Target const& target, std::vector<Span>& spans);

  kprC_StepAwareRepository const& repository_;
  std::vector<Finding>& findings_;
  std::map<Target, std::vector<Span>> spans_;
};

}  // namespace gattr
