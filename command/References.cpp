#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "command/Command.h"
#include "framework/ddr_ModelMembers.h"
#include "module/kfd/kfdC_Field.h"
#include "module/kin/kinC_Interaction.h"
#include "module/kin/kinC_Properties.h"
#include "module/klo/kloC_Load.h"
#include "module/kor/korC_Filter.h"
#include "module/kor/korC_IntegratedOutputSection.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "platform/NonGeometricAttributes/ampC_Curves.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr char const* kGroup = "references";

constexpr ReferenceKind kKinds[] = {
    {cls_Reference::Region, "region", ddr_Model::regionsCmd(), "There are"},
    {cls_Reference::Amplitude, "amplitude", ddr_Model::amplitudesCmd(), "Amplitudes"},
    {cls_Reference::Connector, "connector", ddr_Model::connectorsCmd(), "There are"},
    {cls_Reference::Field, "field", ddr_Model::fieldsCmd(), "Fields"},
    {cls_Reference::TimePoint, "timePoint", kprC_TimePoint::repositoryCmd(), "There are"},
    {cls_Reference::CoordinateSystem, "coordinateSystem", ddr_Model::coordinateSystemsCmd(), "There are"},
    {cls_Reference::Axis, "axis", ddr_Model::axesCmd(), "There are"},
    {cls_Reference::Property, kinC_InteractionProperty::interactionPropertyCmd(), kinC_InteractionProperty::interactionPropertiesCmd(),
     "There are"},
    {cls_Reference::ContactControls, kinC_ContactControls::contactControlsCmd(), kinC_ContactControls::contactControlsCmd(), "There are"},
    {cls_Reference::Filter, korC_Filter::filterCmd(), korC_Filter::repositoryCmd(), "There are"},
    {cls_Reference::IntegratedOutputSection, korC_IntegratedOutputSection::integratedOutputSectionCmd(),
     korC_IntegratedOutputSection::repositoryCmd(), "There are"},
    {cls_Reference::None, lcsC_LoadCase::loadCaseCmd(), lcsC_LoadCase::repositoryCmd(), "There are", &AssertLoadCase},
};

/// A command that declares an object.
struct Declaration {
  std::string_view command;
  std::string_view kind;
  std::string_view meaning;
  std::unique_ptr<cls_Object> (*make)();
};

template <class T> std::unique_ptr<cls_Object> Make() { return std::make_unique<T>(); }
template <rgnC_RegionType Type> std::unique_ptr<cls_Object> MakeRegion() { return std::make_unique<rgnC_Region>(cow_String(), Type); }

