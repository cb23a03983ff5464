#include <algorithm>
#include <iterator>

#include "command/Command.h"
#include "command/Members.h"
#include "framework/ddr_ModelMembers.h"
#include "module/kfd/kfdC_Field.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr char const* kGroup = "references";
constexpr std::string_view kName = "name", kNewName = "newName", kRegion = "region";

/// A kind whose objects, of class \p T, the model keeps in a \p Map under the member name \p Extension().
template <class T, class Map, auto Extension>
constexpr ReferenceKind Kind(std::string_view kind, bool (*uses)(kprC_StepDependent const&, std::string_view)) {
  return {
      .kind = kind,
      .names = [](ddr_Model const& model) { return Texts(model.ConstGet<Map>(Extension()).Keys()); },
      .find = [](ddr_Model const& model, std::string_view name) -> cls_Object const* {
        return model.ConstGet<Map>(Extension()).ConstGet(name);
      },
      .put =
          [](ddr_Model& model, cow_String const& name, cls_Object const& object) {
            auto copy = cow_Handle<T>::Make(dynamic_cast<T const&>(object));
            if constexpr (requires { copy.Get().name = name; }) { copy.Get().name = name; }
            if constexpr (requires { copy->AssertValid(); }) { copy->AssertValid(); }
            copy.Get().NewUid();
            model.Get<Map>(Extension()).Insert(name, std::move(copy));
          },
      .remove = [](ddr_Model& model, cow_String const& name) { model.Get<Map>(Extension()).Remove(name); },
      .uses = uses,
  };
}

bool UsesRegion(kprC_StepDependent const& item, std::string_view name) {
  return std::ranges::any_of(std::to_array({rgnC_Set, rgnC_Surface}), [&](rgnC_RegionType type) {
    return std::ranges::any_of(item.Regions(type), [&](rgnC_Region const& region) { return region.Name() == name; });
  });
}
bool UsesAmplitude(kprC_StepDependent const& item, std::string_view name) {
  return std::ranges::any_of(item.Amplitudes(), [&](cow_String const& used) { return used == name; });
}
bool UsesConnector(kprC_StepDependent const& item, std::string_view name) {
  return std::ranges::any_of(item.Connectors(), [&](cow_String const& used) { return used == name; });
}
bool IsNoUser(kprC_StepDependent const&, std::string_view) { return false; }
bool UsesField(kprC_StepDependent const& item, std::string_view name) { return item.FieldName() == name; }

/// A command that declares an object.
struct ReferenceConstruction {
  std::string_view command;
  std::string_view kind;
  std::string_view meaning;
  std::unique_ptr<cls_Object> (*make)(cow_String const& name);
};

constexpr ReferenceConstruction kConstructions[] = {
    {"Set", kRegion, "declares a set: a region of the model that attributes act on",
     [](cow_String const& name) -> std::unique_ptr<cls_Object> { return std::make_unique<rgnC_Region>(name, rgnC_Set); }},
    {"Surface", kRegion, "declares a surface: a region of the model that attributes act on",
     [](cow_String const& name) -> std::unique_ptr<cls_Object> { return std::make_unique<rgnC_Region>(name, rgnC_Surface); }},
    {"Amplitude", "amplitude", "declares a variation over time that attributes refer to by its name",
     [](cow_String const&) -> std::unique_ptr<cls_Object> { return std::make_unique<ampC_Amplitude>(); }},
    {"Connector", "connector", "declares a connector element and the components of relative motion that it offers",
     [](cow_String const&) -> std::unique_ptr<cls_Object> { return std::make_unique<conC_Connector>(); }},
    {kfdC_Field::constructorCmd(), "field", "declares a variation in space that attributes refer to by its name",
     [](cow_String const&) -> std::unique_ptr<cls_Object> { return std::make_unique<kfdC_Field>(); }},
    {kprC_TimePoint::constructorCmd(), "timePoint", "declares a sequence of times that output requests refer to by its name",
     [](cow_String const& name) -> std::unique_ptr<cls_Object> { return std::make_unique<kprC_TimePoint>(name); }},
};

