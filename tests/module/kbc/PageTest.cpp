#include "module/kbc/kbcC_module.h"
#include "tests/support/Library.h"
#include "tests/support/Page.h"
#include "tests/support/TypesPage.h"

// docs/boundary-conditions.md shows the types and their procedures in tables that are made here.

namespace {

constexpr char const* kPage = "docs/boundary-conditions.md";

constexpr test::PageHead kHeads[] = {
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

class BoundaryConditionsPage : public test::WithLibrary {
protected:
  std::vector<test::PageType<kbcC_BC>> const types = test::PageTypes(kbcC_Constructors(), kHeads);
};

TEST_F(BoundaryConditionsPage, ShowsEveryType) { test::ExpectOnPage(kPage, "types", test::TableOfTypes(types)); }

TEST_F(BoundaryConditionsPage, ShowsWhichProcedureAdmitsWhichType) {
  test::ExpectOnPage(kPage, "procedures", test::TableOfAdmission(types));
}

}  // namespace
