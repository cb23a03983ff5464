#pragma once

#include "platform/BasicUtils/cls_Visitor.h"

namespace gattr {

/// A visitor that writes nothing: for those who want to see one kind of member only.
class ObservingVisitor : public cls_WriteVisitor {
public:
  bool StartWrite(unsigned /*typeId*/, cls_Uid const& /*uid*/) const override { return true; }
  void WriteBool(std::string_view /*member*/, bool /*value*/) const override {}
  void WriteInteger(std::string_view /*member*/, long long /*value*/) const override {}
  void WriteReal(std::string_view /*member*/, double /*value*/) const override {}
  void WriteText(std::string_view /*member*/, std::string_view /*value*/) const override {}
  void WriteNull(std::string_view /*member*/) const override {}
  void WriteObject(std::string_view /*member*/, cls_Object const& /*object*/) const override {}
  void WriteNested(std::string_view /*member*/, cls_Object const& /*object*/) const override {}
  void StartList(std::string_view /*member*/, std::size_t /*count*/) const override {}
  void EndList() const override {}
  bool StartMap(std::string_view /*member*/, std::size_t /*count*/) const override { return false; }
  void EndMap() const override {}
};

}  // namespace gattr
