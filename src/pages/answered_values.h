#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "codecs/mStatusProfibus.h"
#include "shell/user_cntrl.h"

/// What answers set alike on several pages.
namespace htr60::pages {

/// Sets `field` to the value of a value with status, and gives the status as text.
inline std::string_view TakeValue(UserCntrl& c, std::string_view hex, TextField& field) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(hex, field, status);
  return StatusByteToText(status);
}

inline void SetCaptions(UserCntrl& c, std::string_view text, std::initializer_list<LabelId> labels) {
  for (const LabelId label : labels) c.form.At(label).SetText(text);
}

}  // namespace htr60::pages
