// A forming job set up from a program: the commands of journals, with names that the compiler checks.
#include <cstdio>

#include "embed/Commands.h"

int main() {
  gattr::Model model;
  for (char const* step : {"Press", "Form", "Release"}) { model.StaticStep(step, {.nlgeom = "ON", .initialInc = 0.1}); }
  model.Set("Top");
  auto punch = model.DisplacementBC("Punch", "Press", {.region = "Top", .u1 = 0.0, .u2 = -10.0});
  punch.In("Form").Set({.u2 = -12.0});
  punch.In("Release").Set({.u1 = gattr::FREED});
  punch.rename("Stamp");
  try {
    punch.move("Form", "Nowhere");
  } catch (gattr::Refused const& refused) { std::printf("%s\n", refused.what()); }
  for (char const* step : {"Press", "Form", "Release"}) {
    auto const values = punch.In(step).Values();
    std::printf("%s in %s: status %d, u2 = %g\n", punch.Name().c_str(), step, punch.In(step).Status(), values.u2.Get().value_or(0.0));
  }
  model.Undo();
  std::printf("now called %s\n", punch.Name().c_str());
  model.Save("forming.gadb");
}
