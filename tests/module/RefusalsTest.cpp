#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <vector>

#include "module/kbc/kbcC_assert.h"
#include "module/kin/kinC_assert.h"
#include "module/klo/kloC_assert.h"
#include "module/kor/korC_assert.h"
#include "module/kpf/kpfC_assert.h"
#include "module/kpr/kprC_assert.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

// The tables of refusals themselves stand on docs/refusals.md; here is how they are raised, and by what.

namespace {

struct Module {
  nex_Catalogue catalogue;
  void (*refuse)(int code);
  int valueLine, textLine;
  char const* other;  // class of what a number outside the table throws
};
Module const kModules[] = {
    {kbcC_Errors(), [](int code) { kbcC_Assert(false, static_cast<kbcC_ErrorEnm>(code)); }, 193, 199, "text "},
    {kloC_Errors(), [](int code) { kloC_Assert(false, static_cast<kloC_ErrorEnm>(code)); }, 277, 271, "value "},
    {kpfC_Errors(), [](int code) { kpfC_Assert(false, static_cast<kpfC_ErrorEnm>(code)); }, 20, 20, "text "},
    {kinC_Errors(), [](int code) { kinC_Assert(false, static_cast<kinC_ErrorEnm>(code)); }, 684, 678, "value "},
    {korC_Errors(), [](int code) { korC_Assert(false, static_cast<korC_ErrorEnm>(code)); }, 291, 285, "value "},
    {kprC_Errors(), [](int code) { kprC_Assert(false, static_cast<kprC_ErrorEnm>(code)); }, -1, 20, "text "},
};

/// Class, text, source, line and origin of what a module throws for a number.
std::string Thrown(Module const& module, int code) {
  auto const show = [&](char const* kind, auto const& e, int line) {
    bool const atLine = line < 0 || e.Line() == line;
    return std::string(kind) + " " + std::string(e.Text().View()) + "|" + e.SourceName() + (atLine ? "" : " at another line") + "|" +
           e.Module() + std::to_string(e.Code());
  };
  try {
    module.refuse(code);
  } catch (omu_ValueErrorException const& e) { return show("value", e, module.valueLine); } catch (nex_TextException const& e) {
    return show("text", e, module.textLine);
  }
  return "nothing";
}

TEST(Refusals, AreRaisedAsTheirRowSays) {
  for (Module const& module : kModules) {
    std::string const name = module.catalogue.module;
    std::string const source = "|generated/module/" + name + "/com/impl/" + name + "C_assert|" + name;
    for (nex_ErrorRow const& row : module.catalogue.rows) {
      EXPECT_EQ(Thrown(module, row.code),
                (row.valueError ? "value " : "text ") + std::string(row.text) + source + std::to_string(row.code));
    }
    for (int const outside : {-1, static_cast<int>(module.catalogue.rows.size()), 1000}) {
      EXPECT_EQ(Thrown(module, outside), module.other + source + std::to_string(outside));
    }
  }
  EXPECT_NO_THROW(kbcC_Assert(true, kbcC_ErrorEnm::Suppressed));
  EXPECT_EQ(kpfC_i18n(kpfC_ErrorEnm::ZeroMagnitude).View(), nex_FindRow(kpfC_Errors().rows, 28)->text);
  EXPECT_TRUE(kpfC_i18n(static_cast<kpfC_ErrorEnm>(98)).IsEmpty());
  EXPECT_NO_THROW(kbcC_AssertContent(true, kbcC_ContentErrorEnm::UnavailableComponents, "u1"));
}

/// Where the enumerators of a module are named: by file, in its page of rules by row.
std::map<std::string, std::set<std::string>> Places(std::string const& module) {
  std::map<std::string, std::set<std::string>> places;
  std::regex const qualified(module + "C_(?:Content)?ErrorEnm::(\\w+)"), inRules(R"(\.(\w+) = Error::(\w+))"),
      operation(R"(k(\w+) = std::to_array<kprC_(?:Test|MoveTarget)>\(([^;]*);)"), inTest(R"(, Error::(\w+)\})"),
      word(R"((^|[^\w.:])(\w+))");
  std::string const usesAll = "using enum " + module + "C_ErrorEnm";
  for (char const* folder : {"module", "command"}) {
    for (auto const& file : std::filesystem::recursive_directory_iterator(std::string(GATTR_SOURCE_DIR "/") + folder)) {
      std::filesystem::path const& path = file.path();
      std::string const stem = path.stem().string();
      bool const isSource = path.extension() == ".h" || path.extension() == ".cpp" || path.extension() == ".def";
      if (!isSource || stem == module + "C_assert") { continue; }
      if (stem == "Hints") { continue; }  // says the way out of what others raise
      std::ifstream in(path);
      std::string const text = std::regex_replace(std::string(std::istreambuf_iterator<char>(in), {}), std::regex("//[^\n]*"), "");
      auto const each = [&](std::regex const& pattern, auto&& take) {
        for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at) { take(*at); }
      };
      if (stem == "Rules" && path.string().find("/module/" + module + "/") != std::string::npos) {
        each(inRules, [&](std::smatch const& match) { places[match[2]].insert("Rules." + match[1].str()); });
        each(operation, [&](std::smatch const& tests) {
          std::string const list = tests[2];
          for (std::sregex_iterator at(list.begin(), list.end(), inTest), end; at != end; ++at) {
            places[(*at)[1]].insert("Rules.k" + tests[1].str());
          }
        });
        continue;
      }
      each(qualified, [&](std::smatch const& match) { places[match[1]].insert(stem); });
      if (text.find(usesAll) != std::string::npos) {
        each(word, [&](std::smatch const& match) { places[match[2]].insert(stem); });
      }
    }
  }
  return places;
}

TEST(Refusals, TellWhatRaisesThem) {
  for (Module const& module : kModules) {
    auto const places = Places(module.catalogue.module);
    for (auto const rows : {module.catalogue.rows, module.catalogue.contents}) {
      for (nex_ErrorRow const& row : rows) {
        std::string raisedBy;
        if (auto const found = places.find(row.name); found != places.end()) {
          for (std::string const& place : found->second) { raisedBy += (raisedBy.empty() ? "" : ", ") + place; }
        }
        EXPECT_EQ(row.raisedBy, raisedBy) << module.catalogue.module << " " << row.code << " " << row.name;
      }
    }
  }
}

}  // namespace
