#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "command/Changes.h"
#include "command/Check.h"
#include "command/Session.h"

namespace gattr {

/// Follows a journal while a session runs it: from which line each object comes and what it says in each step, and which commands are
/// refused or leave no trace in the model. Costs a comparison for each command, as every listener does.
class DDB_API JournalCheck {
public:
  /// The session must stay where it is meanwhile.
  explicit JournalCheck(Session& session);
  JournalCheck(JournalCheck const&) = delete;
  JournalCheck& operator=(JournalCheck const&) = delete;

  /// To be called behind each command, with the line on which it begins and what came of it.
  void Note(std::size_t line, cls_Value const& command, Outcome const& outcome);

  /// What Check finds in the session's model, with the lines that made what is at fault, and behind that the commands that were refused
  /// or left no trace, in the order of their lines; those alone where \p withModel is false. Refused as \p choice is.
  std::vector<Finding> Findings(FindingChoice const& choice = {}, bool withModel = true) const;

private:
  using ObjectKey = std::pair<std::string, std::string>;  // kind and name
  struct Lines {
    std::size_t created = 0;
    std::map<std::string, std::size_t> inStep;  // the last that changed what it says there, by the step's name
  };

  DDB_LOCAL void Follow(ObjectChange const& change, std::size_t line);
  DDB_LOCAL std::size_t LineOf(Finding const& finding) const;

  Session& session_;
  std::vector<ObjectChange> changes_;  // of the command that is being run
  Subscription subscription_;
  std::map<ObjectKey, Lines> objects_;
  std::vector<Finding> noted_;
};

}  // namespace gattr
