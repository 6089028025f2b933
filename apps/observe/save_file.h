#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace htr60::observe {

/// What could not be saved; `what()` is a sentence that names the file.
class SaveError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes a file beside the one that stands there, and gives it its name when it is whole: whatever happens meanwhile,
/// one whole file stands there. Throws `SaveError`; then the old file stands as it was.
void SaveWhole(const std::filesystem::path& file, std::string_view bytes);

}  // namespace htr60::observe
