#pragma once

#include <cstdint>
#include <string_view>

namespace htr60 {

// Every decoder gives the text of a code, "" for a code outside its table. Every encoder compares the text exactly and
// gives the hexadecimal digits of a request; a text outside its table gives "" unless the table has a fallback. The two
// directions differ in places, and so do the numbers of digits.
#define HTR60_DECODER(name) std::string_view Decode##name(std::int32_t code) noexcept;
#define HTR60_ENCODER(name) std::string_view Encode##name(std::string_view text) noexcept;
#include "codecs/enumerations.def"

/// Name of the parameter that an LCD monitor 1 to 3 shows, of its relative index and its block's name; "User Index"
/// where none is known.
std::string_view DecodeMonitIndex(std::int32_t index, std::string_view block) noexcept;
/// The same for monitor 4, which knows more; "" where the block has no such parameter.
std::string_view DecodeMonitIndexFull(std::int32_t index, std::string_view block) noexcept;
/// Four hexadecimal digits of a parameter's relative index; "" for an unknown name.
std::string_view EncodeMonitIndex(std::string_view text) noexcept;
/// Data type of a parameter's name; "NONE" for an unknown name.
std::string_view DecodeMonitDataType(std::string_view name) noexcept;

}  // namespace htr60
