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
/// The member of the class that the argument called \p name sets; null where there is none. Who asks for one after the other gives the one
/// before as \p after: it is quickest to find them in the order of the members.
cls_MemberInfo const* FindArgument(cls_ClassMetadata const& type, std::string_view name, cls_MemberInfo const* after = nullptr);
std::vector<std::string> ArgumentNames(cls_ClassMetadata const& type);
/// What help tells of an argument; \p object has its default.
ArgumentInfo Describe(MemberArgument const& argument, cls_Object const& object, bool required = false);
/// All members of a class under their own names.
std::vector<ArgumentInfo> MembersOf(cls_ClassMetadata const& metadata);
/// Whether a propagating member takes the text for its state: "UNSET", "FREED", "PROPAGATED".
bool IsStateWord(std::string_view text);

/// What fits the member: "a finite number, "UNSET" or "FREED"".
std::string ExpectedValue(cls_MemberInfo const& info);
/// Refuses two names of one member that \p members give values that do not go together in \p object.
void AssertNamesAgree(Subject& subject, cls_Object const& object, kprC_Arguments const& members);
/// null as the way of a text or a name to say nothing: "UNSET" where steps carry it, else the empty text. Refused for any other value
/// that steps carry, which has more than one way.
void FitNull(Subject& subject, cls_MemberInfo const& member, cls_Value& value);

/// Sets members of \p object. An argument that sets none is refused with the nearest; a refused value with what would have fitted,
/// under the class's own number where it has one.
void SetMembers(Subject& subject, cls_Object& object, kprC_Arguments members);
/// While a refusal of \p members is handled: finds the member of \p object whose value is to blame, tells the subject, and words
/// a refusal without a number anew.
[[noreturn]] void ExplainRefusal(Subject& subject, cls_Object const& object, kprC_Arguments const& members, std::exception const& error);
/// Runs \p set and explains what it refuses.
template <class Set> void ExplainValues(Subject& subject, cls_Object const& object, kprC_Arguments const& members, Set&& set) {
  try {
    set();
  } catch (std::exception const& error) { ExplainRefusal(subject, object, members, error); }
}

}  // namespace gattr
