#include "tests/store/Models.h"
#include "store/TextStore.h"
#include <iostream>
#include <sstream>
TEST(Try, Text) {
  ddr_Model m = SmallModel();
  gattr::WriteText(m, std::cout);
  std::ostringstream o; gattr::WriteText(m, o);
  std::istringstream i(o.str());
  ddr_Model r = gattr::ReadText(i, "x.json");
  EXPECT_TRUE(r.Equals(m));
  std::ostringstream p; gattr::WriteText(r, p);
  EXPECT_EQ(o.str(), p.str());
}
auto* const library = testing::AddGlobalTestEnvironment(new LibraryEnvironment);
