#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "codecs/mAllUnits.h"
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

/// Sets the two fields of an output scale, which are those of the block's page whichever page asked, and gives the
/// text of its unit.
inline std::string_view TakeScale(UserCntrl& c, std::string_view hex) {
  std::int16_t unit = 0;
  c.codecs.HexToScale(hex, c.form.txtParameter(129), c.form.txtParameter(130), unit);
  return UnitCodeToText(unit);
}

inline void SetCaptions(UserCntrl& c, std::string_view text, std::initializer_list<LabelId> labels) {
  for (const LabelId label : labels) c.form.At(label).SetText(text);
}

}  // namespace htr60::pages
