// What the presentation does for the operator beyond the control: pasting, putting back, closing, the tree's marks.
#include "presentation/presentation.h"

namespace htr60::presentation {
namespace {

constexpr std::string_view kStay = "Stay";
constexpr std::string_view kClose = "Close without writing";

// First buttons of the bars.
constexpr std::size_t kStays = 0;
constexpr std::size_t kAccepts = 0;

}  // namespace

// ---- pasting and putting back

bool Presentation::PasteColumns(TextId field, std::string_view text) {
  if (page_ == nullptr || !paste_.Begin(*page_, field, text)) return false;
  if (const auto question = paste_.Question()) {
    announcer_.Say(question->text);
    keyboard_.BarAsks();
    Changed();
  } else {
    FillPasted();
  }
  return true;
}

void Presentation::FillPasted() {
  for (const Paste::Typed& typed : paste_.Fields()) Type(typed.field, typed.text);
  std::string remark = paste_.Remark();
  paste_.End();
  if (!remark.empty()) Say(std::move(remark));
}

bool Presentation::PutBack(ControlId field) {
  if (!states_.PutBack(field)) return false;
  Edited(field);
  return true;
}

std::vector<FieldMenuItem> Presentation::Menu(ControlId field) const {
  const ScreenRow* row = Row(field);
  if (row == nullptr) return {};
  return MenuOf(*row, states_.ReplacedText(field));
}

// ---- bars

bool Presentation::WantsToClose() {
  if (asksToClose_ || states_.Unwritten().empty()) return true;
  asksToClose_ = true;
  announcer_.Say(Bar()->text);
  keyboard_.BarAsks();
  Changed();
  return false;
}

// The question that was asked last goes first; the other one waits.
std::optional<ScreenBar> Presentation::Bar() const {
  if (!asksToClose_) return paste_.Question();
  return ScreenBar{std::to_string(states_.Unwritten().size()) + " not written",
                   {std::string(kStay), std::string(kClose)}};
}

bool Presentation::AnswerBar(std::size_t button) {
  Changed();
  if (asksToClose_) {
    if (button != kStays) return true;
    asksToClose_ = false;
    return false;
  }
  if (button == kAccepts) {
    if (const auto points = paste_.PointsWanted()) Pick(points->list, points->row);
  }
  FillPasted();
  return false;
}

// ---- health

bool Presentation::OpenHealth() {
  if (health_.State() == HealthState::kNotRead) return false;
  const std::string node = health_.Node();
  ActivateNode(node.empty() ? StartNode() : node);
  return true;
}

std::string Presentation::HealthTip() const {
  if (health_.State() == HealthState::kNotRead) return {};
  const std::string& node = health_.Node();
  return "Read " + surroundings_.timeOfDay(health_.ReadAt()) + " on " + (node.empty() ? StartNode() : node) + ".";
}

// ---- the tree

void Presentation::Edited(ControlId field) {
  editedNodes_.Edited(field, states_.Unwritten(), CurrentNode());
  Changed();
}

TreeMarks Presentation::Marks() const { return {control_.LastActivated(), editedNodes_.Nodes(states_.Unwritten())}; }

}  // namespace htr60::presentation
