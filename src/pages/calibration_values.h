#pragma once

#include <string_view>

#include "codecs/mFunctions.h"
#include "pages/answered_values.h"
#include "shell/user_cntrl.h"

/// How the calibration pages take the numbers of an answer.
namespace htr60::pages {

/// Sets `field` to a tag's number with three decimals.
inline void TakeNumber(UserCntrl& c, const Answer& a, std::string_view tag, TextId field) {
  c.form.At(field).SetText(c.codecs.FormatValue(HexToFloat(a.Text(tag))));
}

}  // namespace htr60::pages
