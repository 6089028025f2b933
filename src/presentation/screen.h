#pragma once

#include <optional>
#include <string>
#include <vector>

#include "figures/figure.h"
#include "form/layout.h"
#include "presentation/field_state.h"
#include "presentation/health.h"
#include "presentation/marks.h"

namespace htr60::presentation {

/// One visible field of the page in front.
struct ScreenRow {
  ControlId control{};
  RowKind kind = RowKind::kText;
  RowRole role = RowRole::kNone;
  std::string caption;  ///< as it stands
  std::string name;     ///< for assistive technology: group, caption, unit
  std::string unit;     ///< after the field
  std::string text;     ///< an access code as asterisks
  bool enabled = true;
  std::optional<FieldState> state;  ///< none where it has none, or is disabled
  Mark mark = Mark::kNone;
  std::string words;
  std::string hint;
  bool pale = false;     ///< stale
  bool checked = false;  ///< its text was looked at for a hint
};

struct ScreenButton {
  ControlId control{};  ///< none: the view's own "Open ..."
  std::string caption;
  bool enabled = true;
  char mnemonic = '\0';
};

struct ScreenGroup {
  std::string caption;
  char mnemonic = '\0';
  const LayoutGroup* group = nullptr;
};

struct ScreenTabs {
  TabsId control{};
  int index = 0;
  std::span<const std::string_view> captions{};
};

struct ScreenFigure {
  std::string sentence;
  std::vector<std::string> above;
  std::vector<std::string> remarks;
};

/// A question across the page area, answered by one of its buttons; the focus starts on the first.
struct ScreenBar {
  std::string text;
  std::vector<std::string> buttons;

  bool operator==(const ScreenBar&) const = default;
};

/// What every view shows at an instant.
struct Screen {
  FrameId frame{};  ///< none where no page is open
  std::string title;
  std::string purpose;
  std::string dataLine;
  bool late = false;                ///< an answer is missing: the data line warns
  std::string footer;               ///< the line of the action area
  std::string waiting;              ///< the text of the waiting panel that is shown; empty: none is
  std::string message;              ///< without a page why there is none, else the message line
  std::vector<std::string> badges;  ///< "SIMULATED...", "DISCONNECTED" where they stand
  std::vector<std::string>
      identity;  ///< tag, manufacturer, serial number, firmware, measurement, write protection; empty: not read
  HealthState health = HealthState::kNotRead;
  std::string healthText;
  std::vector<ScreenTabs> tabs;
  std::vector<ScreenGroup> groups;
  std::vector<ScreenRow> rows;
  std::size_t rowsUsed = 0;  ///< while they are written
  std::vector<ScreenButton> buttons;
  int revertable = 0;
  bool unwritten = false;  ///< the visible tab has a text not written: Write is prominent
  std::optional<ScreenFigure> figure;
  std::optional<ScreenBar> bar;
};

}  // namespace htr60::presentation
