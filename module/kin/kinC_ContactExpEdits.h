#pragma once

#include "module/kin/kinC_RegionPair.h"
#include "module/kin/kinC_SurfaceValues.h"

// The arguments of the commands on the lists of general contact. A kind of assignments is named by the argument that is given.

/// Of addPairs and removePairs.
class DDB_API kinC_PairArguments final : public cls_Persistent<kinC_PairArguments, cls_Object> {
public:
  kinC_PairArguments() = default;
  explicit kinC_PairArguments(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  kinC_RegionPairs pairs;
  bool excluded = false;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("pairs", &kinC_PairArguments::pairs, cls_MemberText{"the pairs of surfaces"});
    visit("excluded", &kinC_PairArguments::excluded, cls_MemberText{"whether they are of the excluded domain"});
  }
};

/// Of appendInStep: pairs, and of one kind a value for each.
class DDB_API kinC_AppendArguments final : public cls_Persistent<kinC_AppendArguments, cls_Object> {
public:
  kinC_AppendArguments() = default;
  explicit kinC_AppendArguments(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  kinC_RegionPairs pairs;
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) cls_xo1DArrayList<Value> command;
#include "module/kin/kinC_Assignments.def"

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("pairs", &kinC_AppendArguments::pairs, cls_MemberText{"to which pairs or surfaces something is assigned"});
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, heading, shown, refers, of, meaning) \
  visit(#command, &kinC_AppendArguments::command, cls_MemberText{meaning}.RefersTo(cls_Reference::refers));
#include "module/kin/kinC_Assignments.def"
  }
};

/// Of changeValuesInStep: indices, and of one kind a value for each.
class DDB_API kinC_ChangeArguments final : public cls_Persistent<kinC_ChangeArguments, cls_Object> {
public:
  kinC_ChangeArguments() = default;
  explicit kinC_ChangeArguments(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  cow_1DArrayList<int> indices;
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) cls_xo1DArrayList<Value> command;
#include "module/kin/kinC_Assignments.def"

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("indices", &kinC_ChangeArguments::indices, cls_MemberText{"which assignments are changed, by their places from 0 on"});
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, heading, shown, refers, of, meaning) \
  visit(#command, &kinC_ChangeArguments::command, cls_MemberText{meaning}.RefersTo(cls_Reference::refers));
#include "module/kin/kinC_Assignments.def"
  }
};

/// Of deleteAssignments: indices of one kind or of several.
class DDB_API kinC_DeleteArguments final : public cls_Persistent<kinC_DeleteArguments, cls_Object> {
public:
  kinC_DeleteArguments() = default;
  explicit kinC_DeleteArguments(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) cow_1DArrayList<int> command;
#include "module/kin/kinC_Assignments.def"

  template <class V> static constexpr void VisitMembers(V&& visit) {
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) \
  visit(#command, &kinC_DeleteArguments::command, cls_MemberText{"which assignments of the kind go, by their places from 0 on"});
#include "module/kin/kinC_Assignments.def"
  }
};
