#pragma once

#include "platform/BasicUtils/nex_Exception.h"

/// Nothing of the given name exists in the repository that was asked.
class DDB_API omu_KeyErrorException final : public nex_Refusal {
public:
  explicit omu_KeyErrorException(std::string_view text, nex_Origin origin = {}) : nex_Refusal(text, origin) {}
  char const* ClassName() const noexcept override { return "omu_KeyErrorException"; }
};
