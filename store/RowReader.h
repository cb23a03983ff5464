#pragma once

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/ddr_Model.h"
#include "module/kpr/engine/kprC_StepTable.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "store/ModelTables.h"
#include "store/RowEncoding.h"
#include "text/Progress.h"

namespace gattr {

/// A row as it was stored.
struct StoredRow {
  std::int64_t position = 0;
  std::string_view name, data;
};

/// The rows of a model file.
struct ModelRows {
  /// A copy of \p text that lives as long as the rows.
  std::string_view Keep(std::string_view text) {
    constexpr std::size_t kBlock = 1 << 18;
    if (texts_.empty() || texts_.back().capacity() - texts_.back().size() < text.size()) {
      texts_.emplace_back().reserve(std::max(kBlock, text.size()));
    }
    std::string& block = texts_.back();
    block += text;
    return std::string_view(block).substr(block.size() - text.size());
  }

  RowClasses classes;
  std::vector<StoredRow> extensions, steps;
  std::set<std::string> repositories;                     ///< the extensions whose objects are attributes
  std::map<std::string, std::vector<StoredRow>> objects;  ///< by the extension that holds them, in the order of their names
  bool nullIsLargest = false;                             ///< whether null also stands for the largest number as a value

private:
  std::deque<std::string> texts_;  // none of which grows beyond what it has reserved
};

/// Makes a model straight from rows. Whatever does not fit is refused with a StoreError that names the file, the way to the value
/// and what was expected: the same content in the same words as in the text form.
///
/// Values are looked for in the order in which they stand, where each is found at once; those of a class whose members have come
/// to stand in another order are found, too. Memory is in proportion to the rows: nothing is repeated, nothing is announced
/// that does not stand there, and nothing nests deeper than kDeepest.
class RowReader final : public cls_ReadVisitor, public kprC_StepSource {
public:
  static constexpr std::size_t kDeepest = 64;  ///< objects, lists and maps in each other

  /// \p tick is told of every row that is made an object.
  RowReader(ModelRows const& rows, std::string_view fileName, Ticker& tick)
      : rows_(rows), fileName_(fileName), tick_(tick), types_(rows.classes.Size()) {}

  ddr_Model ReadModel();
  /// The sequence of the model that was read.
  kprC_StepTable const& ModelsSteps() const { return steps_; }

  unsigned TypeId() const override;
  bool Has(std::string_view member) const override;
  bool IsNull(std::string_view member) const override;
  bool ReadBool(std::string_view member) const override;
  long long ReadInteger(std::string_view member) const override;
  double ReadReal(std::string_view member) const override;
  std::string ReadText(std::string_view member) const override;
  cow_String ReadShared(std::string_view member) const override;
  std::optional<unsigned> ReadEnumerated(std::string_view member, std::string_view suffix) const override;
  cow_Handle<cls_Object> ReadObject(std::string_view member) const override { return ReadAny(member, {}); }
  cow_Handle<cls_Object> ReadReference(std::string_view member, std::string_view name) const override { return ReadAny(member, name); }
  void ReadNested(std::string_view member, std::function<void(cls_ReadVisitor const&)> const& read) const override;
  std::size_t StartList(std::string_view member) const override;
  void EndList() const override;
  std::vector<std::string> StartMap(std::string_view member) const override;
  void EndMap() const override;
  bool ReadsOwnRecordsOnly() const override { return true; }
  kprC_StepTable const& Steps() const override;
  bool ReadSteps(std::string_view member, kprC_StepTable& table) const override;
  [[noreturn]] void Refuse(std::string_view member, std::string_view expected) const override;

private:
  using Object = cow_Handle<cls_Object>;
  /// A class of the file beside ours of that name, once it has been asked for.
  struct Type {
    bool known = false;
    cls_ClassMetadata const* metadata = nullptr;
    bool isPlain = false;  ///< whether its objects are their values, and no object among these
  };
  /// What is open on the way to a value.
  struct Frame {
    enum class Kind : std::uint8_t { Object, List, Map, Rows };
    Kind kind;
    std::string_view name;                         ///< under which it stands
    std::size_t place = 0;                         ///< of the value that comes next
    std::size_t count = 0;                         ///< of the values
    std::size_t ahead = 0;                         ///< of an object whose values are taken in their order: how many can be
    RowClasses::Class const* type = nullptr;       ///< of an object
    unsigned typeId = 0;                           ///< of an object that is made by its class
    std::size_t begin = 0, bracket = 0;            ///< of its first value: where, and brackets before it
    std::vector<bool> taken = {};                  ///< by place, where values are not taken in their order
    std::vector<StoredRow> const* rows = nullptr;  ///< whose objects are the map's
  };
  /// What stands between a bracket and its partner.
  struct Inside {
    std::uint32_t values = 0, brackets = 0;  ///< how many; of the brackets those that open
    std::size_t end = 0;                     ///< where the partner stands
  };
  /// A row that is being read.
  struct Text {
    std::string_view data;
    std::size_t at = 0, bracket = 0;  ///< what comes next, and how many brackets have been passed
    std::vector<Inside> inside;       ///< of each bracket that opens
    std::vector<Object> objects;      ///< that a reference may mean; null while they are being made
  };

