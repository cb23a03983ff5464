#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kor/Types.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// What smooths the history of a request, known to a model by its name. How it does is nobody's business here.
class DDB_API korC_Filter final : public cls_Persistent<korC_Filter, cls_Object> {
public:
  static constexpr omn_FixedString constructorCmd() { return "Filter"; }
  static constexpr omn_FixedString filterCmd() { return "filter"; }
  static constexpr omn_FixedString repositoryCmd() { return "filters"; }
  static constexpr omn_FixedString descriptionCmd() { return "description"; }

  korC_Filter() = default;
  explicit korC_Filter(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  cow_String const& Description() const { return description_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(descriptionCmd(), &korC_Filter::description_, cls_MemberText{"what is filtered out, for the reader"});
  }

private:
  cow_String description_;
};