constexpr Declaration kDeclarations[] = {
    {"Set", "region", "declares a set: a region of the model that attributes act on", &MakeRegion<rgnC_Set>},
    {"Surface", "region", "declares a surface: a region of the model that attributes act on", &MakeRegion<rgnC_Surface>},
    {"Amplitude", "amplitude", "declares a variation over time that attributes refer to by its name", &Make<ampC_Amplitude>},
    {ampC_TabularAmplitude::constructorCmd(), "amplitude", "declares a variation over time along straight lines from point to point",
     &Make<ampC_TabularAmplitude>},
    {ampC_SmoothStepAmplitude::constructorCmd(), "amplitude",
     "declares a variation over time that goes from point to point with neither speed nor acceleration at either",
     &Make<ampC_SmoothStepAmplitude>},
    {ampC_PeriodicAmplitude::constructorCmd(), "amplitude", "declares a variation over time that swings: a Fourier series",
     &Make<ampC_PeriodicAmplitude>},
    {ampC_DecayAmplitude::constructorCmd(), "amplitude", "declares a variation over time that jumps and decays",
     &Make<ampC_DecayAmplitude>},
    {"Connector", "connector", "declares a connector element and the components of relative motion that it offers", &Make<conC_Connector>},
    {kfdC_Field::constructorCmd(), "field", "declares a variation in space that attributes refer to by its name", &Make<kfdC_Field>},
    {kprC_TimePoint::constructorCmd(), "timePoint", "declares a sequence of times that output requests refer to by its name",
     &Make<kprC_TimePoint>},
    {"DatumCsys", "coordinateSystem", "declares a coordinate system that attributes refer to by its name", &Make<dtmC_Datum>},
    {"DatumAxis", "axis", "declares an axis that attributes refer to by its name", &Make<dtmC_Datum>},
    {kinC_ContactProperty::constructorCmd(), kinC_InteractionProperty::interactionPropertyCmd(),
     "creates a property of contact: how surfaces behave that touch", &Make<kinC_ContactProperty>},
    {kinC_FilmConditionProp::constructorCmd(), kinC_InteractionProperty::interactionPropertyCmd(),
     "creates a property of film conditions: the heat that a surface gives to a fluid", &Make<kinC_FilmConditionProp>},
    {kinC_ActuatorSensorProp::constructorCmd(), kinC_InteractionProperty::interactionPropertyCmd(),
     "creates a property of actuators and sensors: what their user element is given", &Make<kinC_ActuatorSensorProp>},
    {kinC_AcousticImpedanceProp::constructorCmd(), kinC_InteractionProperty::interactionPropertyCmd(),
     "creates a property of acoustic impedances: how a surface answers to sound", &Make<kinC_AcousticImpedanceProp>},
    {kinC_IncidentWaveProperty::constructorCmd(), kinC_InteractionProperty::interactionPropertyCmd(),
     "creates a property of incident waves: how they travel and decay", &Make<kinC_IncidentWaveProperty>},
    {kinC_StdContactControls::constructorCmd(), kinC_ContactControls::contactControlsCmd(),
     "creates controls of contact pairs that are solved by equilibrium iterations", &Make<kinC_StdContactControls>},
    {kinC_ExpContactControls::constructorCmd(), kinC_ContactControls::contactControlsCmd(),
     "creates controls of contact pairs in explicit steps", &Make<kinC_ExpContactControls>},
    {korC_Filter::constructorCmd(), korC_Filter::filterCmd(), "declares what smooths histories of output", &Make<korC_Filter>},
    {korC_IntegratedOutputSection::constructorCmd(), korC_IntegratedOutputSection::integratedOutputSectionCmd(),
     "creates a surface over which output sums up forces and moments", &Make<korC_IntegratedOutputSection>},
    {lcsC_LoadCase::constructorCmd(), lcsC_LoadCase::loadCaseCmd(), "declares a load case: attributes of a step that act together",
     &Make<lcsC_LoadCase>},
};

bool Names(cls_Object const& object, cls_Reference reference, std::string_view name) {
  bool found = false;
  cls_ForEachReference(object.MemberRows(), &object, [&](cls_Reference kind, std::string_view named, cls_Object const*) {
    found = found || (kind == reference && named == name);
  });
  return found;
}

/// An attribute, or what others refer to by name, by the member name of what holds it and its own; a step where the first is empty.
struct User {
  cow_String extension, name;
};

/// The attributes, then the steps, then of what is referred to by name itself that which names the object.
std::vector<User> UsersOf(ddr_Model const& model, cls_Reference reference, std::string_view name) {
  std::vector<User> users;
  if (reference == cls_Reference::None) { return users; }
  ForEachRepository(model, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    repository.ForEach([&](cow_String const& user, kprC_StepDependent const& item) {
      if (Names(item, reference, name)) { users.push_back({extension, user}); }
    });
  });
  kprC_StepContainer const& steps = kprC_Steps(model);
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    if (Names(steps.Step(i), reference, name)) { users.push_back({cow_String(), steps.Name(i)}); }
  }
  for (ReferenceKind const& other : kKinds) {
    for (cow_String const& user : other.In(model).Keys()) {
      if (Names(*other.In(model).ConstObject(user), reference, name)) { users.push_back({cow_String(other.extension), user}); }
    }
  }
  return users;
}

/// The repository of an attribute that is a user; null where the user is something else.
kprC_StepAwareRepository const* RepositoryOf(ddr_Model const& model, User const& user) {
  return mdl_ExtensionAs<kprC_StepAwareRepository>(model.ConstExtension(user.extension));
}

/// 'boundaryCondition "Fix"'.
std::string TextOf(ddr_Model const& model, User const& user) {
  if (user.extension.IsEmpty()) { return ObjectText(kprC_Step::stepCmd(), user.name); }
  if (auto const* repository = RepositoryOf(model, user)) { return ObjectText(repository->ItemCmd(), user.name); }
  return ObjectText(std::ranges::find(kKinds, user.extension.View(), &ReferenceKind::extension)->kind, user.name);
}

