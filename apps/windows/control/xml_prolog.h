#pragma once

#include <string>
#include <string_view>

namespace htr60::com {

/// Makes a document fit for the system's reader, which takes a DOCTYPE and applies a declared encoding to a text that
/// is UTF-16 already: takes the encoding out of the declaration and a byte order mark and blanks from the beginning.
/// False where a DOCTYPE, or what is none but looks like one, stands before the root element, and where mark or
/// encoding stand twice.
bool PrepareProlog(std::wstring& document);

}  // namespace htr60::com
