#include "command/Replay.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "command/Journal.h"
#include "store/StoreError.h"

namespace gattr {

std::optional<Outcome> Replay(Session& session, std::string const& path, Progress const& progress) {
  constexpr std::size_t kEvery = 64;  // commands
  std::error_code error;
  auto const size = static_cast<std::size_t>(std::filesystem::file_size(path, error));
  std::ifstream in(path, std::ios::binary);
  if (error || !in) {
    throw StoreError(path + ": cannot be read: " + (error ? error : std::error_code(errno, std::generic_category())).message());
  }
  JournalReader reader(in, path);
  for (std::size_t done = 0;; ++done) {
    bool const tells = progress && done % kEvery == 0;
    if (tells && !progress(in.eof() ? size : static_cast<std::size_t>(in.tellg()), size)) { throw Cancelled(); }
    std::optional<cls_Value> const command = reader.Next();
    if (!command) { break; }
    Outcome outcome = session.Execute(*command);
    if (outcome.ok) { continue; }
    outcome.message = path + ", line " + std::to_string(reader.Line()) + ": " + outcome.message;
    return outcome;
  }
  if (progress) { progress(size, size); }
  return std::nullopt;
}

}  // namespace gattr