/// Has the users of an object follow it to its new name, or to what it is now.
void Redirect(Call& call, std::vector<User> const& users, cls_Redirection const& to) {
  for (User const& user : users) {
    if (user.extension.IsEmpty()) {
      kprC_StepContainer const& steps = kprC_Steps(call.model);
      kprC_StepHandle step = steps.Handle(steps.Index(user.name));
      kprC_Step& own = step.Get();
      own.NewUid();
      cls_Redirect(own.MemberRows(), &own, to);
      kprC_ReplaceStep(call.model, user.name, step);
      continue;
    }
    if (RepositoryOf(call.model, user) == nullptr) {
      auto& objects = call.model.Get<mdl_NamedObjects>(user.extension);
      std::unique_ptr<cls_Object> const object = objects.ConstObject(user.name)->Copy();
      cls_Redirect(object->MemberRows(), object.get(), to);
      objects.Put(user.name, *object);
      continue;
    }
    auto& repository = call.model.Get<kprC_StepAwareRepository>(user.extension);
    AskOther(call, repository, user.name, [&] { repository.Item(user.name)->Redirect(to); });
    repository.RecordModify(user.name);
  }
}

/// Refuses to delete what others name.
void AssertUnused(Call const& call, cls_Reference reference, std::string_view kind, cow_String const& name) {
  std::vector<std::string> users;
  for (User const& user : UsersOf(call.model, reference, name)) { users.push_back(TextOf(call.model, user)); }
  if (users.empty()) { return; }
  std::string text = "The " + ObjectText(kind, name) + " cannot be deleted: it is in use by ";
  constexpr std::size_t kShown = 8;
  for (std::size_t i = 0; i < std::min(users.size(), kShown); ++i) { text += (i == 0 ? "" : ", ") + users[i]; }
  if (users.size() > kShown) { text += " and " + std::to_string(users.size() - kShown) + " more"; }
  RefuseEdit(call.subject, text + ".");
}

cow_String FreeName(Call& call, std::string_view argument, ReferenceKind const& kind, cow_String const& own = {}) {
  cow_String name = call.arguments.Name(argument);
  if (name != own && kind.In(std::as_const(call.model)).ConstObject(name) != nullptr) {
    RefuseValue(call.subject, "There is " + WithArticle(kind.kind) + " " + Quoted(name) + " already.");
  }
  return name;
}

/// Raises the family's refusal of a name that the model does not have, where it numbers that.
void RefuseNumbered(Call& call, kprC_StepAwareRepository const* repository, ReferenceKind const& kind, std::string_view name) {
  std::optional<int> const code = repository != nullptr ? UnknownCode(repository->EditRefusals(), kind.reference) : std::nullopt;
  if (!code) { return; }
  call.subject.hint = Suggestion(name, Texts(kind.In(std::as_const(call.model)).Keys()), kind.known);
  call.subject.atFault = true;
  repository->Refuse(*code);
}

/// A region that is given by its members has to be the declared one.
void ResolveWholeRegion(Call& call, ReferenceKind const& kind, cls_Value& value) {
  cls_Value::Fields const& given = *value.As<cls_Value::Fields>();
  auto const name = std::ranges::find(given, "name", &std::pair<std::string, cls_Value>::first);
  auto const* text = name == given.end() ? nullptr : name->second.As<std::string>();
  if (text == nullptr || text->empty()) { return; }  // no region
  cls_Object const& declared = Referred(call, kind, *text);
  for (auto const& [member, said] : given) {
    if (ClassOf(declared).Find(member) == nullptr || declared.Member(member) == said) { continue; }  // an unknown member is refused as such
    RefuseValue(call.subject, "The " + ObjectText(kind.kind, *text) + " is declared with another " + Quoted(member) + ".");
  }
  value = cls_RowsToValue(declared.MemberRows(), &declared);
}

