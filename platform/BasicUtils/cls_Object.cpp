#include "platform/BasicUtils/cls_Object.h"

#include <algorithm>
#include <string>

#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Visitor.h"
#include "platform/BasicUtils/nex_Exception.h"

cls_Object::~cls_Object() = default;
cls_WriteVisitor::~cls_WriteVisitor() = default;
cls_ReadVisitor::~cls_ReadVisitor() = default;
void cls_WriteVisitor::WriteEnumerated(std::string_view member, std::string_view suffix, std::string_view text, unsigned /*number*/) const {
  WriteText(std::string(member).append(suffix), text);
}
cow_Handle<cls_Object> cls_ReadVisitor::ReadReference(std::string_view member, std::string_view /*name*/) const {
  return ReadObject(member);
}
// only a brief visitor is asked
void cls_WriteVisitor::WriteChange(std::string_view, cls_Object const*, bool) const {}
std::pair<std::string, cow_Handle<cls_Object>> cls_ReadVisitor::ReadChange() const { return {}; }

namespace {
void const* BeginOf(cls_Object const& object) { return &object; }
void* BeginOf(cls_Object& object) { return &object; }
}  // namespace

void cls_Object::DBWrite(cls_WriteVisitor const& out) const {
  if (!out.StartWrite(DynTypeId(), Uid())) { return; }  // written already
  cls_Object const* const fresh = out.NewLike(*this);
  for (cls_MemberRow const& row : MemberRows()) {
    if (row.again && out.IsBrief()) { continue; }  // told under its first name
    if (fresh != nullptr && row.ops->equal(row.In(BeginOf(*this)), row.In(BeginOf(*fresh)))) { continue; }
    row.Write(out, BeginOf(*this));
  }
}

void cls_Object::NewUid() {
  number_ = cls_Uid::AllocateNumber();
  for (cls_MemberRow const& row : MemberRows()) { row.ops->newUid(row.In(BeginOf(*this))); }
}

bool cls_Object::Equals(cls_Object const& other) const {
  if (this == &other) { return true; }
  if (other.DynTypeId() != DynTypeId()) { return false; }
  return std::ranges::all_of(MemberRows(),
                             [&](cls_MemberRow const& row) { return row.ops->equal(row.In(BeginOf(*this)), row.In(BeginOf(other))); });
}

cls_Value cls_Object::Member(std::string_view name) const {
  auto const rows = MemberRows();
  auto const row = std::ranges::find_if(rows, [name](cls_MemberRow const& one) { return one.IsCalled(name); });
  return row == rows.end() ? cls_Value() : row->ToValue(BeginOf(*this));
}

bool cls_Object::SetMember(std::string_view name, cls_Value const& from) {
  auto const rows = MemberRows();
  auto const row = std::ranges::find_if(rows, [name](cls_MemberRow const& one) { return one.IsCalled(name); });
  if (row == rows.end()) { return false; }
  std::string_view const expected = row->FromValue(BeginOf(*this), from);
  if (expected != "") { RefuseValue(row->name, row->text, expected); }
  return true;
}

void cls_Object::RefuseValue(std::string_view name, cls_MemberText const&, std::string_view expected) const {
  nex_Exception::Throw(nex_TextException("Invalid value for \"" + std::string(name) + "\": expected " + std::string(expected) + "."),
                       "platform/BasicUtils/cls_Object", __LINE__);
}
