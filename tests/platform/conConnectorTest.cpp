#include "platform/NonGeometricAttributes/conC_Connector.h"

#include <gtest/gtest.h>

#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace {

TEST(Connector, OffersComponentsFromOneToSixEachOnce) {
  struct Row {
    cls_Value::List components;
    char const* refused;  ///< as the message names them; empty when it takes them
  };
  Row const rows[] = {{{}, ""},
                      {{6, 1}, ""},
                      {{1, 2, 3, 4, 5, 6}, ""},
                      {{0}, "0"},
                      {{7, 2, -1}, "7, -1"},
                      {{2, 3, 2, 2}, "2 again, 2 again"},
                      {{9, 9}, "9, 9 again"}};
  for (Row const& row : rows) {
    conC_Connector connector;
    connector.SetMember("components", cls_Value(row.components));
    std::string text;
    try {
      connector.AssertValid();
    } catch (omu_ValueErrorException const& refusal) { text = refusal.what(); }
    std::string const refused = row.refused;
    EXPECT_EQ(text,
              refused.empty() ? "" : "The components of a connector are integers from 1 to 6, each at most once, not " + refused + ".");
  }
}

}  // namespace
