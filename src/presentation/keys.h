#pragma once

#include <cstdint>
#include <string>

namespace htr60::presentation {

/// The keys that mean something to a page, and all others.
enum class Key : std::uint8_t {
  kOther,
  kCharacter,  ///< types a letter, a digit, a sign
  kTab,
  kEnter,
  kEscape,
  kSpace,
  kUp,
  kDown,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kF1,
  kF4,
  kF5,
  kF6,
};

struct KeyPress {
  Key key = Key::kOther;
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool held = false;   ///< repeated by the keyboard while the key is down
  std::string text{};  ///< of a character what it types; with Alt or Control its letter, a capital
};

/// Where the keyboard is, as far as keys differ.
enum class Place : std::uint8_t {
  kElsewhere,
  kTree,
  kStrip,
  kField,       ///< a field to type into
  kPressField,  ///< one whose Enter presses a button
  kReadOnly,    ///< value, text, status, list that only shows
  kLabel,       ///< one of the values of a group, which are one stop of Tab
  kListBox,
  kList,  ///< a closed list
  kOpenList,
  kSearchLine,  ///< of an open list
  kButton,      ///< opens a page, leads back, or steps: whatever writes nothing
  kWriteButton,
};

/// What a key does. What is the toolkit's own, typing, the cursor in a text, the arrows in the tree, has no act.
enum class KeyAct : std::uint8_t {
  kToolkit,
  kNothing,  ///< the key is taken, and nothing comes of it
  kNextStop,
  kPreviousStop,
  kNextRegion,
  kPreviousRegion,
  kNextField,
  kPutBack,  ///< the text that the field had when it got the focus
  kPress,
  kBack,
  kMnemonic,
  kActivateNode,
  kActivateAgain,
  kNextTab,  ///< of the innermost strip, round
  kPreviousTab,
  kTabRight,  ///< of the strip with the focus
  kTabLeft,
  kNextLabel,
  kPreviousLabel,
  kOpenList,
  kOpenListSearching,
  kCloseList,
  kTakeRow,
  kListUp,
  kListDown,
  kListPageUp,
  kListPageDown,
  kListHome,
  kListEnd,
  kFindRow,
  kCopy,
  kHelp,
};

/// What a press means at a place: the first row of the table that fits. A key held down is one press of what it does,
/// but for those that only move.
KeyAct Meaning(const KeyPress& press, Place place);

}  // namespace htr60::presentation
