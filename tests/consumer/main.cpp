// A program outside the project: installed headers and libraries only.
#include <cstdio>

#include "framework/Refusal.h"
#include "framework/ddr_Model.h"
#include "module/DDB_GeometricAttributes.h"
#include "module/kbc/kbcC_BC.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace {

// Types keep their meaning across the libraries: those of objects that the library made,
bool FindsTheBoundaryConditions() {
  ddr_Model model;
  auto const* conditions = dynamic_cast<kprC_PropagatingContainer<kbcC_BC> const*>(model.ConstExtension(ddr_Model::bcCmd()));
  return conditions != nullptr && conditions->UnsuppressedSize() == 0;
}

// and those of exceptions that it throws.
bool CatchesARefusal() {
  try {
    omu_PrimEnum<mdl_PropagationStatusEnm, 1> const status(cow_String("NO SUCH STATUS"));
  } catch (omu_ValueErrorException const& refusal) { return !refusal.Text().View().empty(); }
  return false;
}

// by their common base too, and as values.
bool TellsOfARefusal() {
  try {
    kbcC_Assert(false, kbcC_ErrorEnm::MoveInactive);
  } catch (nex_Refusal const& refusal) {
    gattr::Refusal const told = gattr::RefusalOf(refusal);
    return told.module == "kbc" && told.code == refusal.Code() && told.exception == "nex_TextException" && told.message == refusal.what();
  }
  return false;
}

}  // namespace

int main() {
  int count = 0;
  DDB_GeometricAttributes_initialize(count);
  bool const good = FindsTheBoundaryConditions() && CatchesARefusal() && TellsOfARefusal();
  DDB_GeometricAttributes_finalize(count);
  std::puts(good ? "consumer: good" : "consumer: a type is not the library's");
  return good ? 0 : 1;
}
