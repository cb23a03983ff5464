#include "platform/CaeUtils/omu_ChangeHistory.h"

#include <algorithm>
#include <string>

omu_ChangedNames::~omu_ChangedNames() = default;

void omu_ChangeHistory::AppendModifiedAll(cow_Handle<omu_ChangedNames> names) {
  std::size_t const size = names->Size();
  if (size != 0) { AppendRun({.names = std::move(names), .size = size}); }
}

void omu_ChangeHistory::Append(omu_PrimTuple record) { AppendRun({.tuple = std::move(record)}); }

void omu_ChangeHistory::AppendRun(Run run) {
  run.begin = Size();
  run.recordsLeft = records_.Size();
  runs_.Append(std::move(run));
}

void omu_ChangeHistory::AppendFrom(omu_ChangeHistory const& other, std::size_t index) {
  if (index >= other.Size()) { return; }
  Place const first = other.Find(index);
  std::size_t record = first.record, offset = first.offset;
  auto const appendRecordsTo = [&](std::size_t end) {
    for (; record < end; ++record) { records_.Append(other.records_[record]); }
  };
  for (std::size_t i = first.run; i < other.runs_.Size(); ++i) {
    Run run = other.runs_[i];
    appendRecordsTo(run.recordsLeft);
    run.skipped += offset;
    run.size -= offset;
    AppendRun(std::move(run));
    offset = 0;
  }
  appendRecordsTo(other.records_.Size());
}

void omu_ChangeHistory::TruncateTo(std::size_t size) {
  if (size >= Size()) { return; }
  Place const place = Find(size);
  records_.TruncateTo(place.record);
  bool const cut = place.offset != 0;
  runs_.TruncateTo(place.run + (cut ? 1 : 0));
  if (cut) { runs_.Get(place.run).size = place.offset; }
}

std::size_t omu_ChangeHistory::SizeOfRuns() const noexcept {
  if (runs_.IsEmpty()) { return 0; }
  Run const& last = *(runs_.end() - 1);
  return last.begin + last.size - last.recordsLeft;
}

omu_ChangeHistory::Place omu_ChangeHistory::Find(std::size_t index) const {
  auto const behind = std::ranges::upper_bound(runs_, index, {}, &Run::begin);
  auto const run = static_cast<std::size_t>(behind - runs_.begin());
  if (run == 0) { return {index, 0, false, 0}; }
  Run const& before = runs_[run - 1];
  std::size_t const offset = index - before.begin;
  if (offset < before.size) { return {before.recordsLeft, run - 1, true, offset}; }
  return {before.recordsLeft + offset - before.size, run, false, 0};
}

omu_PrimTuple omu_ChangeHistory::operator[](std::size_t index) const {
  if (index >= Size()) { cow_RefuseIndex(index, Size()); }
  Place const place = Find(index);
  if (!place.isInRun) { return TupleOf(records_[place.record].kind, records_[place.record].name); }
  Run const& run = runs_[place.run];
  if (!run.names) { return run.tuple; }
  cow_String found;
  std::size_t at = 0;
  run.names->ForEach([&](cow_String const& name) {
    if (at++ == run.skipped + place.offset) { found = name; }
  });
  return TupleOf(omu_ChangeKind::Modify, found);
}

omu_PrimTuple omu_ChangeHistory::const_iterator::operator*() const {
  Place const place = history_->Find(index_);
  Run const* const run = place.isInRun ? &history_->runs_[place.run] : nullptr;
  if (run == nullptr || !run->names) { return (*history_)[index_]; }
  if (run_ != place.run) {
    names_.Clear();
    run->names->ForEach([this](cow_String const& name) { names_.Append(name); });
    run_ = place.run;
  }
  return TupleOf(omu_ChangeKind::Modify, names_[run->skipped + place.offset]);
}

omu_PrimTuple omu_ChangeHistory::TupleOf(omu_ChangeKind kind, cow_String const& name) {
  constexpr int kInsertMark = -99;  // stands in every insertion record
  static cow_String const insert = "Insert", remove = "Remove", modify = "Modify", redoSummary = "RedoSummary";
  switch (kind) {
    case omu_ChangeKind::Insert: return {insert, name, kInsertMark};
    case omu_ChangeKind::Remove: return {remove, name};
    case omu_ChangeKind::Modify: return {modify, cow_String(std::string(name.View()) + ".")};
    case omu_ChangeKind::RedoSummary: break;
  }
  return {redoSummary};
}
