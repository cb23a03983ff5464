#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "module/kpr/steps/kprC_Steps.h"
#include "tests/module/kpr/kprTestSteps.h"

/// Members to be set, by name.
using Edits = cls_Value::Fields;

inline Edits operator+(Edits first, Edits const& then) {
  first.insert(first.end(), then.begin(), then.end());
  return first;
}

template <class Object> void Apply(Object& object, Edits const& edits) {
  for (auto const& [member, value] : edits) { EXPECT_TRUE(object.SetMember(member, value)) << member; }
}

/// A list with one object of these members.
inline cls_Value One(Edits const& members) { return cls_Value::List{members}; }

/// A list of objects.
inline cls_Value Many(std::vector<Edits> const& objects) {
  cls_Value::List list;
  for (Edits const& members : objects) { list.emplace_back(members); }
  return list;
}

/// The code with which a step with these parameters is refused; -1 when it is valid.
inline int CodeOf(unsigned procedureType, Edits const& edits) {
  kprC_StepHandle step = kprC_MakeStep(procedureType);
  Apply(step.Get(), edits);
  return RefusalOf([&] { step->AssertValid(); });
}
