#include "module/kbc/kbcC_ConnectorBC.h"

void kbcC_ConnectorBC::AssertInModel(ddr_Model const& model) const {
  kbcC_BC::AssertInModel(model);
}
