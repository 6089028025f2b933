#pragma once

#include "shell/page_unit.h"

#define HTR60_PAGE(name)         \
  namespace htr60::pages::name { \
  extern const PageUnit kUnit;   \
  }
#include "pages/pages.def"
#undef HTR60_PAGE

namespace htr60 {

/// All page units of the HTR60 and its navigation: what a host hands to `UserCntrl::Create`.
const PageRegistry& PagesOfHtr60();

}  // namespace htr60
