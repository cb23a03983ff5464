#include "module/kbc/kbcC_module.h"
#include "tests/support/Library.h"
#include "tests/support/Page.h"
#include "tests/support/TypesPage.h"

// docs/boundary-conditions.md shows the types and their procedures in tables that are made here.

namespace {

constexpr char const* kPage = "docs/boundary-conditions.md";

class BoundaryConditionsPage : public test::WithLibrary {
protected:
  BoundaryConditionsPage() {
    struct Head {
      std::string_view head, label;
    };
    constexpr Head kHeads[] = {
        {"D", "Displacement/Rotation"},
        {"S", "Symmetry/Antisymmetry/Encastre"},
        {"S", ""},
        {"V", "Velocity/Angular velocity"},
        {"A", "Acceleration/Angular acceleration"},
        {"cD", "Connector displacement"},
        {"cV", "Connector velocity"},
        {"cA", "Connector acceleration"},
        {"cF", "Connector material flow"},
        {"T", "Temperature"},
        {"PP", "Pore pressure"},
        {"AP", "Acoustic pressure"},
        {"FC", "Fluid cavity pressure"},
        {"EP", "Electric potential"},
        {"MC", "Mass concentration"},
        {"SUB", "Submodel"},
    };
    for (Head const& head : kHeads) {
      auto& type = types_.emplace_back(test::PageType<kbcC_BC>{std::string(head.head), {}});
      std::ranges::copy_if(kbcC_Constructors(), std::back_inserter(type.commands),
                           [&](kbcC_Constructor const& constructor) { return constructor.label == head.label; });
      shown_ += type.commands.size();
    }
  }
  std::span<test::PageType<kbcC_BC> const> Types() const { return types_; }
  std::size_t Shown() const { return shown_; }

private:
  std::vector<test::PageType<kbcC_BC>> types_;
  std::size_t shown_ = 0;
};

TEST_F(BoundaryConditionsPage, ShowsEveryType) {
  EXPECT_EQ(Shown(), kbcC_Constructors().size());
  test::ExpectOnPage(kPage, "types", test::TableOfTypes(Types()));
}

TEST_F(BoundaryConditionsPage, ShowsWhichProcedureAdmitsWhichType) {
  test::ExpectOnPage(kPage, "procedures", test::TableOfAdmission(Types()));
}

}  // namespace
