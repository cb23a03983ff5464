#pragma once

#include "framework/ddr_Model.h"

/// Where a member of a model is found, by names.
template <class Member> class ddr_ShortcutImpl final : public mem_Counted {
public:
  cow_String ddbName;     ///< the model's name
  cow_String memberName;  ///< the member's name in the model

  Member const* ConstGet(ddr_Model const* model) const {
    return model == nullptr ? nullptr : dynamic_cast<Member const*>(model->ConstExtension(memberName.View()));
  }
  Member* Get(ddr_Model* model) const { return model == nullptr ? nullptr : dynamic_cast<Member*>(model->Extension(memberName.View())); }
};

/// A persistent way to a member of a model, by names: it stays good while models and members are copied and separated.
template <class Owner, class Member, int Dimension>
class ddr_MemberShortcut final : public cls_Persistent<ddr_MemberShortcut<Owner, Member, Dimension>, cls_Object> {
public:
  using Impl = ddr_ShortcutImpl<Member>;

  ddr_MemberShortcut() : impl_(cow_Handle<Impl>::Make()) {}
  ddr_MemberShortcut(cow_String const& ddbName, omn_FixedString memberName) : ddr_MemberShortcut() {
    impl_.Get().ddbName = ddbName;
    impl_.Get().memberName = cow_String(memberName.View());
  }
  explicit ddr_MemberShortcut(cls_ReadVisitor const& in) : ddr_MemberShortcut() { cls_ReadMembers(*this, in); }

  cow_String const& DdbName() const { return impl_->ddbName; }
  /// The model, or null where \p models has none of that name.
  Owner const* ConstGetParent(ddr_ModelContainer const& models) const { return models.ConstGet(DdbName().View()); }
  /// The member, or null where the model or the member is missing.
  Member const* ConstGet(ddr_ModelContainer const& models) const { return impl_->ConstGet(ConstGetParent(models)); }
  /// The member for change, separated from all who share it.
  Member* Get(ddr_ModelContainer& models) const { return impl_->Get(models.Get(DdbName().View())); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("path", &ddr_MemberShortcut::impl_, cls_MemberText{"names of the model and of the repository in it"});
  }

private:
  cow_Handle<Impl> impl_;
};

template <class Member> struct cls_MemberTraits<cow_Handle<ddr_ShortcutImpl<Member>>> : cls_PlainTraits {
  using Handle = cow_Handle<ddr_ShortcutImpl<Member>>;

  static void Describe(cls_MemberInfo& info) {
    info.kind = cls_MemberKind::String;
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Handle const& impl) {
    out.StartList(name, 2);
    out.WriteText("", impl->ddbName.View());
    out.WriteText("", impl->memberName.View());
    out.EndList();
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Handle& impl) {
    if (in.StartList(name) != 2) { in.Refuse(name, "the names of a model and of a member"); }
    impl.Get().ddbName = cow_String(in.ReadText(""));
    impl.Get().memberName = cow_String(in.ReadText(""));
    in.EndList();
  }
  static bool Equal(Handle const& a, Handle const& b) { return a->ddbName == b->ddbName && a->memberName == b->memberName; }
  static cls_Value ToValue(Handle const& impl) { return std::string(impl->ddbName.View()) + "." + std::string(impl->memberName.View()); }
  static std::string_view FromValue(Handle&, cls_Value const&) { return "nothing: this member cannot be set"; }
};
