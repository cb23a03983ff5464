#pragma once

#include "platform/BasicUtils/cls_xoList.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreUtils/omn_FixedString.h"
#include "platform/NonGeometricAttributes/Types.h"

/// An attribute in a load case, by its kind and name, and the factor on its values.
class DDB_API lcsC_Term final : public cls_Persistent<lcsC_Term, cls_Object> {
public:
  lcsC_Term();
  explicit lcsC_Term(cls_ReadVisitor const& in);

  cow_String kind;  ///< "load"
  cow_String name;
  double factor = 1.0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("kind", &lcsC_Term::kind, cls_MemberText{"what commands call an attribute of its family: load, boundaryCondition"});
    visit("name", &lcsC_Term::name, cls_MemberText{"name of the attribute"});
    visit("factor", &lcsC_Term::factor, cls_MemberText{"what its values are multiplied by"});
  }
};

/// A load case: the attributes of a step, each with a factor, whose response is computed together. The step itself knows nothing
/// of it. Whether the step takes load cases, and the attributes may be in one, is asked by who holds the model.
class DDB_API lcsC_LoadCase final : public cls_Persistent<lcsC_LoadCase, cls_Object> {
public:
  static constexpr omn_FixedString constructorCmd() { return "LoadCase"; }
  static constexpr omn_FixedString loadCaseCmd() { return "loadCase"; }
  static constexpr omn_FixedString repositoryCmd() { return "loadCases"; }
  static constexpr omn_FixedString stepNameCmd() { return "stepName"; }
  static constexpr omn_FixedString attributesCmd() { return "attributes"; }

  lcsC_LoadCase();
  explicit lcsC_LoadCase(cls_ReadVisitor const& in);

  cow_String stepName;
  cls_xo1DArrayList<lcsC_Term> attributes;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(stepNameCmd(), &lcsC_LoadCase::stepName, cls_MemberText{"the step whose response it is"});
    visit(attributesCmd(), &lcsC_LoadCase::attributes, cls_MemberText{"the attributes that act together, each with kind, name and factor"});
    visit("description", &lcsC_LoadCase::description_, cls_MemberText{"what it stands for, for the reader"});
  }

private:
  cow_String description_;
};
