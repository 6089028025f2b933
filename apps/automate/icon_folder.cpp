#include "automate/icon_folder.h"

#include <system_error>

#ifdef _WIN32
#include "windows/win.h"
#endif

namespace htr60::automation {
namespace {

/// The file of this program; empty where the system does not tell.
std::filesystem::path Program() {
#ifdef _WIN32
  std::wstring path(32768, L'\0');  // no path is longer
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
#else
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
#endif
}

}  // namespace

std::filesystem::path DefaultIconFolder() {
  std::error_code error;
  const std::filesystem::path program = Program();
  if (!program.empty()) {
    // bin/htr60-automate of an installation; tests/... and apps/automate/... of a build tree.
    for (const char* up : {"..", "../.."}) {
      std::filesystem::path folder = (program.parent_path() / up / "share" / "htr60").lexically_normal();
      if (std::filesystem::is_directory(folder, error)) return folder;
    }
  }
  return HTR60_ICON_FOLDER;
}

}  // namespace htr60::automation
