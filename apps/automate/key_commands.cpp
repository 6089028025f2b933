#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "automate/commands.h"
#include "automate/control_lookup.h"
#include "text/utf8.h"

namespace htr60::automation {
namespace {

using presentation::Key;
using presentation::Keyboard;
using presentation::KeyOutcome;
using presentation::KeyPress;
using presentation::ListSearch;
using presentation::Spot;

constexpr struct {
  std::string_view name;
  Key key;
} kKeys[] = {
    {"Tab", Key::kTab},
    {"Enter", Key::kEnter},
    {"Escape", Key::kEscape},
    {"Space", Key::kSpace},
    {"Up", Key::kUp},
    {"Down", Key::kDown},
    {"Left", Key::kLeft},
    {"Right", Key::kRight},
    {"Home", Key::kHome},
    {"PageUp", Key::kPageUp},
    {"PageDown", Key::kPageDown},
    {"End", Key::kEnd},
    {"F1", Key::kF1},
    {"F4", Key::kF4},
    {"F5", Key::kF5},
    {"F6", Key::kF6},
};

KeyPress PressOf(Fields& fields) {
  KeyPress press;
  const std::string name = fields.Text("key");
  press.shift = fields.FlagOr("shift", false);
  press.control = fields.FlagOr("control", false);
  press.alt = fields.FlagOr("alt", false);
  press.held = fields.FlagOr("held", false);
  for (const auto& known : kKeys) {
    if (known.name != name) continue;
    press.key = known.key;
    return press;
  }
  std::string_view rest = name;
  if (!rest.empty()) TakeCharacter(rest);
  if (name.empty() || !rest.empty()) throw CommandError("there is no key " + Quoted(name));
  press.key = name == " " ? Key::kSpace : Key::kCharacter;
  press.text = name;
  const bool small = name[0] >= 'a' && name[0] <= 'z';
  if (small && (press.control || press.alt)) press.text[0] = static_cast<char>(name[0] - 'a' + 'A');
  return press;
}

std::string WordOf(Spot spot) {
  switch (spot.part) {
    case Spot::Part::kTree:
      return "tree";
    case Spot::Part::kControl:
      return htr60::NameOf(spot.control);
    case Spot::Part::kFooter:
      return "footer";
    case Spot::Part::kRevert:
      return "revert";
    case Spot::Part::kReopen:
      return "reopen";
    case Spot::Part::kBar:
      return "bar(" + std::to_string(spot.answer) + ")";
    case Spot::Part::kElsewhere:
      break;
  }
  return {};
}

Json OpenListOf(const Keyboard& keys) {
  const auto& list = keys.Opened();
  if (list == nullptr) return {};
  Json lines = Json::array();
  for (int line = 0; line < std::min(list->Lines(), ListSearch::kVisibleLines); ++line) {
    lines.push_back(list->Line(line));
  }
  return {{"control", htr60::NameOf(keys.OpenedOf())},
          {"search", list->HasSearchLine() ? Json(list->Text()) : Json()},
          {"found", list->Lines()},
          {"lines", std::move(lines)},
          {"line", list->Current() == ListSearch::kNone ? Json() : Json(list->Line(list->Current()))}};
}

Json KeyboardOf(VirtualHost& host) {
  const Keyboard& keys = host.Presented().Keys();
  return {{"focus", WordOf(keys.At())}, {"list", OpenListOf(keys)}};
}

// The cursor of the tree stands on the node that the program has selected.
void ActivateSelected(VirtualHost& host) {
  const auto& nodes = host.Control().form.treeView.Nodes();
  const auto node = std::find_if(nodes.begin(), nodes.end(), [](const TreeNode& n) { return n.selected; });
  if (node == nodes.end()) return;
  const std::string text(node->text);
  host.Presented().Activate(text, static_cast<int>(node - nodes.begin()) + 1);
}

Action PressKey(VirtualHost& host, Fields& fields) {
  return [&host, press = PressOf(fields)]() -> Json {
    host.Presented().Show();  // whose letters Alt takes
    Keyboard& keys = host.Presented().Keys();
    KeyOutcome outcome = keys.Press(press);
    if (outcome.activatesNode) ActivateSelected(host);
    const bool types = (press.key == Key::kCharacter || press.key == Key::kSpace) && !press.control && !press.alt;
    if (!outcome.taken && types) outcome.taken = keys.Edit(press.key == Key::kSpace ? " " : press.text);
    host.Presented().Turn();
    Json answer = KeyboardOf(host);
    answer["taken"] = outcome.taken;
    if (outcome.closes) answer["closes"] = true;
    if (outcome.copy) answer["copied"] = *outcome.copy;
    if (outcome.help) {
      const presentation::HelpText help = keys.Help();
      answer["help"] = {{"title", help.title}, {"lines", help.lines}};
    }
    return answer;
  };
}

Action Focused(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return KeyboardOf(host); };
}

constexpr CommandRow kRows[] = {
    {.name = "key", .prepare = PressKey},
    {.name = "focused", .prepare = Focused},
};

}  // namespace

std::span<const CommandRow> KeyCommands() { return kRows; }

}  // namespace htr60::automation
