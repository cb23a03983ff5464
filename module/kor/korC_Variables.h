#pragma once

#include "module/kor/Types.h"
#include "module/kor/korC_Enums.h"
#include "platform/BasicUtils/cls_xoList.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// The variables that a request asks for: keys one by one, or a symbol that stands for a list of them.
class korC_Variables {
public:
  using Identifiers = cow_List<cow_String>;
  using SymbolEnm = korC_VariablesTypeEnm;

  /// Of nothing.
  korC_Variables() = default;
  korC_Variables(SymbolEnm symbol) : symbol_(symbol) {}
  korC_Variables(Identifiers keys) : keys_(std::move(keys)) {}

  /// The keys that are listed; none where a symbol stands for them.
  Identifiers const& Keys() const { return keys_; }
  bool IsList() const { return keys_.Size() != 0; }
  /// NO_OUTPUT_VARIABLES beside a list.
  SymbolEnm Symbol() const { return symbol_; }

  friend bool operator==(korC_Variables const& a, korC_Variables const& b) { return a.symbol_ == b.symbol_ && a.keys_ == b.keys_; }

private:
  SymbolEnm symbol_ = SymbolEnm::NO_OUTPUT_VARIABLES;
  Identifiers keys_;
};

/// Stored as the list, or as a list with the symbol in it; scripted as a list of keys, or as the symbol's text.
template <> struct cls_MemberTraits<korC_Variables> : cls_PlainTraits {
  using List = cls_MemberTraits<cow_List<cow_String>>;
  using Symbol = omu_PrimEnum<korC_VariablesTypeEnm, 1>;

  static void Describe(cls_MemberInfo& info) {
    List::Describe(info);
    for (auto const& row : omu_EnumTable<korC_VariablesTypeEnm>::rows) {
      if (row.text != nullptr && omu_IsOffered<korC_VariablesTypeEnm>(row)) { info.permissible.emplace_back(row.text); }
    }
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, korC_Variables const& value) {
    List::Write(out, name, Texts(value));
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, korC_Variables& value) {
    cow_List<cow_String> texts;
    List::Read(in, name, texts);
    value = FromTexts(std::move(texts));
  }
  static cls_Value ToValue(korC_Variables const& value) {
    if (value.IsList()) { return List::ToValue(value.Keys()); }
    return std::string(Symbol(value.Symbol()).View());
  }
  static std::string_view FromValue(korC_Variables& value, cls_Value const& from) {
    if (auto const* text = from.As<std::string>()) {
      Symbol symbol;
      if (!symbol.SetValue(text->c_str())) { return "a list of variables, or a symbol"; }
      return value = korC_Variables(symbol), "";
    }
    cow_List<cow_String> texts;
    std::string_view const expected = List::FromValue(texts, from);
    if (expected == "") { value = FromTexts(std::move(texts)); }
    return expected;
  }

private:
  static cow_List<cow_String> Texts(korC_Variables const& value) {
    if (value.IsList() || value.Symbol() == korC_VariablesTypeEnm::NO_OUTPUT_VARIABLES) { return value.Keys(); }
    cow_List<cow_String> texts;
    texts.Append(cow_String(Symbol(value.Symbol()).View()));
    return texts;
  }
  static korC_Variables FromTexts(cow_List<cow_String> texts) {
    Symbol symbol;
    bool const isSymbol = texts.Size() == 1 && symbol.SetValue(std::string(texts[0].View()).c_str());
    return isSymbol ? korC_Variables(symbol) : korC_Variables(std::move(texts));
  }
};
