#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "store/Document.h"
#include "text/Progress.h"

namespace gattr {

/// Makes a model from a document. Whatever does not fit is refused with a StoreError that names the file, the way to the
/// value and what was expected: a member that is missing, that no class has or that is of another kind, an unknown class,
/// a text that is not permissible, a name of nothing, records that do not go with the steps.
///
/// Members of an object may stand in any order; in that of writing each is found at once.
class DocumentReader final : public cls_ReadVisitor {
public:
  /// How much of a history is stored.
  enum class Histories {
    Whole,    ///< a record for each step
    Changes,  ///< of those that say something of their own what that is; of any object what is not as in a new one
  };

  /// \p tick is told of every object.
  DocumentReader(Document& document, Histories histories, Ticker& tick);

  /// \p known: members of the outermost object that are the store's own.
  ddr_Model ReadModel(std::initializer_list<std::string_view> known = {});

  unsigned TypeId() const override { return frames_.back().typeId; }
  bool Has(std::string_view member) const override { return Look(member) != Document::npos; }
  bool IsNull(std::string_view member) const override;
  bool ReadBool(std::string_view member) const override;
  long long ReadInteger(std::string_view member) const override;
  double ReadReal(std::string_view member) const override;
  std::string ReadText(std::string_view member) const override;
  cow_Handle<cls_Object> ReadObject(std::string_view member) const override;
  cow_Handle<cls_Object> ReadReference(std::string_view member, std::string_view name) const override;
  void ReadNested(std::string_view member, std::function<void(cls_ReadVisitor const&)> const& read) const override;
  void ReadDeclared(std::string_view member, unsigned typeId, std::function<void(cls_ReadVisitor const&)> const& read) const override;
  std::size_t StartList(std::string_view member) const override;
  void EndList() const override;
  std::vector<std::string> StartMap(std::string_view member) const override;
  void EndMap() const override;
  bool ReadsOwnRecordsOnly() const override { return histories_ == Histories::Changes; }
  bool IsBrief() const override { return histories_ == Histories::Changes; }
  std::pair<std::string, cow_Handle<cls_Object>> ReadChange() const override;
  [[noreturn]] void Refuse(std::string_view member, std::string_view expected) const override;

private:
  using At = Document::At;
  using Kind = Document::Kind;
  using Object = cow_Handle<cls_Object>;

  /// An object member of the last element of a list.
  struct LastObject {
    Document::Text member;
    Object object;
  };
  /// An object or a list that is being read.
  struct Frame {
    At at = 0;
    At next = 0;         ///< what comes next in the order of writing
    unsigned taken = 0;  ///< how much has been read
    unsigned typeId = 0;
    bool again = false;                       ///< it stands elsewhere too, where it is read for the first time
    cls_ClassMetadata const* told = nullptr;  ///< the class of the elements of a list, as the first has told it
    std::vector<LastObject> last;             ///< of a list
  };

  At Look(std::string_view member) const;
  /// The value of \p member, which must be there and of the kind \p wanted.
  Document::Node& Take(std::string_view member, std::string_view expected) const;
  Document::Node& Take(std::string_view member, Kind wanted, std::string_view expected) const;
  void Enter(At at, unsigned typeId = 0, bool again = false) const;
  /// Leaves what was entered last; refuses what is left over there.
  void Leave() const;
  Object MakeObject(At at, std::string_view member) const;
  /// The class that the object which is open tells.
  cls_ClassMetadata const& ReadClass() const;
  /// Where the model declares the object of type \p typeId that a text names; npos where it does not.
  At Declared(Document::Text name, unsigned typeId) const;
  /// Where the model holds its steps.
  At StepsList() const;
  /// An object member, written whole, as "same" or by \p name.
  Object ReadAny(std::string_view member, std::string_view name) const;
  /// The object that a text stands for: what is called \p name, or what the last element of the list has for this member.
  Object Named(Document::Node const& node, std::string_view member, std::string_view name) const;
  /// The place of an object member of a list's element in what the list remembers; null where the owner is no element.
  LastObject* LastOf(Document::Text member) const;
  [[noreturn]] void RefuseValue(Document::Node const& node, std::string_view member, std::string_view expected) const;

  Document& document_;
  Histories histories_;
  Ticker& tick_;
  Document::Text same_;
  // reading goes through a const interface
  mutable std::vector<Frame> frames_;
  mutable std::vector<Document::Step> way_;  // to the frames
  mutable std::string member_;               // that was asked for last
  mutable std::unordered_map<Document::Text, cls_ClassMetadata const*> classes_;
  mutable std::unordered_map<std::string, Object> named_;  // what goes by a name: the first of that name that was read
  mutable std::optional<std::map<std::pair<Document::Text, Document::Text>, At>> declared_;  // by class and name
};

}  // namespace gattr
