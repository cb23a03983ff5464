#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreUtils/thr_Singleton.h"

/// The code of the refusal that \p action raises; -1 when it raises none.
template <class Action> int RefusalOf(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (nex_TextException const& e) {
    EXPECT_STREQ(e.Module(), "kpr");
    return e.Code();
  }
  return -1;
}

/// Labels separated by blanks, as procedure types.
inline std::vector<unsigned> Procedures(std::string_view labels) {
  std::vector<unsigned> types;
  std::istringstream in{std::string(labels)};
  for (std::string label; in >> label;) {
    types.push_back(thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Type(label));
    EXPECT_NE(types.back(), kprC_ProcedureTypeLabelMap::kNone) << label;
  }
  return types;
}

/// Procedure types as labels separated by blanks.
template <class Types> std::string Labels(Types const& types) {
  std::string labels;
  for (unsigned const type : types) {
    labels += (labels.empty() ? "" : " ") + std::string(thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Label(type));
  }
  return labels;
}
