#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace htr60 {

using Decoder = std::string_view (*)(std::int32_t);
using Encoder = std::string_view (*)(std::string_view);

struct DecoderName {
  std::string_view name;
  Decoder decode;
};

struct EncoderName {
  std::string_view name;
  Encoder encode;
};

/// All plain decoders ("DecodeAgile") and encoders ("EncodeAgile", also "EncodeMonitIndex") by name.
std::span<const DecoderName> DecoderNames() noexcept;
std::span<const EncoderName> EncoderNames() noexcept;
/// Null for an unknown name.
Decoder FindDecoder(std::string_view name) noexcept;
Encoder FindEncoder(std::string_view name) noexcept;

}  // namespace htr60
