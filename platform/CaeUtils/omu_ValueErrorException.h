#pragma once

#include "platform/BasicUtils/nex_Exception.h"

/// A value that was given is refused: out of range, of the wrong kind, or not among the permissible ones.
class DDB_API omu_ValueErrorException final : public nex_Refusal {
public:
  explicit omu_ValueErrorException(std::string_view text, nex_Origin origin = {}) : nex_Refusal(text, origin) {}
  char const* ClassName() const noexcept override { return "omu_ValueErrorException"; }
};
