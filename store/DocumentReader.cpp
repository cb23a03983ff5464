#include "store/DocumentReader.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <memory>
#include <new>
#include <utility>

#include "framework/mdl_ExtensionSubject.h"
#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/engine/kprC_Procedure.h"
#include "store/Extensions.h"
#include "store/StoreError.h"
#include "store/TextWriter.h"

namespace gattr {

namespace {
constexpr std::size_t kMapDepth = 2;  // frames that are open when the model's map is: the model and the map
constexpr std::string_view kTruth = "true or false";
}  // namespace

DocumentReader::DocumentReader(Document& document, Histories histories, Ticker& tick)
    : document_(document), histories_(histories), tick_(tick), same_(document.Intern("same")) {}

ddr_Model DocumentReader::ReadModel(std::initializer_list<std::string_view> known) {
  Enter(0, ddr_Model::TypeId());
  for (std::string_view const member : known) { Take(member, "a value of the store's own"); }
  try {
    ddr_Model model(*this);
    CompleteExtensions(model, [this](std::string_view member, std::string const& expected) { document_.Refuse(member, expected); });
    Leave();
    return model;
  } catch (std::bad_alloc const&) { throw; } catch (StoreError const&) {
    throw;
  } catch (Cancelled const&) {
    throw;
  } catch (std::exception const& refusal) {  // of an object that was being made; the frames still tell which
    document_.Refuse(document_.Path(way_, member_), refusal.what());
  }
}

Document::At DocumentReader::Look(std::string_view member) const {
  Frame const& frame = frames_.back();
  Document::Node const& owner = document_[frame.at];
  if (frame.next != owner.end && (owner.kind == Kind::List || document_.NameOf(frame.next) == member)) { return frame.next; }
  if (owner.kind == Kind::List) { return Document::npos; }
  for (At at = frame.at + 1; at != owner.end; at = document_[at].end) {
    if (document_.NameOf(at) == member) { return at; }
  }
  return Document::npos;
}

Document::Node& DocumentReader::Take(std::string_view member, std::string_view expected) const {
  Frame& frame = frames_.back();
  member_.assign(member);
  At const at = Look(member);
  if (at == Document::npos) { Refuse(member, std::string(expected) + ", found nothing"); }
  Document::Node& node = document_[at];
  frame.next = node.end;
  frame.taken += node.taken && !frame.again ? 0 : 1;
  node.taken = node.taken || !frame.again;
  if (document_[frame.at].kind == Kind::List) { way_.back().index = frame.taken; }
  return node;
}

Document::Node& DocumentReader::Take(std::string_view member, Kind wanted, std::string_view expected) const {
  Document::Node& node = Take(member, expected);
  if (node.kind != wanted) { RefuseValue(node, member, expected); }
  return node;
}

void DocumentReader::Enter(At at, unsigned typeId, bool again) const {
  again = again || (!frames_.empty() && frames_.back().again);
  Frame& frame = frames_.emplace_back();
  frame.at = at;
  frame.next = at + 1;
  frame.typeId = typeId;
  frame.again = again;
  way_.push_back({at, 0});
}

void DocumentReader::Leave() const {
  Frame const& frame = frames_.back();
  Document::Node const& owner = document_[frame.at];
  if (frame.taken != owner.count && !frame.again) {
    At left = frame.at + 1;
    while (document_[left].taken) { left = document_[left].end; }
    if (owner.kind == Kind::List) {
      document_.Refuse(document_.Path(way_), "expected " + std::to_string(frame.taken) + " elements, found " + std::to_string(owner.count));
    }
    document_.Refuse(document_.Path(way_, document_.NameOf(left)), "no such member is known");
  }
  frames_.pop_back();
  way_.pop_back();
}

bool DocumentReader::IsNull(std::string_view member) const {
  At const at = Look(member);
  if (at != Document::npos && document_[at].kind != Kind::Null) { return false; }
  LastObject* const last = LastOf(Take(member, "a value").name);
  if (last != nullptr) { last->object.Reset(); }
  return true;
}

bool DocumentReader::ReadBool(std::string_view member) const {
  Document::Node const& node = Take(member, kTruth);
  if (node.kind != Kind::True && node.kind != Kind::False) { RefuseValue(node, member, kTruth); }
  return node.kind == Kind::True;
}

long long DocumentReader::ReadInteger(std::string_view member) const {
  constexpr std::string_view expected = "an integer";
  Document::Node const& node = Take(member, expected);
  if (node.kind == Kind::Null) { return cls_unsetInteger; }
  if (node.kind != Kind::Integer) { RefuseValue(node, member, expected); }
  return node.integer;
}

double DocumentReader::ReadReal(std::string_view member) const {
  constexpr std::string_view expected = "a finite number";
  Document::Node const& node = Take(member, expected);
  if (node.kind == Kind::Null) { return cls_unsetReal; }
  if (node.kind == Kind::Integer) { return static_cast<double>(node.integer); }
  if (node.kind != Kind::Real || !std::isfinite(node.real)) { RefuseValue(node, member, expected); }
  return node.real;
}

std::string DocumentReader::ReadText(std::string_view member) const {
  return std::string(document_.View(Take(member, Kind::Text, "a text").text));
}

cow_Handle<cls_Object> DocumentReader::ReadObject(std::string_view member) const { return ReadAny(member, {}); }

cow_Handle<cls_Object> DocumentReader::ReadReference(std::string_view member, std::string_view name) const {
  std::string const named(name);  // the member that holds it may be read while the object is
  Object object = ReadAny(member, named);
  if (object) { named_.try_emplace(named, object); }
  return object;
}

cow_Handle<cls_Object> DocumentReader::ReadAny(std::string_view member, std::string_view name) const {
  tick_();
  Document::Node const& node = Take(member, "an object");
  auto const at = static_cast<At>(&node - &document_[0]);
  Object object;
  if (auto const known = frames_.back().again ? named_.find(std::string(name)) : named_.end(); known != named_.end()) {
    return known->second;
  }
  switch (node.kind) {
    case Kind::Null: break;
    case Kind::Object: object = MakeObject(at, member); break;
    case Kind::Text: object = Named(node, member, name); break;
    default: RefuseValue(node, member, "an object");
  }
  if (LastObject* const last = LastOf(document_[at].name)) { last->object = object; }
  return object;
}

cow_Handle<cls_Object> DocumentReader::MakeObject(At at, std::string_view member) const {
  Enter(at);
  Object object = ReadClass().Read(*this);
  Leave();
  member_.assign(member);
  return object;
}

cls_ClassMetadata const& DocumentReader::ReadClass() const {
  Document::Node const& node = Take("class", Kind::Text, "the name of a class");
  auto const [entry, isNew] = classes_.try_emplace(node.text, nullptr);
  if (isNew) { entry->second = cls_MetadataRegistrar::Registrar().Find(document_.View(node.text)); }
  cls_ClassMetadata const* const type = entry->second;
  if (type == nullptr || !type->CanBeRead()) { RefuseValue(node, "class", "a class that can be made"); }
  frames_.back().typeId = type->typeId;
  return *type;
}

std::pair<std::string, cow_Handle<cls_Object>> DocumentReader::ReadChange() const {
  std::size_t const list = frames_.size() - 1;
  Document::Node const& node = Take("", Kind::Object, "an object");
  Enter(static_cast<At>(&node - &document_[0]));
  bool const switchesOff = !Has(TextWriter::kStep) && Has(TextWriter::kOff);
  std::pair<std::string, Object> change(ReadText(switchesOff ? TextWriter::kOff : TextWriter::kStep), nullptr);
  if (!switchesOff) {
    bool const isFirst = frames_[list].told == nullptr;
    if (isFirst) { frames_[list].told = &ReadClass(); }
    cls_ClassMetadata const& type = *frames_[list].told;
    frames_.back().typeId = type.typeId;
    if (isFirst || type.make == nullptr) {
      change.second = type.Read(*this);
    } else {  // says what it tells and nothing else, whatever a new object sets
      std::unique_ptr<cls_Object> made = type.make();
      void* const begin = made.get();
      for (cls_MemberRow const& row : made->MemberRows()) {
        if (row.ops->propagate != nullptr) { row.ops->propagate(row.In(begin), row.name); }
      }
      cls_ReadRows(made->MemberRows(), begin, *this);
      change.second = Object(std::move(made));
    }
  }
  Leave();
  return change;
}

cow_Handle<cls_Object> DocumentReader::Named(Document::Node const& node, std::string_view member, std::string_view name) const {
  LastObject const* const last = LastOf(node.name);
  if (node.text == same_ && last != nullptr && last->object && !last->object.As<kprC_Procedure>()) { return last->object; }
  std::string_view const text = document_.View(node.text);
  auto const known = named_.find(std::string(text));
  if (known == named_.end()) { RefuseValue(node, member, "an object or the name of a step"); }
  if (text != name) { RefuseValue(node, member, "the step that the record belongs to"); }
  return known->second;
}

DocumentReader::LastObject* DocumentReader::LastOf(Document::Text member) const {
  if (frames_.size() < 2) { return nullptr; }
  Frame& list = frames_[frames_.size() - 2];
  if (document_[list.at].kind != Kind::List) { return nullptr; }
  auto const found = std::ranges::find(list.last, member, &LastObject::member);
  return found != list.last.end() ? &*found : &list.last.emplace_back(LastObject{member, nullptr});
}

void DocumentReader::ReadNested(std::string_view member, std::function<void(cls_ReadVisitor const&)> const& read) const {
  Document::Node const& node = Take(member, Kind::Object, "an object");
  Enter(static_cast<At>(&node - &document_[0]));
  read(*this);
  Leave();
}

DocumentReader::At DocumentReader::Declared(Document::Text name, unsigned typeId) const {
  if (!declared_) {
    declared_.emplace();
    At const extensions = document_.Find(0, "extensions");
    for (auto const& [member, prototype] : mdl_ExtensionSubject::Registered()) {
      if (mdl_ExtensionAs<mdl_NamedObjects>(prototype.ConstGet()) == nullptr) { continue; }
      At const map = document_.Find(document_.Find(extensions, member), "map");
      if (map == Document::npos) { continue; }
      for (At at = map + 1; at != document_[map].end; at = document_[at].end) {
        At const itsClass = document_.Find(at, "class");
        if (itsClass == Document::npos || document_[itsClass].kind != Kind::Text) { continue; }  // refused where it is read
        declared_->try_emplace({document_[itsClass].text, document_[at].name}, at);
      }
    }
  }
  cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(typeId);
  if (type == nullptr) { return Document::npos; }
  auto const found = declared_->find({document_.Intern(type->name), name});
  return found == declared_->end() ? Document::npos : found->second;
}

void DocumentReader::ReadDeclared(std::string_view member, unsigned typeId, std::function<void(cls_ReadVisitor const&)> const& read) const {
  if (At const at = Look(member); !IsBrief() || at == Document::npos || document_[at].kind != Kind::Text) {
    return ReadNested(member, read);
  }
  Document::Node const& node = Take(member, "an object");
  At const declared = Declared(node.text, typeId);
  if (declared == Document::npos) { RefuseValue(node, member, "an object, or the name of one that the model declares"); }
  Enter(declared, 0, true);
  read(*this);
  Leave();
}

DocumentReader::At DocumentReader::StepsList() const {
  std::string_view const steps = ddr_Model::stepsCmd().View();
  return document_.Find(document_.Find(document_.Find(0, "extensions"), steps), steps);
}

std::size_t DocumentReader::StartList(std::string_view member) const {
  if (At const at = Look(member); IsBrief() && at != Document::npos && document_[at].kind == Kind::Text) {
    Document::Node const& node = Take(member, "a list");
    At const steps = StepsList();
    if (document_.View(node.text) != TextWriter::kOwnSteps || steps == Document::npos || document_[steps].kind != Kind::List) {
      RefuseValue(node, member, "a list");
    }
    Enter(steps, 0, true);
    return document_[steps].count;
  }
  Document::Node const& node = Take(member, Kind::List, "a list");
  Enter(static_cast<At>(&node - &document_[0]));
  return node.count;
}

void DocumentReader::EndList() const { Leave(); }

std::vector<std::string> DocumentReader::StartMap(std::string_view member) const {
  Document::Node const& node = Take(member, Kind::Object, "named objects");
  Enter(static_cast<At>(&node - &document_[0]));
  std::vector<std::string> keys;
  keys.reserve(node.count);
  for (At at = frames_.back().next; at != node.end; at = document_[at].end) { keys.emplace_back(document_.NameOf(at)); }
  if (frames_.size() == kMapDepth) {  // the steps first: the others refer to them
    std::stable_partition(keys.begin(), keys.end(), [](std::string const& key) { return key == ddr_Model::stepsCmd().View(); });
  }
  return keys;
}

void DocumentReader::EndMap() const { Leave(); }

void DocumentReader::RefuseValue(Document::Node const& node, std::string_view member, std::string_view expected) const {
  document_.Refuse(document_.Path(way_, member),
                   "expected " + std::string(expected) + ", found " + document_.Describe(static_cast<At>(&node - &document_[0])));
}

void DocumentReader::Refuse(std::string_view member, std::string_view expected) const {
  document_.Refuse(document_.Path(way_, member), "expected " + std::string(expected));
}

}  // namespace gattr
