// Every field that is written and every status tells on request what it is; Help and tooltip take it from the rows.
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <string>
#include <string_view>

#include "factory_support.h"
#include "form/control_names.h"
#include "pages/pages.h"
#include "presentation/field_help.h"
#include "screen_driver.h"
#include "shell/page_unit.h"

namespace htr60::automation {
namespace {

/// A control of a row with what the row says of it.
struct Noted {
  ControlId control;
  RowKind kind;
  RowRole role;
  std::string_view caption;
  std::string_view note;
};

void ForEachControl(const std::function<void(const Noted&)>& look) {
  for (const PageUnit* unit : PagesOfHtr60().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          look({row.control, row.kind, row.role, row.caption, row.note});
          const std::string_view caption = row.secondCaption.empty() ? "Status" : row.secondCaption;
          if (row.second) look({row.second, row.secondKind, RowRole::kNone, caption, row.secondNote});
        }
      }
    }
  }
}

bool WantsNote(const Noted& field) {
  switch (field.kind) {
    case RowKind::kEdit:
    case RowKind::kNum:
    case RowKind::kList:
    case RowKind::kStatus:
    case RowKind::kListRo:
    case RowKind::kListBox:
    case RowKind::kWrite:
      return true;
    case RowKind::kLabel:
      return field.caption == "Status" || field.caption == "PV_VAL_ST" || field.role != RowRole::kNone;
    default:
      return false;
  }
}

/// What is wrong with the wording of a note; empty where nothing is.
std::string FaultOf(std::string_view note) {
  if (note.size() < 20 || note.size() > 220) return "has " + std::to_string(note.size()) + " bytes";
  if (std::isupper(static_cast<unsigned char>(note.front())) == 0) return "begins without a capital";
  if (note.back() != '.') return "has no full stop at its end";
  int sentences = 1;
  for (std::size_t stop = note.find(". "); stop != std::string_view::npos; stop = note.find(". ", stop + 1)) {
    ++sentences;
  }
  if (sentences > 2) return "has " + std::to_string(sentences) + " sentences";
  for (const std::string_view word :
       {"Part", "txt", "cmb", "Cmb", "cmd", "Command", "lbArray", "frm", "  ", kAccessCode}) {
    if (note.find(word) != std::string_view::npos) return "contains '" + std::string(word) + "'";
  }
  return {};
}

TEST(Notes, EveryFieldThatIsWrittenAndEveryStatusHasOne) {
  int looked = 0;
  ForEachControl([&](const Noted& field) {
    if (!WantsNote(field)) return;
    ++looked;
    EXPECT_FALSE(field.note.empty()) << NameOf(field.control) << ", " << field.caption;
  });
  EXPECT_GT(looked, 300) << "the rows were found";
}

TEST(Notes, AreOneOrTwoPlainSentences) {
  ForEachControl([](const Noted& field) {
    if (field.note.empty()) return;
    EXPECT_EQ(FaultOf(field.note), "") << NameOf(field.control) << ": " << field.note;
  });
}

TEST(Notes, WordingThatWouldBeFound) {
  const struct {
    std::string_view note;
    std::string_view fault;
  } kCases[] = {
      {"Distance of the two diaphragms.", ""},
      {"Known to firmware 1.08 and 1.09.", ""},
      {"Too short.", "has 10 bytes"},
      {"distance of the two diaphragms.", "begins without a capital"},
      {"Distance of the two diaphragms", "has no full stop at its end"},
      {"The first one. The second one. The third one.", "has 3 sentences"},
      {"Goes to txtParameter(1) at once.", "contains 'txt'"},
  };
  for (const auto& one : kCases) EXPECT_EQ(FaultOf(one.note), one.fault) << one.note;
}

TEST(Notes, EachOfTwoFieldsInALineHasItsOwn) {
  const LayoutRow row{.control = id::txtParameter(60),
                      .second = id::txtParameter(299),
                      .note = "Of the first.",
                      .secondNote = "Of the second."};
  EXPECT_EQ(presentation::NoteOf(row, id::txtParameter(60)), "Of the first.");
  EXPECT_EQ(presentation::NoteOf(row, id::txtParameter(299)), "Of the second.");
  EXPECT_EQ(presentation::NoteOf(row, id::txtParameter(1)), "");
}

TEST(Notes, HelpGivesThatOfTheFieldWithTheFocus) {
  ScreenDriver d({{"dtm", "simulator"}, {"device", {{"primaryValueType", "Level"}}}});
  d.Activate("Level");
  d.Tab("SSTabTRDLevel", 3);
  d.Advance(100);
  const struct {
    const char* control;
    const char* note;
  } kCases[] = {
      {"txtParameter(316)", "The measured value of the transducer."},
      {"txtParameter(210)", "How far the primary value can be trusted."},
  };
  for (const auto& one : kCases) {
    d.Ok({{"do", "focus"}, {"control", one.control}});
    const Json lines = d.Ok({{"do", "key"}, {"key", "F1"}})["help"]["lines"];
    ASSERT_EQ(lines.size(), 2U) << one.control;
    EXPECT_EQ(lines[1], one.note);
  }
  d.Ok({{"do", "focus"}, {"control", "txtParameter(139)"}});
  EXPECT_EQ((d.Ok({{"do", "key"}, {"key", "F1"}})["help"]["lines"].size()), 1U) << "a value without a note";
}

}  // namespace
}  // namespace htr60::automation
