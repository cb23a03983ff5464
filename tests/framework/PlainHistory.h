#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A boundary condition's history in the plainest form: one record per step, every pass a walk over all of them. The
/// measure for the engine, which keeps runs and shares states.
namespace plain {

struct Member {
  double value = 0.0;
  int state = 0;  // 0 unset, 1 set, 2 propagated, 3 freed
  bool operator==(Member const&) const = default;
};

struct State {
  bool off = false;
  std::array<Member, 3> u;
  bool operator==(State const&) const = default;

  bool Modified() const {
    for (Member const& m : u) {
      if (m.state == 1 || m.state == 3) { return true; }
    }
    return false;
  }
  State Carried(bool switchedOff) const {
    State next = *this;
    next.off = switchedOff;
    for (Member& m : next.u) { m = m.state == 1 || m.state == 2 ? Member{m.value, 2} : Member{}; }
    return next;
  }
  State With(State const& own) const {
    State merged = *this;
    for (std::size_t i = 0; i < u.size(); ++i) {
      if (own.u[i].state == 1) { merged.u[i] = own.u[i]; }
      if (own.u[i].state == 3) { merged.u[i] = {0.0, 3}; }
    }
    return merged;
  }
};

struct Record {
  char step = 'G';
  int status = 0;
  std::optional<State> state;
};

enum class Kind { G, P, M };
inline Kind KindOf(char step) {
  if (std::string("MCS").find(step) != std::string::npos) { return Kind::M; }
  return std::string("PFU").find(step) != std::string::npos ? Kind::P : Kind::G;
}

/// One pass over \p records; \p admits tells for a step letter whether the type may be carried into it.
inline void Pass(std::vector<Record>& records, std::function<bool(char)> const& admits) {
  bool created = false, hasBase = false, baseOff = false, untouched = false;
  State source;
  int frequency = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    Record& r = records[i];
    Kind const kind = KindOf(r.step);
    bool own = false, off = false;
    if (r.state) {
      bool const neverOff = r.status == 0 || (r.status >= 5 && r.status <= 8) || r.status == 12 || r.status == 13;
      if (r.status == 1 && !created) {
        own = true;
        off = r.state->off;
      } else if (r.status != 1 && r.state->off && !neverOff) {
        off = true;
      } else {
        own = r.state->Modified();
      }
    }
    if (!created) {
      if (!own && !off) {
        r.status = 0;
        r.state.reset();
      } else {
        created = true;
        source = *r.state;
        r.status = source.off ? 4 : 1;
        if (kind == Kind::G) {
          hasBase = true;
          baseOff = source.off;
          untouched = i == 0 && r.step == 'I';
        }
      }
    } else {
      State const on = source.Carried(false), offed = source.Carried(true);
      auto const merged = [&](bool flag) {
        State m = on.With(*r.state);
        m.off = flag;
        return m;
      };
      auto const give = [&](int status, State state) {
        r.status = status;
        r.state = std::move(state);
      };
      if (!hasBase) {
        give(kind == Kind::M && frequency == 1 ? 12 : 7, on);
      } else if (kind == Kind::M) {
        if (!admits(r.step)) {
          give(6, baseOff ? offed : on);
        } else {
          give(baseOff || frequency == 11 ? 5 : 12, on);
        }
      } else if (!own && !admits(r.step)) {
        give(6, baseOff ? offed : on);
      } else if (baseOff) {
        give(5, own ? merged(true) : offed);
      } else if (kind == Kind::P) {
        off ? give(11, offed) : own ? give(10, merged(false)) : give(9, on);
      } else if (off) {
        give(4, offed);
        baseOff = true;
      } else if (own) {
        give(untouched ? 10 : 3, merged(false));
        untouched = false;
        source = *r.state;
      } else {
        give(untouched ? 9 : 2, on);
      }
    }
    if (r.step == 'F') { frequency = r.status; }
  }
}

}  // namespace plain
