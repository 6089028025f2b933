#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "form/control_id.h"

namespace htr60 {

/// What a row holds, and so how a view shows it and what the operator can do there.
enum class RowKind : std::uint8_t {
  kEdit,     ///< text field with words, the operator types
  kNum,      ///< text field with a number, right-aligned, the operator types
  kValue,    ///< read-only text field with a number, right-aligned
  kText,     ///< read-only text field with words
  kStatus,   ///< read-only text field with a status or verdict
  kList,     ///< choice list, the operator picks a row
  kListRo,   ///< choice list that only shows
  kListBox,  ///< list box, three rows high
  kLabel,    ///< label that holds a value
  kMsg,      ///< label with a message, across the group
  kOpen,     ///< button that opens a page
  kWrite,    ///< button that writes to the device
  kFixed,    ///< fixed text of the layout: the caption alone
};

/// Width in characters of the dialog font: 8, 16, 28, 50, all there is; `kKind` takes the kind's own.
enum class WidthClass : std::uint8_t { kKind, kS, kN, kM, kW, kPage };

constexpr WidthClass WidthOf(RowKind kind) {
  switch (kind) {
    case RowKind::kNum:
    case RowKind::kValue:
    case RowKind::kLabel:
      return WidthClass::kN;
    case RowKind::kStatus:
      return WidthClass::kW;
    case RowKind::kMsg:
      return WidthClass::kPage;
    default:
      return WidthClass::kM;
  }
}

/// What stands after a value: a control with its place there, a fixed text, or an echo of a control placed elsewhere.
struct LayoutUnit {
  ControlId control{};
  std::string_view text{};
  bool echo = false;

