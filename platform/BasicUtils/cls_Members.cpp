#include "platform/BasicUtils/cls_Members.h"

#include "platform/BasicUtils/nex_Exception.h"

void cls_ReadRows(cls_MemberRows rows, void* object, cls_ReadVisitor const& in) {
  bool const brief = in.IsBrief();
  bool wasTold = false;
  for (cls_MemberRow const& row : rows) {
    // a propagating member may be told by its companion alone (mdl_PropAttr)
    bool const mayBeMissing = brief || row.text.later;
    bool const told = !mayBeMissing || in.Has(row.name) || (row.ops->propagate != nullptr && in.Has(std::string(row.name) + "State"));
    bool const isToldAgain = row.again && told && wasTold;
    if (isToldAgain) {
      cls_Value const before = row.ToValue(object);
      row.Read(in, object);
      if (!(before == row.ToValue(object))) { in.Refuse(row.name, "what the member says under its other name"); }
    } else if (told) {
      row.Read(in, object);
    }
    wasTold = told;
  }
}

cls_Value cls_RowsToValue(cls_MemberRows rows, void const* object) {
  cls_Value::Fields fields;
  for (cls_MemberRow const& row : rows) { fields.emplace_back(std::string(row.name), row.ToValue(object)); }
  return fields;
}

std::string_view cls_RowsFromValue(cls_MemberRows rows, cls_Object& object, cls_Value const& from) {
  auto const* fields = from.As<cls_Value::Fields>();
  if (fields == nullptr) { return "an object with named members"; }
  for (auto const& [name, field] : *fields) {
    if (object.SetMember(name, field)) { continue; }
    std::string text = "There is no member \"";
    text.append(name).append("\": expected one of ");
    for (cls_MemberRow const& row : rows) { text.append(&row == &*rows.begin() ? "" : ", ").append(row.name); }
    nex_Exception::Throw(nex_TextException(text + "."), "platform/BasicUtils/cls_Members", __LINE__);
  }
  return "";
}

void cls_ForEachReference(cls_MemberRows rows, void const* object, cls_ReferenceVisitor const& visit) {
  for (cls_MemberRow const& row : rows) {
    if (row.ops->references != nullptr) { row.ops->references(row.In(object), row.text.refers, visit); }
  }
}

bool cls_Redirect(cls_MemberRows rows, void* object, cls_Redirection const& to) {
  bool redirected = false;
  for (cls_MemberRow const& row : rows) {
    if (row.ops->redirect != nullptr && row.ops->redirect(row.In(object), row.text.refers, to)) { redirected = true; }
  }
  return redirected;
}
