#include "presentation/field_state.h"

namespace htr60::presentation {
namespace {

using enum FieldStep;
using Row = std::array<FieldStep, kFieldEvents>;

// One row a state, one column an event. Texts typed and left stay not written until the next read of their page; what
// was sent waits for its verdict whatever page is in front.
// clang-format off
constexpr std::array<Row, kFieldStates> kSteps = {{
//                   opened     edited       agreed  written early  same     other      compared   v.same      v.stored v.other   v.command missing       faded  left
/* not read      */ {kStay,     kNotWritten, kStay,  kSent,  kStay, kAsRead, kAsRead,   kChanged,  kAsRead,    kAsRead, kAsRead,  kAsRead,  kStay,        kStay, kStay},
/* as read       */ {kNotRead,  kNotWritten, kStay,  kSent,  kStay, kStay,   kStay,     kChanged,  kStay,      kStay,   kStay,    kStay,    kStay,        kStay, kStay},
/* not written   */ {kStay,     kStay,       kRest,  kSent,  kStay, kAsRead, kReplaced, kReplaced, kAsRead,    kReplaced, kReplaced, kReplaced, kStay,    kStay, kStay},
/* sent          */ {kStay,     kNotWritten, kRest,  kSent,  kStay, kStay,   kStay,     kStay,     kConfirmed, kStored, kDiffers, kShown,   kNotReadBack, kStay, kStay},
/* confirmed     */ {kNotRead,  kNotWritten, kStay,  kSent,  kStay, kStay,   kAsRead,   kChanged,  kConfirmed, kStored, kDiffers, kShown,   kStay,        kRest, kRest},
/* stored        */ {kNotRead,  kNotWritten, kStay,  kSent,  kStay, kStay,   kAsRead,   kChanged,  kConfirmed, kStored, kDiffers, kShown,   kStay,        kStay, kRest},
/* differs       */ {kNotRead,  kNotWritten, kRest,  kSent,  kStay, kStay,   kStay,     kStay,     kConfirmed, kStored, kDiffers, kShown,   kStay,        kStay, kRest},
/* replaced      */ {kNotRead,  kNotWritten, kStay,  kSent,  kStay, kStay,   kStay,     kStay,     kStay,      kStay,   kStay,    kStay,    kStay,        kStay, kRest},
/* changed       */ {kNotRead,  kNotWritten, kStay,  kSent,  kStay, kStay,   kAsRead,   kChanged,  kStay,      kStay,   kStay,    kStay,    kStay,        kRest, kStay},
/* not read back */ {kStay,     kNotWritten, kStay,  kSent,  kStay, kAsRead, kAsRead,   kAsRead,   kAsRead,    kAsRead, kAsRead,  kAsRead,  kStay,        kStay, kStay},
/* shown         */ {kNotRead,  kNotWritten, kStay,  kSent,  kStay, kStay,   kStay,     kStay,     kShown,     kShown,  kShown,   kShown,   kStay,        kStay, kRest},
}};
// clang-format on

constexpr std::string_view kNames[kFieldStates] = {
    "not read", "as read",  "not written", "sent",          "confirmed", "stored",
    "differs",  "replaced", "changed",     "not read back", "shown",
};

}  // namespace

FieldStep NextStep(FieldState state, FieldEvent event) {
  return kSteps[static_cast<std::size_t>(state)][static_cast<std::size_t>(event)];
}

std::string_view NameOf(FieldState state) { return kNames[static_cast<std::size_t>(state)]; }

}  // namespace htr60::presentation
