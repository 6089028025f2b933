#include "presentation/keys.h"

#include <initializer_list>

namespace htr60::presentation {
namespace {

using PlaceSet = std::uint16_t;

constexpr PlaceSet At(std::initializer_list<Place> places) {
  PlaceSet set = 0;
  for (const Place place : places) set = static_cast<PlaceSet>(set | 1U << static_cast<unsigned>(place));
  return set;
}

constexpr PlaceSet kOpenLists = At({Place::kOpenList, Place::kSearchLine});
constexpr PlaceSet kFields =
    At({Place::kField, Place::kReadOnly, Place::kLabel, Place::kListBox, Place::kList});  // Enter goes on
constexpr PlaceSet kButtons = At({Place::kButton, Place::kWriteButton});
constexpr PlaceSet kAnywhere = 0xFFFF;

enum class With : std::uint8_t { kNone, kShift, kControl, kAlt, kAny, kTyping };

// Whether a key held down does it again and again.
enum class Held : std::uint8_t { kOnce, kRepeats };

struct KeyRow {
  Key key;
  With with;
  PlaceSet places;
  KeyAct act;
  Held held = Held::kOnce;
};

constexpr KeyRow kRows[] = {
    // An open list has all keys before the page.
    {Key::kEnter, With::kAny, kOpenLists, KeyAct::kTakeRow},
    {Key::kEscape, With::kAny, kOpenLists, KeyAct::kCloseList},
    {Key::kF4, With::kAny, kOpenLists, KeyAct::kCloseList},
    {Key::kUp, With::kAlt, kOpenLists, KeyAct::kCloseList},
    {Key::kDown, With::kAlt, kOpenLists, KeyAct::kCloseList},
    {Key::kUp, With::kNone, kOpenLists, KeyAct::kListUp, Held::kRepeats},
    {Key::kDown, With::kNone, kOpenLists, KeyAct::kListDown, Held::kRepeats},
    {Key::kPageUp, With::kNone, kOpenLists, KeyAct::kListPageUp, Held::kRepeats},
    {Key::kPageDown, With::kNone, kOpenLists, KeyAct::kListPageDown, Held::kRepeats},
    {Key::kHome, With::kNone, kOpenLists, KeyAct::kListHome},
    {Key::kEnd, With::kNone, kOpenLists, KeyAct::kListEnd},
    {Key::kTab, With::kAny, kOpenLists, KeyAct::kNothing},
    {Key::kCharacter, With::kTyping, At({Place::kOpenList}), KeyAct::kFindRow, Held::kRepeats},
    {Key::kOther, With::kAny, kOpenLists, KeyAct::kToolkit},

    {Key::kTab, With::kControl, kAnywhere, KeyAct::kNextTab},
    {Key::kPageDown, With::kControl, kAnywhere, KeyAct::kNextTab},
    {Key::kPageUp, With::kControl, kAnywhere, KeyAct::kPreviousTab},
    {Key::kTab, With::kNone, kAnywhere, KeyAct::kNextStop, Held::kRepeats},
    {Key::kTab, With::kShift, kAnywhere, KeyAct::kPreviousStop, Held::kRepeats},
    {Key::kF6, With::kNone, kAnywhere, KeyAct::kNextRegion},
    {Key::kF6, With::kShift, kAnywhere, KeyAct::kPreviousRegion},
    {Key::kF5, With::kNone, kAnywhere, KeyAct::kActivateAgain},
    {Key::kF1, With::kNone, kAnywhere, KeyAct::kHelp},
    {Key::kLeft, With::kAlt, kAnywhere, KeyAct::kBack},
    {Key::kCharacter, With::kAlt, kAnywhere, KeyAct::kMnemonic},

    // Enter never writes to the device, whatever is held with it.
    {Key::kEnter, With::kAny, At({Place::kWriteButton, Place::kStrip}), KeyAct::kNothing},
    {Key::kEnter, With::kAny, At({Place::kButton, Place::kPressField}), KeyAct::kPress},
    {Key::kEnter, With::kAny, At({Place::kTree}), KeyAct::kActivateNode},
    {Key::kEnter, With::kAny, kFields, KeyAct::kNextField},
    {Key::kSpace, With::kAny, At({Place::kTree}), KeyAct::kActivateNode},
    {Key::kSpace, With::kAny, kButtons, KeyAct::kPress},
    {Key::kSpace, With::kNone, At({Place::kList}), KeyAct::kOpenList},
    {Key::kEscape, With::kAny, At({Place::kField, Place::kPressField, Place::kList}), KeyAct::kPutBack},
    {Key::kEscape, With::kAny, kAnywhere, KeyAct::kNothing},

    {Key::kF4, With::kNone, At({Place::kList}), KeyAct::kOpenList},
    {Key::kDown, With::kAlt, At({Place::kList}), KeyAct::kOpenList},
    {Key::kUp, With::kAlt, At({Place::kList}), KeyAct::kOpenList},
    {Key::kCharacter, With::kTyping, At({Place::kList}), KeyAct::kOpenListSearching},
    // A closed list changes by a pick alone.
    {Key::kUp, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kDown, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kLeft, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kRight, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kPageUp, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kPageDown, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kHome, With::kAny, At({Place::kList}), KeyAct::kNothing},
    {Key::kEnd, With::kAny, At({Place::kList}), KeyAct::kNothing},

    {Key::kLeft, With::kNone, At({Place::kStrip}), KeyAct::kTabLeft},
    {Key::kRight, With::kNone, At({Place::kStrip}), KeyAct::kTabRight},
    {Key::kUp, With::kNone, At({Place::kLabel}), KeyAct::kPreviousLabel, Held::kRepeats},
    {Key::kLeft, With::kNone, At({Place::kLabel}), KeyAct::kPreviousLabel, Held::kRepeats},
    {Key::kDown, With::kNone, At({Place::kLabel}), KeyAct::kNextLabel, Held::kRepeats},
    {Key::kRight, With::kNone, At({Place::kLabel}), KeyAct::kNextLabel, Held::kRepeats},
};

// An access code is copied by no key.
constexpr PlaceSet kCopied = At({Place::kField, Place::kReadOnly, Place::kLabel, Place::kList});

constexpr bool Fits(With with, const KeyPress& press) {
  switch (with) {
    case With::kAny:
      return true;
    case With::kTyping:
      return !press.control && !press.alt;
    default:
      return press.shift == (with == With::kShift) && press.control == (with == With::kControl) &&
             press.alt == (with == With::kAlt);
  }
}

}  // namespace

KeyAct Meaning(const KeyPress& press, Place place) {
  const PlaceSet here = At({place});
  if (press.key == Key::kCharacter && press.text == "C" && Fits(With::kControl, press) && (here & kCopied) != 0) {
    return KeyAct::kCopy;
  }
  for (const KeyRow& row : kRows) {
    if ((row.places & here) == 0 || !Fits(row.with, press)) continue;
    if (row.key == Key::kOther) return row.act;  // whatever is left
    if (row.key != press.key) continue;
    return press.held && row.held == Held::kOnce ? KeyAct::kNothing : row.act;
  }
  return KeyAct::kToolkit;
}

}  // namespace htr60::presentation
