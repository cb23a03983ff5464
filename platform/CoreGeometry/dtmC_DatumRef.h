#pragma once

#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreGeometry/Types.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// A reference to a datum, such as a local coordinate system, by its name. An empty name is the global system.
class DDB_API dtmC_DatumRef final : public cls_Persistent<dtmC_DatumRef, cls_Object> {
public:
  dtmC_DatumRef();
  explicit dtmC_DatumRef(cow_String name);
  explicit dtmC_DatumRef(cls_ReadVisitor const& in);

  static constexpr omn_FixedString globalName() { return "(Global)"; }  ///< what scripts call the global system

  cow_String const& Name() const { return name_; }
  bool IsGlobal() const { return name_.IsEmpty(); }

  friend bool operator==(dtmC_DatumRef const& a, dtmC_DatumRef const& b) { return a.name_ == b.name_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("name", &dtmC_DatumRef::name_, cls_MemberText{"name of the datum; empty for the global system"});
  }

private:
  cow_String name_;
};

/// Scripted by its name.
template <> struct cls_MemberTraits<dtmC_DatumRef> : cls_ObjectTraits<dtmC_DatumRef> {
  static cls_Value ToValue(dtmC_DatumRef const& datum) { return std::string(datum.Name().View()); }
  static std::string_view FromValue(dtmC_DatumRef& datum, cls_Value const& from) {
    auto const* name = from.As<std::string>();
    if (name == nullptr) { return "the name of a datum"; }
    bool const global = dtmC_DatumRef::globalName() == *name;
    return datum = global ? dtmC_DatumRef() : dtmC_DatumRef(cow_String(*name)), "";
  }
  static void References(dtmC_DatumRef const& datum, cls_Reference kind, cls_ReferenceVisitor const& visit) {
    cls_MemberTraits<cow_String>::References(datum.Name(), kind, visit);
  }
  static bool Redirect(dtmC_DatumRef& datum, cls_Reference kind, cls_Redirection const& to) {
    if (kind != to.kind || datum.Name().View() != to.from) { return false; }
    return datum = dtmC_DatumRef(cow_String(to.to)), true;
  }
};
