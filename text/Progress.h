#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>

#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// Told from time to time how far a long work has come: so much of so much, 0 where the whole is not known. Answers whether to go on.
using Progress = std::function<bool(std::size_t done, std::size_t total)>;

/// A long work that was told not to go on. All is as it was before.
class DDB_API Cancelled : public std::runtime_error {
public:
  Cancelled() : std::runtime_error("cancelled") {}
};

/// Counts what is done of a long work, and tells it now and then. May be told of nothing.
class Ticker {
public:
  explicit Ticker(Progress const& progress, std::size_t total = 0) : progress_(progress), total_(total) { Tell(); }

  /// One more is done. Raises Cancelled.
  void operator()() {
    constexpr std::size_t kEvery = 64;
    if (++done_ % kEvery == 0) { Tell(); }
  }
  /// All is done; too late for anything to be cancelled.
  void Finish() const {
    if (progress_) { progress_(done_, done_); }
  }

private:
  void Tell() const {
    if (progress_ && !progress_(done_, total_)) { throw Cancelled(); }
  }

  Progress const& progress_;
  std::size_t done_ = 0, total_;
};

}  // namespace gattr