/// Name and kind belong to the construction.
std::vector<MemberArgument> ArgumentsOf(cls_Object const& object) { return MemberArguments(object, {kName, "kind"}); }

/// The members of an attribute that hold the region of that name.
std::vector<std::string> RegionMembers(kprC_StepDependent const& item, std::string_view region) {
  std::vector<std::string> members;
  for (cls_MemberInfo const& info : ClassOf(item).members) {
    if (info.typeId != rgnC_Region::TypeId() || info.many) { continue; }
    cls_Value const value = item.Member(info.name);
    auto const* name = value.As<std::string>();
    if (name != nullptr && *name == region) { members.push_back(info.name); }
  }
  return members;
}

/// An attribute by its repository's member name and its own.
struct User {
  cow_String extension, name;
};

/// The attributes that refer to the object.
std::vector<User> UsersOf(ddr_Model const& model, ReferenceKind const& kind, std::string_view name) {
  std::vector<User> users;
  ForEachRepository(model, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    repository.ForEach([&](cow_String const& user, kprC_StepDependent const& item) {
      if (kind.uses(item, name)) { users.push_back({extension, user}); }
    });
  });
  return users;
}

/// Hands a region that has changed, or changed its name, to the attributes that hold it.
void HandOut(Call& call, std::vector<User> const& users, std::string_view name, rgnC_Region const& region) {
  cls_Value const whole = cls_ObjectTraits<rgnC_Region>::ToValue(region);
  for (User const& user : users) {
    auto& repository = call.model.Get<kprC_StepAwareRepository>(user.extension);
    kprC_StepDependent& item = *repository.Item(user.name);
    for (std::string const& member : RegionMembers(item, name)) { item.SetMember(member, whole); }
    AskOther(call, repository, user.name, [&] { item.AssertValid(); });
    repository.RecordModify(user.name);
  }
}

std::vector<std::string> AttributesWith(Call& call, ReferenceKind const& kind, std::string_view name) {
  std::vector<std::string> users;
  for (User const& user : UsersOf(call.model, kind, name)) {
    users.push_back(ObjectText(call.model.ConstGet<kprC_StepAwareRepository>(user.extension).ItemCmd(), user.name));
  }
  return users;
}

/// The steps that name a region.
std::vector<std::string> StepsWith(Call& call, ReferenceKind const& kind, std::string_view name) {
  std::vector<std::string> users;
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  for (std::size_t i = 0; kind.kind == kRegion && i < steps.Size(); ++i) {
    if (std::ranges::count(RegionsOf(steps.Step(i)), name) > 0) { users.push_back(ObjectText(kprC_Step::stepCmd(), steps.Name(i))); }
  }
  return users;
}

void AssertUnused(Call& call, ReferenceKind const& kind, std::string_view name, std::string_view edit,
                  std::vector<std::string> const& users) {
  if (users.empty()) { return; }
  std::string text = "The " + ObjectText(kind.kind, name) + " cannot be " + std::string(edit) + ": it is in use by ";
  constexpr std::size_t kShown = 8;
  for (std::size_t i = 0; i < std::min(users.size(), kShown); ++i) { text += (i == 0 ? "" : ", ") + users[i]; }
  if (users.size() > kShown) { text += " and " + std::to_string(users.size() - kShown) + " more"; }
  RefuseEdit(call.subject, text + ".");
}

cow_String FreeName(Call& call, std::string_view argument, ReferenceKind const& kind) {
  cow_String name = call.arguments.Name(argument);
  if (kind.find(call.model, name) != nullptr) {
    RefuseValue(call.subject, "There is a " + std::string(kind.kind) + " " + Quoted(name) + " already.");
  }
  return name;
}

}  // namespace

