#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "store/StoreWriter.h"

namespace gattr {

/// Writes a model as canonical JSON; the layout is described in README.md. Nothing but content decides about it.
class TextWriter final : public StoreWriter {
public:
  static constexpr std::string_view kFormat = "gattr model";
  static constexpr long long kVersion = 1;

  TextWriter(ModelSteps const& steps, std::ostream& out);

  void WriteModel(ddr_Model const& model);

protected:
  void PutNull(std::string_view member) const override { Put(member, "null"); }
  void PutBool(std::string_view member, bool value) const override { Put(member, value ? "true" : "false"); }
  void PutInteger(std::string_view member, long long value) const override;
  void PutReal(std::string_view member, double value) const override;
  void PutText(std::string_view member, std::string_view value) const override;
  bool PutShared(std::string_view member, cls_Object const* object) const override;
  void OpenObject(std::string_view member, std::string_view className) const override;
  void OpenList(std::string_view member, std::size_t count) const override;
  bool OpenMap(std::string_view member) const override;
  void Close(Kind kind) const override;

private:
  /// An object member of the last element of a list.
  struct LastObject {
    std::string member;
    cls_Object const* object;
  };
  /// How what is open is laid out.
  struct Layout {
    bool inlined = false;  ///< all on one line
    bool empty = true;
    std::vector<LastObject> last;  ///< of a list
  };

  void Put(std::string_view member, std::string_view value) const;
  void Begin(std::string_view member) const;
  void Open(std::string_view member, char bracket, bool inlined) const;
  void Quote(std::string_view text) const;
  void NewLine() const;
  void Flush() const;

  std::ostream& out_;
  // writing goes through a const interface
  mutable std::string buffer_;
  mutable std::vector<Layout> layouts_;
};

}  // namespace gattr
