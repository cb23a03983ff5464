#include "module/kpf/kpfC_ResultsFiles.h"

#include <mutex>

#include "platform/CoreUtils/thr_Singleton.h"

namespace {
struct DDB_API OfTheApplication {
  std::mutex mutex;
  std::shared_ptr<kpfC_ResultsFiles const> files;
};
}  // namespace

kpfC_ResultsFiles::~kpfC_ResultsFiles() = default;

std::shared_ptr<kpfC_ResultsFiles const> kpfC_ResultsFiles::Known() {
  auto& known = thr_GlobalSingleton<OfTheApplication>::Instance();
  std::lock_guard const lock(known.mutex);
  return known.files;
}

void kpfC_ResultsFiles::Set(std::shared_ptr<kpfC_ResultsFiles const> files) {
  auto& known = thr_GlobalSingleton<OfTheApplication>::Instance();
  std::lock_guard const lock(known.mutex);
  known.files = std::move(files);
}
