#include <algorithm>

#include "framework/ddr_Model.h"
#include "module/kpr/kprC_module.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "tests/module/kpr/kprTestMembers.h"

namespace {

class StepMembers : public ::testing::Test {
protected:
  StepMembers() { kprC_initialize(count_); }
  ~StepMembers() override { kprC_finalize(count_); }

  /// Every class of the module that can be made, but for the mesh constraints: they are tried as all families are.
  template <class Fn> static void ForEachClass(Fn&& fn) {
    for (auto const& [type, info] : cls_MetadataRegistrar::Registrar().Classes()) {
      bool const isOfMesh = info.name.find("AdptMeshCons") != std::string::npos;
      if (type >> 16 == kprC_moduleNumber && info.make != nullptr && !isOfMesh) { fn(info); }
    }
  }

private:
  int count_ = 0;
};

cls_Value OffDefault(cls_MemberInfo const& info, cls_Value const& now);

/// An object of the class with every member off its default.
cls_Value::Fields FieldsOffDefault(cls_ClassMetadata const& type) {
  auto const object = type.make();
  cls_Value::Fields fields;
  for (cls_MemberInfo const& info : type.members) { fields.emplace_back(info.name, OffDefault(info, object->Member(info.name))); }
  return fields;
}

cls_Value OneOffDefault(cls_MemberInfo const& info, cls_Value const& now) {
  switch (info.kind) {
    case cls_MemberKind::Boolean: return !*now.As<bool>();
    case cls_MemberKind::Integer: return 41;
    case cls_MemberKind::Real: return 0.4375;
    case cls_MemberKind::String: return "another text";
    case cls_MemberKind::Enumerated: return info.permissible.at(now == cls_Value(info.permissible.at(0)) ? 1 : 0);
    case cls_MemberKind::Object: break;
  }
  if (info.typeId == rgnC_Region::TypeId()) { return "Set-9"; }
  return FieldsOffDefault(*cls_MetadataRegistrar::Registrar().Find(info.typeId));
}

/// A value for a member that differs from \p now, its default.
cls_Value OffDefault(cls_MemberInfo const& info, cls_Value const& now) {
  cls_Value const one = OneOffDefault(info, now);
  if (info.name == kprC_TimePoint::pointsCmd().View()) { return cls_Value::List{cls_Value::List{one}, cls_Value::List{one}}; }
  return info.many ? cls_Value::List{one, one} : one;
}

/// Whether scripts cannot set the member: the map of a repository, the container's sequence.
bool IsSettable(cls_ClassMetadata const& type) {
  return type.typeId != kprC_TimePointMap::TypeId() && type.name != "kprC_StepContainer" && type.name != "kprC_StepNameProcedurePair";
}

TEST_F(StepMembers, SurviveBeingSetCopiedAndReadAsValues) {
  std::size_t members = 0;
  ForEachClass([&](cls_ClassMetadata const& type) {
    if (!IsSettable(type)) { return; }
    auto const fresh = type.make();
    auto all = type.make();
    for (cls_MemberInfo const& info : type.members) {
      cls_Value const before = fresh->Member(info.name);
      cls_Value const value = OffDefault(info, before);
      auto changed = type.make();
      ASSERT_TRUE(changed->SetMember(info.name, value)) << type.name << "." << info.name;
      EXPECT_NE(changed->Member(info.name), before) << type.name << "." << info.name;
      EXPECT_FALSE(changed->Equals(*fresh)) << type.name << "." << info.name << " is not compared";
      EXPECT_TRUE(changed->Equals(*changed->Copy())) << type.name << "." << info.name << " is not copied";
      auto again = type.make();
      again->SetMember(info.name, changed->Member(info.name));
      EXPECT_TRUE(again->Equals(*changed)) << type.name << "." << info.name << " is not told whole";
      all->SetMember(info.name, value);
      ++members;
    }
    auto const copy = all->Copy();
    for (cls_MemberInfo const& info : type.members) {
      EXPECT_EQ(copy->Member(info.name), all->Member(info.name)) << type.name << "." << info.name;
    }
  });
  EXPECT_GT(members, 300U);
}

TEST_F(StepMembers, AreNeverNotANumber) {
  ForEachClass([&](cls_ClassMetadata const& type) {
    if (!IsSettable(type)) { return; }
    for (cls_MemberInfo const& info : type.members) {
      if (info.kind != cls_MemberKind::Real) { continue; }
      auto object = type.make();
      cls_Value nan(std::numeric_limits<double>::quiet_NaN());
      if (info.many) { nan = cls_Value(cls_Value::List{nan}); }
      try {
        object->SetMember(info.name, nan);
        ADD_FAILURE() << type.name << "." << info.name;
      } catch (nex_TextException const& refusal) {
        EXPECT_NE(refusal.Text().View().find("\"" + info.name + "\""), std::string_view::npos) << refusal.Text().View();
        EXPECT_EQ(refusal.Code(), -1);
      }
      EXPECT_TRUE(object->Equals(*type.make())) << type.name << "." << info.name;
    }
  });
}

}  // namespace
