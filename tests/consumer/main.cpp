// A program outside the project: installed headers and libraries only.
#include <cstdio>

#include "platform/BasicUtils/cow_Map.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

int main() {
  cow_Map<cow_String, int> steps;
  steps.Insert("Initial", 0);
  if (steps.Size() != 1) { return 1; }
  // An exception that a library throws is the type that the program knows.
  try {
    omu_PrimEnum<mdl_PropagationStatusEnm, 1> const status(cow_String("NO SUCH STATUS"));
  } catch (omu_ValueErrorException const& refusal) {
    std::puts(refusal.Text().c_str());
    return 0;
  }
  return 2;
}
