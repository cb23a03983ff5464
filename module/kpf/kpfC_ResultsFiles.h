#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CoreUtils/ddb_Export.h"

/// What a results file of an earlier analysis holds.
struct kpfC_ResultsFile {
  struct Instance {
    std::string name;
    bool meshed = true;
  };

  bool isTold = true;       ///< false: the file is there, and nobody knows what it holds
  std::vector<int> frames;  ///< of each step
  std::vector<Instance> instances;

  /// Whether it holds the step of that number, with that many frames of it.
  bool Holds(int step, int frame) const {
    return step >= 1 && static_cast<std::size_t>(step) <= frames.size() && frame <= frames[static_cast<std::size_t>(step) - 1];
  }
};

/// The results files that an application knows. Fields that are read from files ask it what those hold; where no application has set
/// one, nothing is asked.
class DDB_API kpfC_ResultsFiles {
public:
  virtual ~kpfC_ResultsFiles();

  /// Nothing where there is no such file.
  virtual std::optional<kpfC_ResultsFile> Find(std::string_view fileName) const = 0;

  /// The one that the application has set; null where there is none. The library forgets it when it stops.
  static std::shared_ptr<kpfC_ResultsFiles const> Known();
  static void Set(std::shared_ptr<kpfC_ResultsFiles const> files);
};
