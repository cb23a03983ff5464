#include "command/Refusal.h"

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CaeUtils/omu_KeyErrorException.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace gattr {

namespace {
template <class E> bool Take(std::exception const& error, char const* name, Refusal& refusal) {
  auto const* raised = dynamic_cast<E const*>(&error);
  if (raised != nullptr) { refusal = {raised->Module(), raised->Code(), name, std::string(raised->Text().View())}; }
  return raised != nullptr;
}
}  // namespace

Refusal RefusalOf(std::exception const& error) {
  Refusal refusal;
  bool const known = Take<nex_TextException>(error, "nex_TextException", refusal) ||
                     Take<omu_ValueErrorException>(error, "omu_ValueErrorException", refusal) ||
                     Take<omu_KeyErrorException>(error, "omu_KeyErrorException", refusal);
  if (!known) { refusal.message = error.what(); }
  return refusal;
}

}  // namespace gattr
