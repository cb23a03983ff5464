#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "command/AtTime.h"
#include "command/Lookup.h"
#include "command/Origins.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CoreUtils/ddb_Export.h"

/// Why an attribute, or a member of it, is in a step what it is.
namespace gattr {

/// What a link of an explanation says; command/Links.def has a sentence for each.
enum class LinkKind {
#define LINK(name, id, sentence, uncaused, breaks) name,
#include "command/Links.def"
};

/// One link of the chain from the creation of an attribute to a step.
struct Link {
  /// A member of which the link tells, and what is said of it.
  struct Said {
    std::string member;
    Standing standing;
    cls_Value value;  ///< null where there is none
  };

  LinkKind kind;
  std::size_t begin, end;            ///< the steps that it is of, by position: from the first to one past the last
  std::size_t cause = kNoStep;       ///< the step that the link names as its cause: the one that switched off, resumes, has the modes
  std::string sort = {}, type = {};  ///< of steps that do not take the attribute: "a heat transfer step"; what they do not take: "it" where
                                     ///< the type alone is not it
  std::vector<Said> said = {};       ///< what the steps say of members; of a link of one member that one

  /// "off", "carried".
  DDB_API std::string_view Id() const;
};

/// Why an attribute, or one member of it, is in a step what it is.
struct Explanation {
  std::string kind, name, type;  ///< "boundaryCondition", "Press", "DisplacementBC"
  std::string member;            ///< empty where it is the attribute as a whole
  std::size_t step;              ///< its position
  mdl_PropagationStatusEnm status;
  bool inForce;  ///< there, and not suppressed
  bool suppressed;
  std::vector<Link> links;      ///< in the order of the steps: never none
  std::vector<Origin> members;  ///< of the attribute as a whole: those that have a value there, or were given up
};

/// Explains the attribute in the step at the position \p step; \p member, as commands call it, explains that member of it. Raises
/// UnknownName for a member that it does not have. Good as long as the model. Costs what the attribute says, and the changes of procedure.
DDB_API Explanation Explain(FoundAttribute const& attribute, std::size_t step, std::string_view member = {});

/// The link in words, 'carried through "Hold"'; \p steps are those of the attribute.
DDB_API std::string SentenceOf(Link const& link, kprC_StepTable const& steps);
/// The chain in one sentence: 'Set to -10 in "Press", carried through "Hold"; off since "Release" because it was deactivated there.'
DDB_API std::string SentenceOf(Explanation const& explanation, kprC_StepTable const& steps);

/// The explanation as named values: {"kind", "name", "type", "member", "step", "status", "inForce", "suppressed", "sentence", "links":
/// [{"kind", "steps", "step", "said": {"u2": -10.0}}], "members"}.
DDB_API cls_Value ValueOf(Explanation const& explanation, kprC_StepTable const& steps);

/// What there is of a member in a step: {"value", "standing", "own", "step"}.
DDB_API cls_Value ValueOf(Origin const& origin, kprC_StepTable const& steps);

/// An attribute with its members in all steps; with \p at, members that an amplitude varies have a value "at" that time too: {"kind",
/// "name", "type", "suppressed", "object": {"region": "Top"}, "steps": [{"step", "procedure", "status", "inForce", "members": {"u2":
/// {"value", "standing", "own", "step"}}}]}; members without anything said are left out.
DDB_API cls_Value ValueOf(FoundAttribute const& attribute, AtTime const* at = nullptr);

}  // namespace gattr
