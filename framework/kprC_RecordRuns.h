#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/BasicUtils/cow_Handle.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"

/// The status and the state of one record per step, kept as runs of neighbouring equal records.
///
/// An attribute that is created, changed twice and switched off has five runs, whatever the number of steps, so that an
/// edit costs what it changes. A value: copies share one body until one of them is changed. Finding a record is
/// logarithmic in the runs, changing one is linear in them.
template <class S> class kprC_RecordRuns {
public:
  struct Run {
    std::uint32_t end;  ///< one past the last record
    mdl_PropagationStatusEnm status;
    cow_Handle<S> state;
  };

  std::size_t Size() const { return body_ && !body_->runs.empty() ? body_->runs.back().end : 0; }
  std::size_t Runs() const { return body_ ? body_->runs.size() : 0; }
  Run const& RunAt(std::size_t run) const { return body_->runs[run]; }
  std::size_t Begin(std::size_t run) const { return run == 0 ? 0 : body_->runs[run - 1].end; }
  /// The run that the record \p index lies in.
  std::size_t RunOf(std::size_t index) const {
    auto const& runs = body_->runs;
    return static_cast<std::size_t>(
        std::ranges::upper_bound(runs, static_cast<std::uint32_t>(index), {}, &Run::end) - runs.begin());
  }

  mdl_PropagationStatusEnm Status(std::size_t index) const { return RunAt(RunOf(index)).status; }
  cow_Handle<S> const& State(std::size_t index) const { return RunAt(RunOf(index)).state; }

  void Clear() { body_.Reset(); }
  /// Appends \p count equal records.
  void Append(std::size_t count, mdl_PropagationStatusEnm status, cow_Handle<S> state) {
    if (count == 0) { return; }
    std::vector<Run>& runs = Body();
    auto const end = static_cast<std::uint32_t>((runs.empty() ? 0 : runs.back().end) + count);
    if (!runs.empty() && runs.back().status == status && runs.back().state.Same(state)) {
      runs.back().end = end;
    } else {
      runs.push_back({end, status, std::move(state)});
    }
  }
  void Set(std::size_t index, mdl_PropagationStatusEnm status, cow_Handle<S> state) {
    std::size_t const at = Isolate(index, index + 1);
    Run& run = Body()[at];
    run.status = status;
    run.state = std::move(state);
  }
  /// Takes the state from the records \p begin to \p end (one past the last) and leaves their status.
  void ClearStates(std::size_t begin, std::size_t end) {
    if (begin >= end) { return; }
    for (std::size_t at = Isolate(begin, end); at < Runs() && Begin(at) < end; ++at) { Body()[at].state.Reset(); }
  }
  void InsertAt(std::size_t index, mdl_PropagationStatusEnm status, cow_Handle<S> state) {
    std::size_t const at = Split(index);
    std::vector<Run>& runs = Body();
    runs.insert(runs.begin() + static_cast<std::ptrdiff_t>(at), {static_cast<std::uint32_t>(index), status, std::move(state)});
    for (std::size_t run = at; run < runs.size(); ++run) { ++runs[run].end; }
  }
  void EraseAt(std::size_t index) {
    std::size_t const at = Isolate(index, index + 1);
    std::vector<Run>& runs = Body();
    runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(at));
    for (std::size_t run = at; run < runs.size(); ++run) { --runs[run].end; }
  }

private:
  struct Shared : mem_Counted {
    std::vector<Run> runs;
  };

  std::vector<Run>& Body() {
    if (!body_) { body_ = cow_Handle<Shared>::Make(); }
    return body_.Get().runs;
  }
  /// Makes a run begin at \p index and returns it.
  std::size_t Split(std::size_t index) {
    if (index >= Size()) { return Runs(); }
    std::size_t const at = RunOf(index);
    if (Begin(at) == index) { return at; }
    std::vector<Run>& runs = Body();
    Run head = runs[at];
    head.end = static_cast<std::uint32_t>(index);
    runs.insert(runs.begin() + static_cast<std::ptrdiff_t>(at), std::move(head));
    return at + 1;
  }
  std::size_t Isolate(std::size_t begin, std::size_t end) {
    Split(end);
    return Split(begin);
  }

  cow_Handle<Shared> body_;
};
