#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cls_Object.h"
#include "platform/BasicUtils/cls_Visitor.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "platform/CaeUtils/omu_PrimEnum.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace {

enum class DistribTypeEnum : int { Uniform = 0, UserDefined = 1, Field = 2 };
enum class CategoryEnm : int { Mechanical = 0, Thermal = 1 };

}  // namespace

template <> struct omu_EnumTable<DistribTypeEnum> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"UNIFORM", 0}, {"USER_DEFINED", 1}, {"FIELD", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0}, {"UNIFORM", 1}, {nullptr, 0}};
};

namespace {

using DistribType = omu_PrimEnum<DistribTypeEnum, 1>;
using Category = omu_PrimEnum<CategoryEnm, 1>;

struct TextRow {
  char const* text;
  bool accepted;
  DistribTypeEnum value;  ///< afterwards, beginning with UserDefined
};

constexpr TextRow kTexts[] = {
    {"UNIFORM", true, DistribTypeEnum::Uniform},       {"USER_DEFINED", true, DistribTypeEnum::UserDefined},
    {"FIELD", true, DistribTypeEnum::Field},           {"uniform", false, DistribTypeEnum::UserDefined},
    {"UNIFORM ", false, DistribTypeEnum::UserDefined}, {"UNIFOR", false, DistribTypeEnum::UserDefined},
    {"", false, DistribTypeEnum::UserDefined},         {nullptr, false, DistribTypeEnum::UserDefined},
};

TEST(EnumValue, TakesATextOfItsTableAndKeepsItsValueOtherwise) {
  for (TextRow const& row : kTexts) {
    SCOPED_TRACE(row.text != nullptr ? row.text : "null");
    DistribType value = DistribTypeEnum::UserDefined;
    EXPECT_EQ(value.SetValue(row.text), row.accepted);
    EXPECT_TRUE(value == row.value);
    EXPECT_EQ(value.Text(), atr(row.value));
  }
}

TEST(EnumValue, TakesANumberOfItsTableAndKeepsItsValueOtherwise) {
  for (int number = -1; number <= 4; ++number) {
    SCOPED_TRACE(number);
    bool const exists = number >= 0 && number <= 2;
    DistribType value = DistribTypeEnum::UserDefined;
    EXPECT_EQ(value.SetValue(static_cast<DistribTypeEnum>(number)), exists);
    EXPECT_EQ(static_cast<int>(static_cast<DistribTypeEnum>(value)), exists ? number : 1);
  }
}

template <class Make> void ExpectRefusal(Make const& make, std::string const& message, int line) {
  try {
    make();
  } catch (omu_ValueErrorException const& refusal) {
    EXPECT_EQ(refusal.Text(), message);
    EXPECT_STREQ(refusal.SourceName(), "generated/include/omu_PrimEnum");
    EXPECT_EQ(refusal.Line(), line);
    return;
  }
  FAIL() << "not refused: " << message;
}

/// A stored object whose members all hold one text.
class StoredText final : public cls_ReadVisitor {
public:
  explicit StoredText(std::string text) : text_(std::move(text)) {}
  std::string ReadText(std::string_view /*member*/) const override { return text_; }

  unsigned TypeId() const override { return 0; }
  bool Has(std::string_view /*member*/) const override { return true; }
  bool IsNull(std::string_view /*member*/) const override { return false; }
  bool ReadBool(std::string_view member) const override { Refuse(member, "a text"); }
  long long ReadInteger(std::string_view member) const override { Refuse(member, "a text"); }
  double ReadReal(std::string_view member) const override { Refuse(member, "a text"); }
  cow_Handle<cls_Object> ReadObject(std::string_view member) const override { Refuse(member, "a text"); }
  void ReadNested(std::string_view member, std::function<void(cls_ReadVisitor const&)> const& /*read*/) const override {
    Refuse(member, "a text");
  }
  std::size_t StartList(std::string_view member) const override { Refuse(member, "a text"); }
  void EndList() const override {}
  std::vector<std::string> StartMap(std::string_view member) const override { Refuse(member, "a text"); }
  void EndMap() const override {}
  [[noreturn]] void Refuse(std::string_view member, std::string_view expected) const override {
    throw std::logic_error(std::string(member) + " is " + std::string(expected));
  }

private:
  std::string text_;
};

TEST(EnumValue, IsReadFromTheTextThatIsStored) {
  EXPECT_TRUE(DistribType(StoredText("FIELD"), "distributionType") == DistribTypeEnum::Field);
  ExpectRefusal([] { DistribType(StoredText("FIELDS"), "distributionType"); },
                "omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: FIELDS  Permissible: UNIFORM, USER_DEFINED, FIELD", 95);
}

TEST(EnumValue, RefusesWhatItsTableDoesNotHoldNamingItAndThePermissibleTexts) {
  ExpectRefusal([] { DistribType(static_cast<DistribTypeEnum>(3)); },
                "omu_PrimEnum(Enum) - Enum value not allowed: 3  Permissible: UNIFORM, USER_DEFINED, FIELD", 54);
  ExpectRefusal([] { DistribType(static_cast<DistribTypeEnum>(-2)); },
                "omu_PrimEnum(Enum) - Enum value not allowed: -2  Permissible: UNIFORM, USER_DEFINED, FIELD", 54);
  ExpectRefusal([] { DistribType{Category(CategoryEnm::Mechanical)}; },
                "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: MECHANICAL", 67);
  ExpectRefusal([] { DistribType(cow_String("field")); },
                "omu_PrimEnum(const cow_String&) - str not allowed: field  Permissible: UNIFORM, USER_DEFINED, FIELD", 81);
  ExpectRefusal([] { DistribType(cow_String("%s")); },
                "omu_PrimEnum(const cow_String&) - str not allowed: %s  Permissible: UNIFORM, USER_DEFINED, FIELD", 81);
}

TEST(EnumValue, ConvertsFromAnotherEnumerationByItsText) {
  EXPECT_TRUE(DistribType(Category(CategoryEnm::Thermal)) == DistribTypeEnum::Uniform);
}

TEST(EnumText, GivesTheTextOrTheNumberOfAnEnumerator) {
  EXPECT_EQ(atr(DistribTypeEnum::Field), "FIELD");
  EXPECT_EQ(atr(static_cast<DistribTypeEnum>(7)), "7");
  EXPECT_EQ((atr<DistribTypeEnum, char const*>("%1$s is not for %2$s.", DistribTypeEnum::Field, "Step-1")), "FIELD is not for Step-1.");
  EXPECT_EQ((atr<DistribTypeEnum, char const*>("%s, %s", DistribTypeEnum::Field, "Step-1")), "FIELD, Step-1");
}

}  // namespace
