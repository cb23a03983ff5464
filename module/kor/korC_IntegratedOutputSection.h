#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kor/Types.h"
#include "module/kor/korC_Enums.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// A surface over which stresses are summed up to a force and a moment, known to a model by its name.
class DDB_API korC_IntegratedOutputSection final : public cls_Persistent<korC_IntegratedOutputSection, cls_Object> {
public:
  using RefPointMotionEnm = korC_RefPointMotionEnm;

  static constexpr omn_FixedString constructorCmd() { return "IntegratedOutputSection"; }
  static constexpr omn_FixedString integratedOutputSectionCmd() { return "integratedOutputSection"; }
  static constexpr omn_FixedString repositoryCmd() { return "integratedOutputSections"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString surfaceCmd() { return "surface"; }
  static constexpr omn_FixedString refPointCmd() { return "refPoint"; }
  static constexpr omn_FixedString refPointAtCenterCmd() { return "refPointAtCenter"; }
  static constexpr omn_FixedString refPointMotionCmd() { return "refPointMotion"; }
  static constexpr omn_FixedString localCsysCmd() { return "localCsys"; }
  static constexpr omn_FixedString projectOrientationCmd() { return "projectOrientation"; }
  static constexpr omn_FixedString setValuesCmd() { return "setValues"; }
  static constexpr omn_FixedString globalCsysName() { return "(Global)"; }

  korC_IntegratedOutputSection() = default;
  explicit korC_IntegratedOutputSection(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  cow_String name;
  rgnC_Region surface, refPoint;
  bool refPointAtCenter = false;
  omu_PrimEnum<RefPointMotionEnm, 1> refPointMotion = RefPointMotionEnm::INDEPENDENT;
  dtmC_DatumRef localCsys;
  bool projectOrientation = false;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(nameCmd(), &korC_IntegratedOutputSection::name, cls_MemberText{"the section's name"}.NotSettable());
    visit(surfaceCmd(), &korC_IntegratedOutputSection::surface,
          cls_MemberText{"the surface that cuts the model"}.RefersTo(cls_Reference::Region));
    visit(refPointCmd(), &korC_IntegratedOutputSection::refPoint,
          cls_MemberText{"set of the point about which moments are taken"}.RefersTo(cls_Reference::Region));
    visit(refPointAtCenterCmd(), &korC_IntegratedOutputSection::refPointAtCenter,
          cls_MemberText{"whether the point begins at the centre of the surface"});
    visit(refPointMotionCmd(), &korC_IntegratedOutputSection::refPointMotion, cls_MemberText{"how the point moves"});
    visit(localCsysCmd(), &korC_IntegratedOutputSection::localCsys,
          cls_MemberText{"coordinate system of force and moment"}.RefersTo(cls_Reference::CoordinateSystem));
    visit(projectOrientationCmd(), &korC_IntegratedOutputSection::projectOrientation,
          cls_MemberText{"whether the axes are projected onto the surface"});
  }
};
