#pragma once

/// Counts the calls of a start and a stop that may be nested: the first Enter and the last Leave do the work.
class ddb_CallCounter {
public:
  /// True for the first call.
  bool Enter() { return calls_++ == 0; }
  /// True for the call that mirrors the first one; calls too many do nothing.
  bool Leave() { return calls_ > 0 && --calls_ == 0; }

private:
  int calls_ = 0;
};
