#include "module/klo/kloC_module.h"
#include "tests/support/Library.h"
#include "tests/support/Page.h"
#include "tests/support/TypesPage.h"

// docs/loads.md shows the types and their procedures in tables that are made here.

namespace {

constexpr char const* kPage = "docs/loads.md";

constexpr test::PageHead kHeads[] = {
    {"F", "Concentrated force"},
    {"M", "Moment"},
    {"P", "Pressure"},
    {"ST", "Surface traction"},
    {"SE", "Shell edge load"},
    {"LL", "Line load"},
    {"BF", "Body force"},
    {"G", "Gravity"},
    {"R", "Rotational body force"},
    {"Co", "Coriolis force"},
    {"PS", "Generalized plane strain"},
    {"cF", "Connector force"},
    {"cM", "Connector moment"},
    {"PI", "Pipe pressure"},
    {"B", "Bolt load"},
    {"IR", "Inertia relief"},
    {"PN", "Pressure penetration (NYI)"},
    {"H", "Surface heat flux"},
    {"H", "Body heat flux"},
    {"H", "Concentrated heat flux"},
    {"W", "Surface pore fluid"},
    {"W", "Concentrated pore fluid"},
    {"HF", "Hydrostatic fluid flux"},
    {"Q", "Surface charge"},
    {"Q", "Body charge"},
    {"Q", "Concentrated charge"},
    {"I", "Surface current"},
    {"I", "Body current"},
    {"I", "Concentrated current"},
    {"C", "Surface concentration flux"},
    {"C", "Body concentration flux"},
    {"C", "Concentrated concentration flux"},
    {"VA", "Inward volume acceleration"},
    {"SUB", ""},
};

class LoadsPage : public test::WithLibrary {
protected:
  std::vector<test::PageType<kloC_Load>> const types = test::PageTypes(kloC_Constructors(), kHeads);
};

TEST_F(LoadsPage, ShowsEveryType) {
  test::ExpectOnPage(kPage, "types",
                     test::TableOfTypes(types, {"complexMagReal", "complexMagImag", "complexC1Real", "complexC1Imag", "complexC2Real",
                                                "complexC2Imag", "complexC3Real", "complexC3Imag"}));
}

TEST_F(LoadsPage, ShowsWhichProcedureAdmitsWhichType) { test::ExpectOnPage(kPage, "procedures", test::TableOfAdmission(types)); }

}  // namespace
