#pragma once

#include <optional>
#include <string>

#include "command/Session.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "text/Progress.h"

namespace gattr {

/// Runs the journal in a file, up to the first command that is refused: answers its outcome, with file and line before the message.
/// Raises a StoreError for a file that cannot be read, a JournalError for what is no journal, and Cancelled where \p progress, which counts
/// bytes, does not want to go on. What was done by then stays: who wants all or nothing gives a session of its own.
DDB_API std::optional<Outcome> Replay(Session& session, std::string const& path, Progress const& progress = {});

}  // namespace gattr
