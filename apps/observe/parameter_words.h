#pragma once

#include <string>
#include <string_view>

#include "codecs/codec_names.h"

namespace htr60::observe {

/// What a parameter or a live quantity is in words, and how its code is read. By the names of the simulated
/// transmitter's tables, without sensor, block and index.
struct ParameterWords {
  std::string_view source;
  std::string_view words;
  /// "=" and a fixed text, or the name of the parameter that holds the unit's code; empty: none.
  std::string_view unit{};
  Decoder decode = nullptr;  ///< of an enumeration
};

/// A source with what was taken off it: "ai2.damping" is "ai.damping" of block 2.
struct ParameterName {
  const ParameterWords* row = nullptr;  ///< null: a source without words
  std::string name;                     ///< "AI 2 damping", "Sensor pressure, sensor 1", "Coefficient k3"
  std::string full;                     ///< the source with its block and monitor: "ai2.damping", "lcd[1].index"
};

/// `block` and `monitor` are those of the request, for a source that leaves them out.
ParameterName NameParameter(std::string_view source, int block, int monitor);

}  // namespace htr60::observe
