#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/Types.h"
#include "module/kpr/kprC_Names.h"
#include "platform/BasicUtils/cls_2DArrayTraits.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// The time points of a model by name: its extension "timePoints".
using kprC_TimePointMap = mdl_MapString2ObjCow<kprC_TimePoint>;

/// A sequence of times that output requests refer to by its name.
class DDB_API kprC_TimePoint final : public cls_Persistent<kprC_TimePoint, cls_Object>, public kprC_TimePointNames {
public:
  static constexpr omn_FixedString constructorCmd() { return "TimePoint"; }
  static constexpr omn_FixedString repositoryCmd() { return "timePoints"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString pointsCmd() { return "points"; }

  kprC_TimePoint();
  explicit kprC_TimePoint(cow_String nameGiven);
  explicit kprC_TimePoint(cls_ReadVisitor const& in);

  cow_String name;
  /// A time to a row, or a start, an end and an increment: the times from start to end in steps of the increment. Rows of
  /// the second form are in no order among themselves.
  cow_2DArray<double> points;

  /// Refuses: 164 no points; 163 other than one or three columns; row by row 168 an increment that is not above 0, 167 an end
  /// before its start, 169 more than a million increments between them; 165 times that do not rise.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(nameCmd(), &kprC_TimePoint::name, cls_MemberText{"the sequence's name"}.NotSettable());
    visit(pointsCmd(), &kprC_TimePoint::points, cls_MemberText{"rows of a time each, or of start, end and increment each", "time"});
  }
};
