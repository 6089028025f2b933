#include "automate/icon_folder.h"

#include <system_error>

namespace htr60::automation {

std::filesystem::path DefaultIconFolder() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) {
    // bin/htr60-automate of an installation; tests/... and apps/automate/... of a build tree.
    for (const char* up : {"..", "../.."}) {
      std::filesystem::path folder = (program.parent_path() / up / "share" / "htr60").lexically_normal();
      if (std::filesystem::is_directory(folder, error)) return folder;
    }
  }
  return HTR60_ICON_FOLDER;
}

}  // namespace htr60::automation
