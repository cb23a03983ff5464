#pragma once

#include <string>

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace test {

/// What \p refuse throws for a code of the family's enumeration: class, text, source, line and origin in one line.
template <class Error> std::string Thrown(void (*refuse)(bool, Error), int code) {
  auto const show = [](char const* kind, auto const& e) {
    return std::string(kind) + " " + std::string(e.Text().View()) + "|" + e.SourceName() + ":" + std::to_string(e.Line()) + "|" +
           e.Module() + std::to_string(e.Code());
  };
  try {
    refuse(false, static_cast<Error>(code));
  } catch (omu_ValueErrorException const& e) { return show("value", e); } catch (nex_TextException const& e) {
    return show("text", e);
  }
  return "nothing";
}

}  // namespace test
