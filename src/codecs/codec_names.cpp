#include "codecs/codec_names.h"

#include <array>

#include "codecs/mEnumeration.h"
#include "text/text_map.h"

namespace htr60 {
namespace {

constexpr auto kDecoders = std::to_array<DecoderName>({
#define HTR60_DECODER(name) {"Decode" #name, &Decode##name},
#include "codecs/enumerations.def"
});

constexpr auto kEncoders = std::to_array<EncoderName>({
#define HTR60_ENCODER(name) {"Encode" #name, &Encode##name},
#include "codecs/enumerations.def"
    {"EncodeMonitIndex", &EncodeMonitIndex},
});

template <class Row, std::size_t N>
constexpr TextMap<N> NamesOf(const std::array<Row, N>& rows) {
  std::array<std::string_view, N> names;
  for (std::size_t i = 0; i < N; ++i) names[i] = rows[i].name;
  return TextMap<N>(names);
}

constexpr auto kDecoderMap = NamesOf(kDecoders);
constexpr auto kEncoderMap = NamesOf(kEncoders);

}  // namespace

std::span<const DecoderName> DecoderNames() noexcept { return kDecoders; }
std::span<const EncoderName> EncoderNames() noexcept { return kEncoders; }

Decoder FindDecoder(std::string_view name) noexcept {
  const std::size_t row = kDecoderMap.Find(name);
  return row == kDecoders.size() ? nullptr : kDecoders[row].decode;
}

Encoder FindEncoder(std::string_view name) noexcept {
  const std::size_t row = kEncoderMap.Find(name);
  return row == kEncoders.size() ? nullptr : kEncoders[row].encode;
}

}  // namespace htr60