std::vector<ReferenceKind> const& ReferenceKinds() {
  static std::vector<ReferenceKind> const kinds = {
      Kind<rgnC_Region, ddr_RegionMap, &ddr_Model::regionsCmd>(kRegion, &UsesRegion),
      Kind<ampC_Amplitude, ddr_AmplitudeMap, &ddr_Model::amplitudesCmd>("amplitude", &UsesAmplitude),
      Kind<conC_Connector, ddr_ConnectorMap, &ddr_Model::connectorsCmd>("connector", &UsesConnector),
      Kind<kfdC_Field, kfdC_FieldMap, &ddr_Model::fieldsCmd>("field", &UsesField),
      Kind<kprC_TimePoint, kprC_TimePointMap, &kprC_TimePoint::repositoryCmd>("timePoint", &IsNoUser),
  };
  return kinds;
}

ReferenceKind const& ReferenceKindOf(std::string_view kind) { return *std::ranges::find(ReferenceKinds(), kind, &ReferenceKind::kind); }

cls_Object const& Referred(Call& call, ReferenceKind const& kind, std::string_view name) {
  cls_Object const* object = kind.find(call.model, name);
  if (object == nullptr) {
    RefuseUnknown(call.subject, "There is no " + ObjectText(kind.kind, name) + ".", Suggestion(name, kind.names(call.model), "There are"));
  }
  return *object;
}

std::vector<CommandInfo> ReferenceConstructions() {
  std::vector<CommandInfo> infos;
  for (ReferenceConstruction const& construction : kConstructions) {
    CommandInfo info{std::string(construction.command), kGroup, std::string(construction.meaning), {}};
    info.arguments.push_back({std::string(kName), "the new object's name", "", {}, true});
    for (MemberArgument const& member : ArgumentsOf(*construction.make(cow_String()))) { info.arguments.push_back(Describe(member)); }
    infos.push_back(std::move(info));
  }
  return infos;
}

bool ConstructReference(Call& call) {
  auto const construction = std::ranges::find(kConstructions, call.arguments.Command(), &ReferenceConstruction::command);
  if (construction == std::end(kConstructions)) { return false; }
  ReferenceKind const& kind = ReferenceKindOf(construction->kind);
  cow_String const name = FreeName(call, kName, kind);
  call.subject.object = Quoted(name);
  std::unique_ptr<cls_Object> const object = construction->make(name);
  SetMembers(call.subject, *object, ArgumentsOf(*object), call.arguments.Rest());
  kind.put(call.model, name, *object);
  return true;
}

void SetReferenceValues(Call& call, ReferenceKind const& kind, cow_String const& name) {
  std::unique_ptr<cls_Object> const object = kind.find(call.model, name)->Copy();
  SetMembers(call.subject, *object, ArgumentsOf(*object), call.arguments.Rest());
  kind.put(call.model, name, *object);
  std::vector<User> const users = UsersOf(call.model, kind, name);
  if (auto const* region = dynamic_cast<rgnC_Region const*>(object.get())) { HandOut(call, users, name, *region); }
  for (User const& user : users) {
    auto const& repository = call.model.ConstGet<kprC_StepAwareRepository>(user.extension);
    AskOther(call, repository, user.name, [&] { AssertInModel(call, *repository.ConstItem(user.name)); });
  }
}

void RenameReference(Call& call, ReferenceKind const& kind, cow_String const& name) {
  cow_String const newName = FreeName(call, kNewName, kind);
  call.arguments.AssertNoRest({std::string(kNewName)});
  std::unique_ptr<cls_Object> const object = kind.find(call.model, name)->Copy();
  object->SetMember(kName, std::string(newName.View()));
  kind.remove(call.model, name);
  kind.put(call.model, newName, *object);
  auto const* region = dynamic_cast<rgnC_Region const*>(object.get());
  AssertUnused(call, kind, name, "renamed", region != nullptr ? StepsWith(call, kind, name) : AttributesWith(call, kind, name));
  if (region != nullptr) { HandOut(call, UsersOf(call.model, kind, name), name, *region); }
}

void DeleteReference(Call& call, ReferenceKind const& kind, cow_String const& name) {
  call.arguments.AssertNoRest({});
  std::vector<std::string> users = AttributesWith(call, kind, name);
  std::ranges::move(StepsWith(call, kind, name), std::back_inserter(users));
  AssertUnused(call, kind, name, "deleted", users);
  kind.remove(call.model, name);
}

}  // namespace gattr
