#pragma once

#include <initializer_list>
#include <string_view>

#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "shell/user_cntrl.h"

/// How the handlers of several pages take numbers, values with a status, and units out of an answer.
namespace htr60::pages {

inline void SetCaptions(UserCntrl& c, std::string_view text, std::initializer_list<LabelId> labels) {
  for (const LabelId label : labels) c.form.At(label).SetText(text);
}

inline void SetCaptionsIfAny(UserCntrl& c, std::string_view text, std::initializer_list<LabelId> labels) {
  if (!text.empty()) SetCaptions(c, text, labels);
}

/// Sets `field` to a tag's number with three decimals.
inline void TakeNumber(UserCntrl& c, const Answer& a, std::string_view tag, TextId field) {
  c.form.At(field).SetText(c.codecs.FormatValue(HexToFloat(a.Text(tag))));
}

/// Sets `field` to the value of a value with status, and gives the status as text.
inline std::string_view TakeValue(UserCntrl& c, std::string_view hex, TextField& field) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(hex, field, status);
  return StatusByteToText(status);
}

}  // namespace htr60::pages