  constexpr LayoutUnit() = default;
  // NOLINTBEGIN(google-explicit-constructor): rows of a layout read as tables.
  constexpr LayoutUnit(ControlId placed) : control(placed) {}
  constexpr LayoutUnit(const char* fixed) : text(fixed) {}
  // NOLINTEND(google-explicit-constructor)
};

constexpr LayoutUnit Echo(ControlId control) {
  LayoutUnit unit(control);
  unit.echo = true;
  return unit;
}

/// What a row's control is beyond its kind, for those who look at it.
enum class RowRole : std::uint8_t {
  kNone,
  kCommand,        ///< list that orders the device to do something: what it shows afterwards is no verdict
  kStateless,      ///< taken and emptied by its button: never read, has no state
  kVerdict,        ///< every text that is not known to be good or doubtful is a fault
  kSimulate,       ///< says whether something simulated replaces what is measured
  kSensorState,    ///< list that is picked from and marked as a status is
  kAccessCode,     ///< shown as asterisks, in no tooltip, marker, copy or log
  kLinearization,  ///< list that the device refuses while its table is not valid
  kTableVerdict,   ///< the device's word on its table
};

/// Which part of the line that says who the instrument is a row gives.
enum class IdentityItem : std::uint8_t {
  kNone,
  kTag,
  kManufacturer,
  kSerialNumber,
  kFirmware,
  kMeasurement,
  kWriteProtection,
};

/// What a row's control tells of the health of the instrument. Equal items are one quantity: the one set last counts.
/// What several blocks share is kept for each: a set counts for the block of the page that is current then.
enum class HealthItem : std::uint8_t {
  kNone,
  kPrimaryValue,      ///< status
  kAiOut1,            ///< status of the first block's output
  kAiOut2,            ///< of the second's
  kAiOut3,            ///< of the third's
  kSensorDiag,        ///< "None" or what is wrong
  kSensorBoard,       ///< message, while it is shown
  kSimulateValue,     ///< simulate enable of the primary value
  kSimulatePressure,  ///< simulate enable of pressure and temperature
  kSimulateBlock1,    ///< simulate enable of the first block
  kSimulateBlock2,    ///< of the second
  kSimulateBlock3,    ///< of the third
  kAiOut,             ///< shared: status of the output of the current page's block
  kSimulateBlock,     ///< shared: simulate enable of the current page's block
};

/// One row: caption, control, unit. `second` stands after the unit: the status of a value, the Y of a point.
struct LayoutRow {
  std::string_view caption{};  ///< shown while `captionControl` is none or its text is empty
  ControlId captionControl{};  ///< label or button whose text is the caption
  RowKind kind = RowKind::kText;
  ControlId control{};
  LayoutUnit unit{};
  WidthClass width = WidthClass::kKind;
  RowKind secondKind = RowKind::kStatus;
  ControlId second{};
  std::string_view secondCaption{};
  WidthClass secondWidth = WidthClass::kKind;
  std::string_view note{};  ///< of the first control, shown on request beside the page's purpose
  bool sameLine = false;    ///< stands after the row before it
  int fromHeight = 0;  ///< shown while its group's box is at least this high, in the form's units; 0: at any height
  bool live = false;   ///< an answer of a polling timer replaces it
  bool large = false;  ///< of the values of a page one that is to be read from afar
  bool captionAbove = false;  ///< the caption is a sentence and stands in a line of its own above the field
  RowRole role = RowRole::kNone;
  IdentityItem identity = IdentityItem::kNone;
  HealthItem health = HealthItem::kNone;  ///< of the second control where there is one, else of the first
  ButtonId enterPresses{};                ///< button that Enter in the field presses
  std::string_view secondNote{};          ///< note of the second control
};

/// A group of rows on a page, on a tab, or on an inner tab.
struct LayoutGroup {
  int tab = -1;       ///< tab of the page's strip, -1: beside or without strips
  int innerTab = -1;  ///< tab of the inner strip on that tab
  std::string_view caption{};
  ControlId frame{};  ///< group box whose text is the caption while not empty; hidden with it
  std::span<const LayoutRow> rows{};
  int columns = 1;        ///< rows run down the columns
  bool beside = false;    ///< beside the group before it, below on a narrow page
  bool box = true;        ///< drawn as a box; without a caption never
  bool separate = false;  ///< starts a new line of groups
  PictureId panel{};      ///< the waiting panel across the page area: no place in the page's flow
  bool byTop = false;     ///< stands in the order of its frame's top among the groups so marked
  int sentTogether = 0;   ///< groups of a page with the same number above 0: each one's write button sends them all
  /// The rows are points of a table: this list says how many of them are enabled.
  ChoiceId numberOfPoints{};
};

struct LayoutInnerStrip {
  int tab = 0;
  TabsId strip{};
};

/// Title of a page; where several pages share a frame, by the current page's name.
struct LayoutTitle {
  std::string_view page{};  ///< empty: any
  std::string_view title{};
  int block = 0;  ///< the page is of this block, 1 to 3; 0: of none
};

/// Which figure a page draws.
enum class FigureKind : std::uint8_t {
  kNone,
  kLinearization,
  kSquareRoot,
  kOutputBar,
  kAnalogInput,
  kCalibration,
  kCharacterization,       ///< the curve that the instrument holds
  kCharacterizationEntry,  ///< the points recorded so far
};

/// A page frame and what stands on it, in reading order. A frame alone is not laid out yet, and views show no page.
struct PageLayout {
  FrameId frame{};
  bool staysShown = false;  ///< the common hide leaves it: once shown its flag stays set
  std::span<const LayoutTitle> titles{};
  std::string_view purpose{};
  std::span<const int> reads{};  ///< codes whose answers fill the page
  TabsId strip{};
  std::span<const LayoutInnerStrip> innerStrips{};
  std::span<const LayoutGroup> groups{};
  FigureKind figure = FigureKind::kNone;
  bool figureAlone = false;  ///< the figure is as large as the page
  bool figureBelow = false;  ///< the figure stands below the last group, in its column; else beside all groups
  int numberWidth = 16;      ///< characters of a number field: more where seven or eight decimals are shown
  bool tight = false;        ///< numbers give way, so that groups stand beside each other on a narrow page, too
  bool signalFlow = false;   ///< an arrow leads from each group to the next down the left column
  /// Of a page that reads nothing: codes, read on another page, whose answers its figure is drawn from.
  std::span<const int> figureReads{};

  constexpr bool IsLaidOut() const { return !titles.empty(); }
};

}  // namespace htr60
