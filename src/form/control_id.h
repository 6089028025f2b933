#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "form/control_indexes.h"

namespace htr60 {

/// Kinds of control, in the order of their blocks of ordinals.
enum class ControlKind : std::uint8_t { kText, kLabel, kButton, kChoice, kListBox, kTabs, kFrame, kPicture };

/// A control of the form by its place in controls.def. A default-made id names none.
struct ControlId {
  static constexpr std::uint16_t kNone = 0xFFFF;
  std::uint16_t ordinal = kNone;

  constexpr explicit operator bool() const { return ordinal != kNone; }
  friend constexpr bool operator==(ControlId a, ControlId b) { return a.ordinal == b.ordinal; }
};

/// A control whose kind is known at compile time.
template <ControlKind kKind>
struct KindId : ControlId {};

using TextId = KindId<ControlKind::kText>;
using LabelId = KindId<ControlKind::kLabel>;
using ButtonId = KindId<ControlKind::kButton>;
using ChoiceId = KindId<ControlKind::kChoice>;
using ListBoxId = KindId<ControlKind::kListBox>;
using TabsId = KindId<ControlKind::kTabs>;
using FrameId = KindId<ControlKind::kFrame>;
using PictureId = KindId<ControlKind::kPicture>;

namespace ordinals {

#define HTR60_CONTROL(name) name,
#define HTR60_CONTROL_ARRAY(name) name, name##_last = name + std::size(indexes::name) - 1,
// Closes the block of a kind; the next ordinal is that of the end.
#define HTR60_END(kind) kind##End, kind##Last = kind##End - 1,

// One pass a kind, so that its ordinals stand together whatever the order of the list is.
enum Ordinal : std::uint16_t {
#define HTR60_TEXT HTR60_CONTROL
#define HTR60_TEXT_ARRAY HTR60_CONTROL_ARRAY
#include "form/controls.def"
  HTR60_END(kText)
#define HTR60_LABEL HTR60_CONTROL
#define HTR60_LABEL_ARRAY HTR60_CONTROL_ARRAY
#include "form/controls.def"
      HTR60_END(kLabel)
#define HTR60_BUTTON HTR60_CONTROL
#include "form/controls.def"
          HTR60_END(kButton)
#define HTR60_CHOICE HTR60_CONTROL
#define HTR60_CHOICE_ARRAY HTR60_CONTROL_ARRAY
#include "form/controls.def"
              HTR60_END(kChoice)
#define HTR60_LISTBOX HTR60_CONTROL
#include "form/controls.def"
                  HTR60_END(kListBox)
#define HTR60_TABS HTR60_CONTROL
#define HTR60_TABS_ARRAY HTR60_CONTROL_ARRAY
#include "form/controls.def"
                      HTR60_END(kTabs)
#define HTR60_FRAME HTR60_CONTROL
#define HTR60_FRAME_ARRAY HTR60_CONTROL_ARRAY
#include "form/controls.def"
                          HTR60_END(kFrame)
#define HTR60_PICTURE HTR60_CONTROL
#include "form/controls.def"
                              HTR60_END(kPicture)
};
#undef HTR60_CONTROL
#undef HTR60_CONTROL_ARRAY
#undef HTR60_END

// First ordinal of each kind's block, and the end of the last.
inline constexpr std::uint16_t kFirst[] = {0,           kTextEnd, kLabelEnd, kButtonEnd, kChoiceEnd,
                                           kListBoxEnd, kTabsEnd, kFrameEnd, kPictureEnd};

}  // namespace ordinals

inline constexpr std::size_t kControlCount = ordinals::kPictureEnd;

constexpr std::size_t CountOf(ControlKind kind) {
  const auto k = static_cast<std::size_t>(kind);
  return static_cast<std::size_t>(ordinals::kFirst[k + 1] - ordinals::kFirst[k]);
}

constexpr ControlKind KindOf(ControlId control) {
  std::size_t k = 0;
  while (control.ordinal >= ordinals::kFirst[k + 1]) ++k;
  return static_cast<ControlKind>(k);
}

/// Place of a control among those of its kind.
template <ControlKind kKind>
constexpr std::size_t SlotOf(KindId<kKind> control) {
  return static_cast<std::size_t>(control.ordinal - ordinals::kFirst[static_cast<std::size_t>(kKind)]);
}

/// Place of `index` in a rising list of existing indexes; throws, and so does not compile, where it does not exist.
template <std::size_t N>
constexpr std::uint16_t SlotOf(const short (&existing)[N], int index) {
  for (std::size_t i = 0; i < N; ++i) {
    if (existing[i] == index) return static_cast<std::uint16_t>(i);
  }
  throw "no control of that index";
}

/// An index of one control array. It is made at compile time only, and only from an index that exists.
template <const auto& kExisting>
struct ArrayIndex {
  // NOLINTNEXTLINE(google-explicit-constructor): form.txtParameter(45) is to read as the control's name does.
  consteval ArrayIndex(int index) : slot(SlotOf(kExisting, index)) {}
  std::uint16_t slot;
};

/// The names of all controls as ids: `id::cmdBack`, `id::txtParameter(45)`.
namespace id {

#define HTR60_ID(kind, name) inline constexpr KindId<ControlKind::kind> name{{ordinals::name}};
#define HTR60_ID_ARRAY(kind, name)                                                        \
  consteval KindId<ControlKind::kind> name(int index) {                                   \
    return {{static_cast<std::uint16_t>(ordinals::name + SlotOf(indexes::name, index))}}; \
  }
#define HTR60_TEXT(name) HTR60_ID(kText, name)
#define HTR60_TEXT_ARRAY(name) HTR60_ID_ARRAY(kText, name)
#define HTR60_LABEL(name) HTR60_ID(kLabel, name)
#define HTR60_LABEL_ARRAY(name) HTR60_ID_ARRAY(kLabel, name)
#define HTR60_BUTTON(name) HTR60_ID(kButton, name)
#define HTR60_CHOICE(name) HTR60_ID(kChoice, name)
#define HTR60_CHOICE_ARRAY(name) HTR60_ID_ARRAY(kChoice, name)
#define HTR60_LISTBOX(name) HTR60_ID(kListBox, name)
#define HTR60_TABS(name) HTR60_ID(kTabs, name)
#define HTR60_TABS_ARRAY(name) HTR60_ID_ARRAY(kTabs, name)
#define HTR60_FRAME(name) HTR60_ID(kFrame, name)
#define HTR60_FRAME_ARRAY(name) HTR60_ID_ARRAY(kFrame, name)
#define HTR60_PICTURE(name) HTR60_ID(kPicture, name)
#include "form/controls.def"
#undef HTR60_ID
#undef HTR60_ID_ARRAY

}  // namespace id
}  // namespace htr60