/// Completes one value of a member, or of an element of its list.
void Resolve(Call& call, kprC_StepAwareRepository const* repository, cls_MemberInfo const& info, cls_Value& value) {
  if (auto* list = std::get_if<cls_Value::List>(&value.data)) {
    for (cls_Value& element : *list) { Resolve(call, repository, info, element); }
    return;
  }
  if (auto* fields = std::get_if<cls_Value::Fields>(&value.data)) {
    if (info.typeId == rgnC_Region::TypeId()) { return ResolveWholeRegion(call, *FindReferenceKind(cls_Reference::Region), value); }
    cls_ClassMetadata const* const record = cls_MetadataRegistrar::Registrar().Find(info.typeId);
    for (auto& [name, field] : *fields) {
      cls_MemberInfo const* member = record == nullptr ? nullptr : record->Find(name);
      if (member != nullptr) { Resolve(call, repository, *member, field); }
    }
    return;
  }
  ReferenceKind const* const kind = FindReferenceKind(info.refers);
  if (kind == nullptr) { return; }
  auto const* text = value.As<std::string>();
  if (text == nullptr) {
    if (kind->reference == cls_Reference::Amplitude) { RefuseNumbered(call, repository, *kind, ""); }
    return;  // refused as no text
  }
  if (info.propagating && IsStateWord(*text)) { return; }
  if (std::ranges::find(info.permissible, *text) != info.permissible.end()) {  // the member's word for no object
    value = "";
    return;
  }
  if (text->empty()) {
    bool const asked = repository != nullptr && kind->reference == cls_Reference::Amplitude;
    std::optional<int> const code = asked ? repository->EditRefusals().amplitudeName : std::nullopt;
    if (!code) { return; }
    call.subject.hint = "The name is empty.";
    call.subject.atFault = true;
    repository->Refuse(*code);
  }
  if (kind->reference == cls_Reference::CoordinateSystem && dtmC_DatumRef::globalName() == *text) {
    value = "";
    return;
  }
  cls_Object const* object = kind->In(std::as_const(call.model)).ConstObject(*text);
  if (object == nullptr) {
    RefuseNumbered(call, repository, *kind, *text);
    object = &Referred(call, *kind, *text);  // which refuses
  }
  if (info.typeId == rgnC_Region::TypeId()) { value = cls_RowsToValue(object->MemberRows(), object); }  // held whole
}

}  // namespace

std::optional<int> UnknownCode(kprC_EditRefusalCodes const& codes, cls_Reference reference) {
  switch (reference) {
    case cls_Reference::Amplitude: return codes.amplitudeUnknown;
    case cls_Reference::Field: return codes.fieldUnknown;
    case cls_Reference::Property: return codes.propertyUnknown;
    default: return std::nullopt;
  }
}

std::span<ReferenceKind const> ReferenceKinds() { return kKinds; }

ReferenceKind const* FindReferenceKind(cls_Reference reference) {
  if (reference == cls_Reference::None) { return nullptr; }
  auto const found = std::ranges::find(kKinds, reference, &ReferenceKind::reference);
  return found == std::end(kKinds) ? nullptr : &*found;
}

cls_Object const& Referred(Call& call, ReferenceKind const& kind, std::string_view name) {
  mdl_NamedObjects const& known = kind.In(std::as_const(call.model));
  cls_Object const* object = known.ConstObject(name);
  if (object == nullptr) {
    RefuseUnknown(call.subject, "There is no " + ObjectText(kind.kind, name) + ".", Suggestion(name, Texts(known.Keys()), "There are"));
  }
  return *object;
}

void ResolveReference(Call& call, kprC_StepAwareRepository const* repository, cls_MemberInfo const& info,
                      kprC_Arguments::value_type& argument) {
  std::string const before = std::exchange(call.subject.member, argument.first);
  Resolve(call, repository, info, argument.second);
  call.subject.member = before;
}

void ResolveReferences(Call& call, kprC_StepAwareRepository const* repository, cls_ClassMetadata const& type, kprC_Arguments& members) {
  for (auto& argument : members) {
    cls_MemberInfo const* const info = FindArgument(type, argument.first);
    if (info != nullptr && NamesSomething(*info)) { ResolveReference(call, repository, *info, argument); }
  }
}

void SetObjectMembers(Call& call, kprC_StepAwareRepository const* repository, cls_Object& object, kprC_Arguments members) {
  SetMembers(call.subject, object, members);
  cls_ClassMetadata const& type = ClassOf(object);
  ResolveReferences(call, repository, type, members);
  for (auto& [name, value] : members) {  // what is held whole is complete now
    FitNull(call.subject, *FindArgument(type, name), value);
    object.SetMember(name, value);
  }
}

void ForEachUnknown(ddr_Model const& model, cls_Object const& object,
                    std::function<void(ReferenceKind const& kind, std::string_view name, std::string_view member)> const& visit) {
  std::set<std::pair<cls_Reference, std::string>> told;
  ForEachNamed(object, [&](cls_MemberRow const& row, cls_Reference reference, std::string_view name, cls_Object const*) {
    ReferenceKind const* const kind = FindReferenceKind(reference);
    if (kind == nullptr || kind->In(model).ConstObject(name) != nullptr) { return; }
    if (told.emplace(reference, name).second) { visit(*kind, name, row.text.settable ? ArgumentName(row) : std::string_view()); }
  });
}

