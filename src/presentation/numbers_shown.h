#pragma once

#include <string>
#include <string_view>

#include "codecs/codecs.h"

// Numbers as the operator reads them: whether two texts are the same number, what is wrong with a typed one, and what
// the device's code makes of it.
namespace htr60::presentation {

/// Both are numbers of the locale, and the same one: "0" is "0.000", "0.0004" is not.
bool IsSameNumber(std::string_view a, std::string_view b, char separator);

/// `sent`, rounded to the decimals of `device`, reads `device`.
bool ReadsAs(std::string_view sent, std::string_view device, char separator);

/// What became of a number on its way into the device: written with `FloatToHex` by a codec that remembers nothing, and
/// read with `HexToFloat`.
struct Stored {
  bool reads = false;  ///< at the decimals of the device's text it is that text
  std::string loss;    ///< "0.7 % below", where it differs from the number sent by 0.01 % or more; else empty
};
Stored StoredAs(std::string_view sent, std::string_view device, char separator);

/// "No number", "Decimal separator here is ,", "Too many digits"; empty where nothing is wrong.
std::string NumberHint(std::string_view text, char separator);
/// There is a hint though the text reads as `number`.
bool IsMeantOtherwise(std::string_view text, double number, char separator);

}  // namespace htr60::presentation
