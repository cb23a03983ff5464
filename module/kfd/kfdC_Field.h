#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kfd/Types.h"
#include "platform/CoreUtils/omn_FixedString.h"

using kfdC_FieldMap = mdl_MapString2ObjCow<kfdC_Field>;

/// A field that attributes are distributed by, known to a model by its name. How it varies is nobody's business here.
class DDB_API kfdC_Field final : public cls_Persistent<kfdC_Field, cls_Object> {
public:
  static constexpr omn_FixedString constructorCmd() { return "AnalyticalField"; }
  static constexpr omn_FixedString descriptionCmd() { return "description"; }

  kfdC_Field();
  explicit kfdC_Field(cls_ReadVisitor const& in);

  cow_String const& Description() const { return description_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(descriptionCmd(), &kfdC_Field::description_, cls_MemberText{"what varies, for the reader"});
  }

private:
  cow_String description_;
};

/// Starts the module of fields: the model's extension "fields" and the classes' metadata. Counted.
DDB_API void kfdC_initialize(int& count);
DDB_API void kfdC_finalize(int& count);
