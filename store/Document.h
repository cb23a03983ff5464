#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace gattr {

/// What a store holds, taken apart but not yet understood: values by name, nested in objects and lists. Both stores are
/// read into one, so that everything behind it, refusals included, is the same for both.
///
/// One array holds all values in the order of writing, each object and list before what is in it; texts are kept once.
class Document {
public:
  using Text = std::uint32_t;  ///< number of a text; 0 is the empty one
  using At = std::uint32_t;    ///< position of a value
  static constexpr At npos = ~At{0};

  enum class Kind : std::uint8_t { Null, False, True, Integer, Real, Text, Object, List };

  struct Node {
    Kind kind = Kind::Null;
    bool taken = false;  ///< whether the reader has seen it
    Text name = 0;       ///< under which it stands in an object
    At end = 0;          ///< one past what is in it
    union {
      long long integer = 0;
      double real;
      Text text;
      std::uint32_t count;  ///< of an object or list: what stands directly in it
    };
  };

  /// One level on the way to a value: an object or a list, and of a list how much has been passed.
  struct Step {
    At at = 0;
    std::uint32_t index = 0;
  };

  explicit Document(std::string_view fileName);

  std::string const& FileName() const { return fileName_; }
  Node const& operator[](At at) const { return nodes_[at]; }
  Node& operator[](At at) { return nodes_[at]; }
  std::string_view View(Text text) const { return texts_[text]; }
  std::string_view NameOf(At at) const { return View(nodes_[at].name); }

  /// The member \p name of the object at \p at; npos where there is none, or no object.
  At Find(At at, std::string_view name) const;

  /// Number of a text, which is added when it is new.
  Text Intern(std::string_view text);

  // Building, in the order of writing.
  void AddNull(Text name) { Add(Kind::Null, name); }
  void AddBool(Text name, bool value) { Add(value ? Kind::True : Kind::False, name); }
  void AddInteger(Text name, long long value) { nodes_[Add(Kind::Integer, name)].integer = value; }
  void AddReal(Text name, double value) { nodes_[Add(Kind::Real, name)].real = value; }
  void AddText(Text name, Text value) { nodes_[Add(Kind::Text, name)].text = value; }
  /// Opens an object or a list; returns its position.
  At Open(Kind kind, Text name);
  /// Closes what was opened last. Raises a StoreError when a name stands twice in an object.
  void Close();
  std::size_t Depth() const { return open_.size(); }

  /// "boundaryConditions / Fix / states[3] / status": \p way, from the outermost object on, and \p member in the last of it.
  /// The maps of the model and of its extensions are left out.
  std::string Path(std::vector<Step> const& way, std::string_view member = {}) const;
  /// The way to what is open while building; a list counts what it holds.
  std::string OpenPath(std::string_view member = {}) const { return Path(open_, member); }
  /// A value in a word or two, as messages show it.
  std::string Describe(At at) const;

  /// Raises a StoreError: the file, the path and what is wrong there.
  [[noreturn]] void Refuse(std::string_view path, std::string_view what) const;

private:
  struct Slot {
    std::uint32_t hash = 0;
    Text text = npos;
  };

  At Add(Kind kind, Text name);
  /// Where in the hash table \p text stands or would stand.
  std::size_t SlotOf(std::string_view text, std::uint32_t hash) const;

  std::string fileName_;
  std::vector<Node> nodes_;
  std::vector<Step> open_;
  std::deque<std::string> storage_;
  std::vector<std::string_view> texts_;
  std::vector<Slot> slots_;  // open hash table of the texts, a power of two long
  std::vector<At> seen_;     // the object in which a name was last seen, by the name's number
};

}  // namespace gattr
