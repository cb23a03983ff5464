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

/// The calls of \p Owner, a type of the owner's own.
template <class Owner> ddb_CallCounter& ddb_CallsOf() {
  static ddb_CallCounter calls;
  return calls;
}
/// Start of a library or module: for the first call only, adds one to the caller's count and runs \p start.
template <class Owner, class Start> void ddb_Start(int& count, Start&& start) {
  if (!ddb_CallsOf<Owner>().Enter()) { return; }
  ++count;
  start();
}
/// Stop, mirroring the start: the last call alone takes one from the count and runs \p stop.
template <class Owner, class Stop> void ddb_Stop(int& count, Stop&& stop) {
  if (!ddb_CallsOf<Owner>().Leave()) { return; }
  --count;
  stop();
}
