#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace htr60::sim {

/// Reads the text of one command or settings object. Throws `SettingsError` with a sentence about "the text" where it
/// is empty, not UTF-8, holds a NUL, is nested deeper than 64, is no JSON, or goes on after its value.
nlohmann::json ParseJsonText(std::string_view text);

/// The same for a file. Throws `SettingsError` with a sentence that does not name the file, also where it cannot be
/// read, is no regular file, or is larger than 1 MB.
nlohmann::json ReadSettingsFile(const std::filesystem::path& file);

}  // namespace htr60::sim
