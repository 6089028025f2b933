#include "presentation/keys.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace htr60::presentation {
namespace {

constexpr Place kAllPlaces[] = {Place::kElsewhere,  Place::kTree,     Place::kStrip,      Place::kField,
                                Place::kPressField, Place::kReadOnly, Place::kLabel,      Place::kListBox,
                                Place::kList,       Place::kOpenList, Place::kSearchLine, Place::kButton,
                                Place::kWriteButton};

KeyPress Pressed(Key key, const std::string& with = "", const char* text = "") {
  const auto has = [&](char c) { return with.find(c) != std::string::npos; };
  KeyPress press;
  press.key = key;
  press.shift = has('s');
  press.control = has('c');
  press.alt = has('a');
  press.held = has('h');
  press.text = text;
  return press;
}

TEST(Keys, MeanWhatTheTableSaysWhereTheFocusIs) {
  const struct {
    Key key;
    const char* with;  // s, c, a: Shift, Control, Alt; h: held down
    const char* text;
    std::vector<Place> places;
    KeyAct act;
  } kCases[] = {
      {Key::kTab,
       "",
       "",
       {Place::kTree, Place::kStrip, Place::kField, Place::kLabel, Place::kList, Place::kWriteButton},
       KeyAct::kNextStop},
      {Key::kTab, "s", "", {Place::kTree, Place::kField, Place::kList}, KeyAct::kPreviousStop},
      {Key::kTab, "h", "", {Place::kField}, KeyAct::kNextStop},
      {Key::kTab, "c", "", {Place::kTree, Place::kField, Place::kList, Place::kWriteButton}, KeyAct::kNextTab},
      {Key::kPageDown, "c", "", {Place::kField, Place::kList, Place::kStrip}, KeyAct::kNextTab},
      {Key::kPageUp, "c", "", {Place::kField, Place::kList, Place::kStrip}, KeyAct::kPreviousTab},
      {Key::kPageUp, "ch", "", {Place::kField, Place::kList, Place::kStrip}, KeyAct::kNothing},
      {Key::kRight, "", "", {Place::kStrip}, KeyAct::kTabRight},
      {Key::kLeft, "", "", {Place::kStrip}, KeyAct::kTabLeft},
      {Key::kLeft, "h", "", {Place::kStrip}, KeyAct::kNothing},
      {Key::kLeft, "", "", {Place::kField, Place::kReadOnly, Place::kTree}, KeyAct::kToolkit},
      {Key::kDown, "", "", {Place::kTree, Place::kField, Place::kListBox}, KeyAct::kToolkit},
      {Key::kF6, "", "", {Place::kTree, Place::kField, Place::kElsewhere}, KeyAct::kNextRegion},
      {Key::kF6, "s", "", {Place::kTree, Place::kField, Place::kElsewhere}, KeyAct::kPreviousRegion},
      {Key::kF5, "", "", {Place::kTree, Place::kField, Place::kList}, KeyAct::kActivateAgain},
      {Key::kF5, "h", "", {Place::kTree, Place::kField, Place::kList}, KeyAct::kNothing},
      {Key::kF1, "", "", {Place::kTree, Place::kField, Place::kList, Place::kWriteButton}, KeyAct::kHelp},
      {Key::kF1, "h", "", {Place::kTree, Place::kField, Place::kList, Place::kWriteButton}, KeyAct::kNothing},
      {Key::kLeft, "a", "", {Place::kTree, Place::kField, Place::kStrip, Place::kLabel, Place::kList}, KeyAct::kBack},
      {Key::kCharacter, "a", "O", {Place::kTree, Place::kField, Place::kList, Place::kStrip}, KeyAct::kMnemonic},
      {Key::kCharacter, "ah", "W", {Place::kField}, KeyAct::kNothing},
      {Key::kCharacter, "ca", "Q", {Place::kField, Place::kTree}, KeyAct::kToolkit},  // the third level of a keyboard
      {Key::kEnter, "", "", {Place::kTree}, KeyAct::kActivateNode},
      {Key::kSpace, "", "", {Place::kTree}, KeyAct::kActivateNode},
      {Key::kSpace, "h", "", {Place::kTree}, KeyAct::kNothing},
      {Key::kEnter,
       "",
       "",
       {Place::kField, Place::kReadOnly, Place::kLabel, Place::kListBox, Place::kList},
       KeyAct::kNextField},
      {Key::kEnter, "", "", {Place::kButton, Place::kPressField}, KeyAct::kPress},
      {Key::kEnter, "h", "", {Place::kButton, Place::kPressField}, KeyAct::kNothing},
      {Key::kSpace, "", "", {Place::kButton, Place::kWriteButton}, KeyAct::kPress},
      {Key::kSpace, "h", "", {Place::kButton, Place::kWriteButton}, KeyAct::kNothing},
      {Key::kSpace, "", "", {Place::kField}, KeyAct::kToolkit},
      {Key::kEscape, "", "", {Place::kField, Place::kPressField, Place::kList}, KeyAct::kPutBack},
      {Key::kEscape,
       "",
       "",
       {Place::kTree, Place::kStrip, Place::kLabel, Place::kButton, Place::kElsewhere},
       KeyAct::kNothing},
      {Key::kF4, "", "", {Place::kList}, KeyAct::kOpenList},
      {Key::kDown, "a", "", {Place::kList}, KeyAct::kOpenList},
      {Key::kF4, "", "", {Place::kReadOnly, Place::kField}, KeyAct::kToolkit},
      {Key::kF4, "a", "", {Place::kList, Place::kField}, KeyAct::kToolkit},
      {Key::kCharacter, "", "b", {Place::kList}, KeyAct::kOpenListSearching},
      {Key::kCharacter, "s", "B", {Place::kList}, KeyAct::kOpenListSearching},
      {Key::kCharacter, "", "b", {Place::kField, Place::kReadOnly, Place::kTree, Place::kSearchLine}, KeyAct::kToolkit},
      {Key::kCharacter, "", "b", {Place::kOpenList}, KeyAct::kFindRow},
      {Key::kEnter, "", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kTakeRow},
      {Key::kEnter, "h", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kNothing},
      {Key::kEscape, "", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kCloseList},
      {Key::kUp, "a", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kCloseList},
      {Key::kDown, "h", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kListDown},
      {Key::kPageUp, "", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kListPageUp},
      {Key::kHome, "", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kListHome},
      {Key::kF5, "", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kToolkit},
      {Key::kCharacter, "a", "W", {Place::kOpenList, Place::kSearchLine}, KeyAct::kToolkit},
      {Key::kTab, "", "", {Place::kOpenList, Place::kSearchLine}, KeyAct::kNothing},
      {Key::kDown, "", "", {Place::kLabel}, KeyAct::kNextLabel},
      {Key::kUp, "h", "", {Place::kLabel}, KeyAct::kPreviousLabel},
      {Key::kCharacter, "c", "C", {Place::kField, Place::kReadOnly, Place::kLabel, Place::kList}, KeyAct::kCopy},
      {Key::kCharacter, "c", "C", {Place::kPressField, Place::kSearchLine, Place::kTree}, KeyAct::kToolkit},
      {Key::kCharacter, "c", "V", {Place::kField, Place::kList}, KeyAct::kToolkit},
  };
  for (const auto& one : kCases) {
    for (const Place place : one.places) {
      EXPECT_EQ(static_cast<int>(Meaning(Pressed(one.key, one.with, one.text), place)), static_cast<int>(one.act))
          << "key " << static_cast<int>(one.key) << " " << one.with << one.text << " at " << static_cast<int>(place);
    }
  }
}

TEST(Keys, EnterNeverPressesWhatWritesWhateverIsHeldWithIt) {
  for (const char* with : {"", "s", "c", "a", "sc", "sca", "h"}) {
    EXPECT_EQ(Meaning(Pressed(Key::kEnter, with), Place::kWriteButton), KeyAct::kNothing) << with;
  }
}

TEST(Keys, NoKeyChangesAClosedList) {
  for (const Key key :
       {Key::kUp, Key::kDown, Key::kLeft, Key::kRight, Key::kPageUp, Key::kPageDown, Key::kHome, Key::kEnd}) {
    for (const char* with : {"", "s", "h"}) EXPECT_EQ(Meaning(Pressed(key, with), Place::kList), KeyAct::kNothing);
  }
}

TEST(Keys, EscIsTakenEverywhereSoThatNothingCloses) {
  for (const Place place : kAllPlaces) EXPECT_NE(Meaning(Pressed(Key::kEscape), place), KeyAct::kToolkit);
}

}  // namespace
}  // namespace htr60::presentation
