#pragma once

#include <string_view>

namespace gattr {

/// What a save does with a file that somebody else has written since it was opened or saved here.
enum class Changed { Refuse, Overwrite };

/// How it is refused.
inline constexpr std::string_view kWasChanged =
    "was changed by another program since it was opened: open it again, or overwrite it (--force)";

}  // namespace gattr
