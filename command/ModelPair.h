#pragma once

#include <span>
#include <string>
#include <string_view>

#include "command/Changes.h"
#include "framework/mdl_Extension.h"

/// Two models side by side: the walk behind every comparison.
namespace gattr {

class ModelPair {
public:
  /// \p renames have led from \p before to \p now. \p given: \p before has the new names already.
  ModelPair(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames, bool given = false)
      : before_(before), now_(now), renames_(renames), given_(given) {}

  ddr_Model const& Before() const { return before_; }
  ddr_Model const& Now() const { return now_; }

  /// What an object of today was called before.
  std::string NameBefore(std::string_view kind, std::string_view name) const {
    std::string before(name);
    for (std::size_t i = renames_.size(); i-- > 0;) {
      Rename const& rename = renames_[i];
      if (rename.kind == kind && rename.to == before) { before = rename.from; }
    }
    return before;
  }
  /// Under what name the model before has an object of today, and the reverse.
  std::string KeyBefore(std::string_view kind, std::string_view name) const { return given_ ? std::string(name) : NameBefore(kind, name); }
  std::string KeyNow(std::string_view kind, std::string_view name) const {
    std::string now(name);
    if (given_) { return now; }
    for (Rename const& rename : renames_) {
      if (rename.kind == kind && rename.from == now) { now = rename.to; }
    }
    return now;
  }

  /// Calls \p visit(member, was, is) for the extensions that are not the very same.
  template <class Visit> void ForEachExtension(Visit&& visit) const {
    for (auto const& [member, extension] : now_.Extensions()) {
      mdl_Extension const *const was = before_.ConstExtension(member), *const is = extension.ConstGet();
      if (was != is && was != nullptr) { visit(member, *was, *is); }
    }
  }
  /// Calls \p visit(was, name, is) for the pairs of objects that are not the very same; null is what is not there.
  template <class Find, class Visit>
  void ForEachPair(std::string_view kind, mdl_Extension const& was, mdl_Extension const& is, Find&& find, Visit&& visit) const {
    is.ForEachChange(was, [&](cow_String const& name, cls_Object const* object) {
      if (object != nullptr) { return visit(find(was, KeyBefore(kind, name.View())), name, find(is, name.View())); }
      auto const* const now = find(is, KeyNow(kind, name.View()));
      if (now == nullptr) { visit(find(was, name.View()), name, now); }
    });
  }

private:
  ddr_Model const &before_, &now_;
  std::span<Rename const> renames_;
  bool given_;
};

}  // namespace gattr
