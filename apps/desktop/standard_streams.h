#pragma once

#include <string_view>

namespace htr60::desktop {

/// Before anything is opened: a standard stream that was closed would otherwise be the next file's, and its lines would
/// go there. A pipe that nobody reads any more is an error of writing, not the end of the program.
void SecureStandardStreams();

/// A line on standard error, behind the name of the program.
void Complain(std::string_view sentence);

/// Writes to standard output at once; false where that cannot be done.
bool Print(std::string_view text);

}  // namespace htr60::desktop
