#pragma once

#include <string>
#include <string_view>

namespace htr60::desktop {

/// What is odd about the text of a number field, empty where nothing is: "No number", "Decimal separator here is ,",
/// "Too many digits". It informs; whatever it says the text is written as it stands.
std::string NumberHint(std::string_view text, char decimalSeparator);

}  // namespace htr60::desktop