  /// An object by its values.
  struct Made {
    RowClasses::Class const* type = nullptr;
    std::string_view values;
    Object object;  ///< null while it is being made
  };

  kprC_StepSequence ReadHome() const;

  /// Looks through the data: every bracket has its partner, every text its end.
  void Start(Text& text, std::string_view data) const;
  /// The object that is all of \p data.
  Object MakeRow(std::string_view data, std::string_view name) const;
  Object MakeObject(std::string_view name) const;
  Object ReadAny(std::string_view member, std::string_view name) const;
  /// Opens the object at the place; its class is known then.
  void OpenObject(std::string_view name) const;
  void CloseObject() const;
  /// What was made of the values of the object that is open, or a place for what will be.
  Made& LikeNext() const;
  void OpenList(Frame::Kind kind, std::string_view name) const;

  /// Goes to the value of \p member, which is refused where it is not there.
  void Take(std::string_view member, std::string_view expected, std::string_view suffix = {}) const;
  /// Whether it is the value that comes next in an object whose values are taken in their order.
  bool IsNext(std::string_view member, std::string_view suffix) const;
  /// Its place among the members of the object that is open; npos where that has none.
  std::size_t PlaceOf(std::string_view member, std::string_view suffix) const;
  void GoTo(std::size_t place) const;
  /// Goes past a value.
  void Skip() const;
  char Peek() const { return text_->at < text_->data.size() ? text_->data[text_->at] : '\0'; }
  /// Takes the value of \p member where \p accepts does, and leaves it otherwise.
  template <class Fn> bool TakeIf(std::string_view member, std::string_view suffix, Fn&& accepts) const;
  /// Takes a number; false where what comes next is none that \p value can be.
  template <class T> bool Number(T& value) const;
  bool Accept(std::string_view what) const;
  void Expect(std::string_view what) const;
  void Expect(char what) const {
    if (Peek() != what) { RefuseRow("holds what no writer has written"); }
    ++text_->at;
  }
  std::string_view Token() const;
  std::string TakeText(std::string_view member, std::string_view expected) const;

  std::string Path(std::string_view member = {}) const;
  /// What was taken last of what is open.
  std::string_view LastMember() const;
  /// The value that comes next, in a word or two.
  std::string Found() const;
  [[noreturn]] void RefuseValue(std::string_view member, std::string_view expected) const;
  [[noreturn]] void RefuseRow(std::string_view what) const;
  [[noreturn]] void Say(std::string_view path, std::string_view what) const;

  ModelRows const& rows_;
  std::string fileName_;
  Ticker& tick_;
  // reading goes through a const interface
  mutable std::vector<Type> types_;
  mutable std::deque<Text> texts_;  // those below the model's first are kept for the next row
  mutable std::size_t depth_ = 0;   // how many are open
  mutable Text* text_ = nullptr;
  mutable std::vector<Frame> frames_;
  // met last, each at a place that its characters give: texts, and objects, which attributes that say the same then share
  mutable std::array<cow_String, 256> shared_;
  mutable std::array<Made, 1024> made_;
  mutable kprC_StepTable steps_;
  mutable std::size_t objectsRead_ = 0;  // extensions whose rows have been taken
};

}  // namespace gattr
