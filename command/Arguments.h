#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "command/Session.h"
#include "module/kpr/engine/kprC_StepDependent.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CaeUtils/omu_KeyErrorException.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace gattr {

/// A command and the object that it names, as messages and the undo stack tell them.
struct Label {
  std::string command;
  std::string_view kind = {};  ///< of the object, "boundaryCondition"; empty where the command says it
  std::string name = {};
  std::size_t others = 0;  ///< how many more objects it names

  /// 'boundaryCondition "Fix"', 'boundaryCondition "Fix" and 2 more'; empty where no object is named.
  std::string Object() const;
  /// 'deactivate boundaryCondition "Fix"'.
  std::string Text() const;
};

/// What a message about a command names, filled in while the command runs.
struct Subject : Label {
  std::string step;
  std::string member;
  std::string hint;      ///< what would have fitted: one sentence
  bool atFault = false;  ///< the command's content is to blame, whatever the refusal
};

/// The arguments of one command, each taken once by its name. Whatever is missing or of another type is refused, with the
/// argument named and without a number: omu_KeyErrorException and omu_ValueErrorException.
class Arguments {
public:
  /// Refuses what is no object, has no "command" or says something other than true or false for "dryRun".
  Arguments(cls_Value const& command, Subject& subject);

  std::string const& Command() const { return subject_.command; }
  bool DryRun() const { return dryRun_; }
  /// The command as it was given.
  cls_Value const& Whole() const { return command_; }

  bool Has(std::string_view name) const { return command_.Find(name) != nullptr; }
  /// A text argument; must be given. Good while the command is.
  std::string const& Text(std::string_view name);
  /// Null where it is left out.
  std::string const* OptionalText(std::string_view name);
  /// True or false; false when left out.
  bool Flag(std::string_view name);
  /// A list argument; must be given. Good while the command is.
  cls_Value::List const& List(std::string_view name);
  /// A text argument that is a name: not empty, UTF-8.
  cow_String Name(std::string_view name);

  /// Calls \p fn(name, value) for the arguments that nobody has taken, in the order written; in which all texts are UTF-8.
  template <class Fn> void ForEachRest(Fn&& fn) const {
    for (auto const& [name, value] : *command_.As<cls_Value::Fields>()) {
      if (IsTaken(value)) { continue; }
      AssertTexts(name, value);
      fn(name, value);
    }
  }
  kprC_Arguments Rest() const;
  /// Refuses what nobody has taken; \p known are the names that would have been.
  void AssertNoRest(std::initializer_list<std::string_view> known) const;

private:
  /// The argument of that name, and nobody else asks for it; null where it is left out.
  cls_Value const* Take(std::string_view name);
  bool IsTaken(cls_Value const& value) const;
  [[noreturn]] void RefuseMissing(std::string_view name) const;
  std::string const& AsText(std::string_view name, cls_Value const& value) const;
  /// Refuses a text that is not UTF-8, in a value of several too.
  void AssertTexts(std::string_view name, cls_Value const& value) const;

  cls_Value const& command_;
  Subject& subject_;
  std::vector<cls_Value const*> taken_;  // of command_
  bool dryRun_ = false;
};

/// Refuses a name that nothing bears, and blames the command.
[[noreturn]] void RefuseUnknown(Subject& subject, std::string const& text, std::string hint = {});
/// Refuses a value, and blames the command.
[[noreturn]] void RefuseValue(Subject& subject, std::string const& text, std::string hint = {});
/// Refuses an edit that the model as it stands does not allow.
[[noreturn]] void RefuseEdit(Subject& subject, std::string const& text, std::string hint = {});

}  // namespace gattr