std::pair<std::string_view, std::unique_ptr<cls_Object>> FindDeclaration(ReferenceKind const& kind, cls_Object const& object) {
  for (Declaration const& declaration : kDeclarations) {
    if (declaration.kind != kind.kind) { continue; }
    std::unique_ptr<cls_Object> fresh = declaration.make();
    if (fresh->DynTypeId() != object.DynTypeId()) { continue; }
    auto const isSame = [&](cls_MemberRow const& row) {  // what no command sets says which it is, as whether a region is a surface
      return row.text.settable || row.name == kName ||
             row.ops->equal(row.In(static_cast<void const*>(fresh.get())), row.In(static_cast<void const*>(&object)));
    };
    if (std::ranges::all_of(object.MemberRows(), isSame)) { return {declaration.command, std::move(fresh)}; }
  }
  return {};
}

std::vector<CommandInfo> ReferenceConstructions() {
  std::vector<CommandInfo> infos;
  for (Declaration const& declaration : kDeclarations) {
    CommandInfo info{std::string(declaration.command), kGroup, std::string(declaration.meaning), {}};
    info.arguments.push_back(Required(kName, "the new object's name"));
    std::unique_ptr<cls_Object> const object = declaration.make();
    info.makes = declaration.kind;
    info.className = ClassOf(*object).name;
    Describe(info.arguments, *object);
    infos.push_back(std::move(info));
  }
  return infos;
}

bool ConstructReference(Call& call) {
  auto const declaration = std::ranges::find(kDeclarations, call.arguments.Command(), &Declaration::command);
  if (declaration == std::end(kDeclarations)) { return false; }
  ReferenceKind const& kind = *std::ranges::find(kKinds, declaration->kind, &ReferenceKind::kind);
  cow_String const name = FreeName(call, kName, kind);
  call.subject.name = name.View();
  std::unique_ptr<cls_Object> const object = declaration->make();
  SetObjectMembers(call, nullptr, *object, call.arguments.Rest());
  if (kind.assertInModel != nullptr) { kind.assertInModel(call, *object); }
  kind.In(call.model).Put(name, *object);
  return true;
}

void SetReferenceValues(Call& call, ReferenceKind const& kind, cow_String const& name) {
  std::unique_ptr<cls_Object> const object = Referred(call, kind, name).Copy();
  SetObjectMembers(call, nullptr, *object, call.arguments.Rest());
  if (kind.assertInModel != nullptr) { kind.assertInModel(call, *object); }
  kind.In(call.model).Put(name, *object);
  std::vector<User> const users = UsersOf(call.model, kind.reference, name);
  if (kind.reference == cls_Reference::Region) { Redirect(call, users, {kind.reference, name, name, object.get()}); }
  for (User const& user : users) {
    auto const* repository = RepositoryOf(call.model, user);
    if (repository == nullptr) { continue; }
    AskOther(call, *repository, user.name, [&] { AssertInModel(call, *repository->ConstItem(user.name)); });
  }
}

void RenameReference(Call& call, ReferenceKind const& kind, cow_String const& name) {
  cow_String const newName = FreeName(call, kNewName, kind, name);
  call.arguments.AssertNoRest({kNewName});
  if (newName == name) { return; }
  std::vector<User> const users = UsersOf(call.model, kind.reference, name);
  std::unique_ptr<cls_Object> const object = Referred(call, kind, name).Copy();
  mdl_NamedObjects& objects = kind.In(call.model);
  objects.Remove(name);
  objects.Put(newName, *object);
  call.touched.renames = {{std::string(kind.kind), std::string(name.View()), std::string(newName.View())}};
  Redirect(call, users, {kind.reference, name, newName, kind.In(std::as_const(call.model)).ConstObject(newName)});
}

void CopyReference(Call& call, ReferenceKind const& kind, cow_String const& name) {
  CopyNameArgument(call, kind.kind, {});
  cow_String const newName = FreeName(call, kNewName, kind);
  call.arguments.AssertNoRest({kNewName});
  std::unique_ptr<cls_Object> const object = Referred(call, kind, name).Copy();
  kind.In(call.model).Put(newName, *object);
}

void DeleteReference(Call& call, ReferenceKind const& kind, cow_String const& name) {
  call.arguments.AssertNoRest({});
  AssertUnused(call, kind.reference, kind.kind, name);
  kind.In(call.model).Remove(name);
}

void RenameInReferences(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name, cow_String const& newName) {
  cls_Reference const reference = repository.Reference();
  Redirect(call, UsersOf(call.model, reference, name), {reference, name, newName});
}

void AssertInNoReference(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name) {
  AssertUnused(call, repository.Reference(), repository.ItemCmd(), name);
}

}  // namespace gattr
