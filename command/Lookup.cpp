#include "command/Lookup.h"

#include "command/Command.h"
#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// Those of the families of one kind, of all where that is empty, that have an attribute called \p name.
std::vector<FoundAttribute> FindIn(ddr_Model const& model, std::string_view kind, std::string_view name) {
  std::vector<FoundAttribute> found;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    kprC_StepDependent const* const item = kind.empty() || family.ItemCmd() == kind ? family.ConstItem(name) : nullptr;
    if (item != nullptr) { found.push_back({&family, item}); }
  });
  return found;
}

}  // namespace

FoundAttribute FindAttribute(ddr_Model const& model, std::string_view kind, std::string_view name) {
  std::vector<FoundAttribute> const found = FindIn(model, kind, name);
  if (found.size() == 1) { return found.front(); }
  if (!found.empty()) {
    std::vector<std::string> meant;
    meant.reserve(found.size());
    for (FoundAttribute const& one : found) { meant.push_back(std::string(one.family->ItemCmd()).append(":").append(name)); }
    throw UnknownName(std::to_string(found.size()) + " attributes are called " + Quoted(name) + ": say which of " +
                      QuotedList(meant, meant.size()) + ".");
  }
  std::vector<std::string> known, kinds;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    if (family.ConstItem(name) != nullptr) { kinds.emplace_back(family.ItemCmd()); }
    if (!kind.empty() && family.ItemCmd() != kind) { return; }
    for (std::string& one : Texts(family.Keys())) { known.push_back(std::move(one)); }
  });
  std::string const hint = kinds.empty() ? Suggestion(name, known, "There are") : Quoted(name) + " is " + WithArticle(kinds.front()) + ".";
  throw UnknownName("There is no " + ObjectText(kind.empty() ? "attribute" : kind, name) + ". " + hint);
}

FoundAttribute FindAttribute(ddr_Model const& model, std::string_view name) {
  std::size_t const colon = name.find(':');
  std::string_view const kind = name.substr(0, colon == std::string_view::npos ? 0 : colon);
  bool const isKind = !kind.empty() && FindIn(model, {}, name).empty() &&
                      FindRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) { return family.ItemCmd() == kind; });
  return isKind ? FindAttribute(model, kind, name.substr(colon + 1)) : FindAttribute(model, {}, name);
}

cls_Object const* FindObject(ddr_Model const& model, std::string_view member, std::string_view name) {
  if (ddr_Model::stepsCmd() == member) { return kprC_Steps(model).Find(name); }
  mdl_Extension const* const all = model.ConstExtension(member);
  if (auto const* const attributes = mdl_ExtensionAs<kprC_StepAwareRepository>(all)) { return attributes->ConstItem(name); }
  auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(all);
  return named == nullptr ? nullptr : named->ConstObject(name);
}

std::vector<std::string> ObjectNamesIn(ddr_Model const& model, std::string_view member) {
  if (ddr_Model::stepsCmd() == member) { return Texts(kprC_Steps(model).Names()); }
  mdl_Extension const* const all = model.ConstExtension(member);
  if (auto const* const attributes = mdl_ExtensionAs<kprC_StepAwareRepository>(all)) { return Texts(attributes->Keys()); }
  auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(all);
  return named == nullptr ? std::vector<std::string>() : Texts(named->Keys());
}

std::vector<std::string> FindableNames(ddr_Model const& model) {
  std::vector<std::string> names;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const&) {
      bool const isShared = FindIn(model, {}, name.View()).size() > 1;
      names.push_back((isShared ? std::string(family.ItemCmd()) + ":" : std::string()).append(name.View()));
    });
  });
  return names;
}

std::size_t FindStep(ddr_Model const& model, std::string_view name) {
  kprC_StepTable const& steps = kprC_Steps(model).Table();
  std::size_t const index = steps.Find(name);
  if (index != kprC_StepTable::npos) { return index; }
  throw UnknownName("There is no " + ObjectText(kprC_Step::stepCmd(), name) + ". " +
                    Suggestion(name, Texts(kprC_Steps(model).Names()), "Steps"));
}

}  // namespace gattr
