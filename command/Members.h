#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "command/Arguments.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"

/// Members of objects as arguments of commands.
namespace gattr {

/// An argument, by what the class's description calls it, and the member that it sets.
struct MemberArgument {
  std::string_view argument;
  cls_MemberInfo const* info = nullptr;
};

/// The description of a class; must be a registered one.
cls_ClassMetadata const& ClassOf(cls_Object const& object);

/// The members of \p object that commands may set.
std::vector<MemberArgument> MemberArguments(cls_Object const& object);
MemberArgument const* FindArgument(std::vector<MemberArgument> const& arguments, std::string_view name);
std::vector<std::string> ArgumentNames(std::vector<MemberArgument> const& arguments);
/// What help tells of an argument; \p object has its default.
ArgumentInfo Describe(MemberArgument const& argument, cls_Object const& object, bool required = false);
/// All members of a class under their own names.
std::vector<ArgumentInfo> MembersOf(cls_ClassMetadata const& metadata);
/// Whether a propagating member takes the text for its state: "UNSET", "FREED", "PROPAGATED".
bool IsStateWord(std::string_view text);

/// What fits the member: "a finite number, "UNSET" or "FREED"".
std::string ExpectedValue(cls_MemberInfo const& info);
/// Refuses two names of one member that \p members give values that do not go together in \p object.
void AssertNamesAgree(Subject& subject, cls_Object const& object, std::vector<MemberArgument> const& settable,
                      kprC_Arguments const& members);
/// null as the way of a text or a name to say nothing: "UNSET" where steps carry it, else the empty text. Refused for any other value
/// that steps carry, which has more than one way.
void FitNull(Subject& subject, MemberArgument const& argument, cls_Value& value);

/// Sets members of \p object. An argument that is none of \p settable is refused with the nearest; a refused value with what
/// would have fitted, under the class's own number where it has one.
void SetMembers(Subject& subject, cls_Object& object, std::vector<MemberArgument> const& settable, kprC_Arguments members);
/// While a refusal of \p members is handled: finds the member of \p object whose value is to blame, tells the subject, and words
/// a refusal without a number anew.
[[noreturn]] void ExplainRefusal(Subject& subject, cls_Object const& object, std::vector<MemberArgument> const& settable,
                                 kprC_Arguments const& members, std::exception const& error);
/// Runs \p set and explains what it refuses.
template <class Set>
void ExplainValues(Subject& subject, cls_Object const& object, std::vector<MemberArgument> const& settable, kprC_Arguments const& members,
                   Set&& set) {
  try {
    set();
  } catch (std::exception const& error) { ExplainRefusal(subject, object, settable, members, error); }
}

}  // namespace gattr
