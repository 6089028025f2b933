#pragma once

#include <filesystem>

namespace htr60::automation {

/// The folder of the two icon files that belongs to the running program: beside its installation, wherever that was
/// put, or in its build tree; else the folder of the configured installation.
std::filesystem::path DefaultIconFolder();

}  // namespace htr60::automation
