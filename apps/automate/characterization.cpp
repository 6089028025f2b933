#include "automate/characterization.h"

#include "pages/characterization.h"

namespace htr60::automation {

void AddCharacterization(UserCntrl& control, Json& members) {
  const pages::characterization::State& state = pages::characterization::StateOf(control);
  members["CharPointIndex"] = state.CharPointIndex;
  members["CharX"] = state.CharX;
  members["CharY"] = state.CharY;
}

}  // namespace htr60::automation
