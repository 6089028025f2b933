#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "automate/commands.h"
#include "automate/control_lookup.h"

namespace htr60::automation {
namespace {

using presentation::NameOf;
using presentation::Screen;
using presentation::ScreenButton;
using presentation::ScreenRow;

std::string_view WordOf(RowKind kind) {
  switch (kind) {
    case RowKind::kEdit:
      return "edit";
    case RowKind::kNum:
      return "num";
    case RowKind::kValue:
      return "value";
    case RowKind::kText:
      return "text";
    case RowKind::kStatus:
      return "status";
    case RowKind::kList:
      return "list";
    case RowKind::kListRo:
      return "list-ro";
    case RowKind::kListBox:
      return "listbox";
    case RowKind::kLabel:
      return "label";
    case RowKind::kMsg:
      return "msg";
    case RowKind::kOpen:
      return "open";
    case RowKind::kWrite:
      return "write";
    case RowKind::kFixed:
      break;
  }
  return "fixed";
}

std::string LetterOf(char mnemonic) { return mnemonic == '\0' ? std::string() : std::string(1, mnemonic); }

Json RowOf(const ScreenRow& row) {
  return {{"control", htr60::NameOf(row.control)},
          {"kind", WordOf(row.kind)},
          {"caption", row.caption},
          {"name", row.name},
          {"unit", row.unit},
          {"text", row.text},
          {"enabled", row.enabled},
          {"state", row.state ? NameOf(*row.state) : std::string_view()},
          {"mark", NameOf(row.mark)},
          {"words", row.words},
          {"hint", row.hint}};
}

Json ButtonOf(const ScreenButton& button) {
  return {{"control", button.control ? htr60::NameOf(button.control) : std::string()},
          {"caption", button.caption},
          {"enabled", button.enabled},
          {"mnemonic", LetterOf(button.mnemonic)}};
}

template <class Items, class Make>
Json ArrayOf(const Items& items, Make make) {
  Json array = Json::array();
  for (const auto& item : items) array.push_back(make(item));
  return array;
}

Json StripOf(const Screen& screen) {
  Json strip = screen.badges;
  for (const std::string& text : screen.identity) strip.push_back(text.empty() ? "not read" : text);
  return strip;
}

Json AsJson(const Screen& screen, const presentation::TreeMarks& marks) {
  return {
      {"frame", screen.frame ? Json(htr60::NameOf(screen.frame)) : Json()},
      {"title", screen.title},
      {"purpose", screen.purpose},
      {"dataLine", screen.dataLine},
      {"footer", screen.footer},
      {"message", screen.message},
      {"strip", StripOf(screen)},
      {"health", {{"state", NameOf(screen.health)}, {"text", screen.healthText}}},
      {"tabs",
       ArrayOf(screen.tabs,
               [](const auto& tabs) -> Json {
                 return {{"control", htr60::NameOf(tabs.control)}, {"index", tabs.index}, {"captions", tabs.captions}};
               })},
      {"groups", ArrayOf(screen.groups,
                         [](const auto& group) -> Json {
                           return {{"caption", group.caption}, {"mnemonic", LetterOf(group.mnemonic)}};
                         })},
      {"rows", ArrayOf(screen.rows, RowOf)},
      {"buttons", ArrayOf(screen.buttons, ButtonOf)},
      {"revertable", screen.revertable},
      {"figure", screen.figure ? Json{{"sentence", screen.figure->sentence},
                                      {"above", screen.figure->above},
                                      {"remarks", screen.figure->remarks}}
                               : Json()},
      {"bar", screen.bar ? Json{{"text", screen.bar->text}, {"buttons", screen.bar->buttons}} : Json()},
      {"nodes", {{"open", marks.open}, {"notWritten", marks.unwritten}}}};
}

Action ShowScreen(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return AsJson(host.Presented().Show(), host.Presented().Marks()); };
}

Action Reopen(VirtualHost& host, Fields&) {
  return [&host]() -> Json {
    if (!host.Presented().Reopen()) throw CommandError("there is no page to open again");
    return {};
  };
}

Action Revert(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return {{"fields", host.Presented().Revert()}}; };
}

Action Focus(VirtualHost& host, Fields& fields) {
  const ControlId control = FindByName(fields.Text("control"));
  return [&host, control]() -> Json {
    host.Presented().Focus(control);
    return {};
  };
}

Action Paste(VirtualHost& host, Fields& fields) {
  const TextId id{FindOfKind(fields.Text("control"), ControlKind::kText)};
  return [&host, id, text = fields.Text("text")]() -> Json {
    RequireEnabled(host.Control().form.At(id));
    presentation::Presentation& presented = host.Presented();
    if (!presented.PasteColumns(id, text)) presented.Type(id, text);
    return {};
  };
}

Action PutBack(VirtualHost& host, Fields& fields) {
  const std::string name = fields.Text("control");
  const ControlId control = FindByName(name);
  return [&host, control, name]() -> Json {
    RequireEnabled(host.Control().form.Any(control));
    if (!host.Presented().PutBack(control)) throw CommandError("nothing of " + Quoted(name) + " was replaced");
    return {};
  };
}

Action OpenHealth(VirtualHost& host, Fields&) {
  return [&host]() -> Json {
    if (!host.Presented().OpenHealth()) throw CommandError("nothing was read of the health");
    return {};
  };
}

Action Close(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return {{"closes", host.Presented().WantsToClose()}}; };
}

Action Bar(VirtualHost& host, Fields& fields) {
  const auto button = static_cast<std::size_t>(fields.Whole("button", 0, std::numeric_limits<std::int32_t>::max()));
  return [&host, button]() -> Json {
    const auto& bar = host.Presented().Show().bar;
    if (!bar) throw CommandError("there is no bar");
    if (button >= bar->buttons.size()) throw CommandError("the bar has no such button");
    return {{"closes", host.Presented().AnswerBar(button)}};
  };
}

Action Announced(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return {{"texts", host.Presented().TakeAnnounced()}}; };
}

constexpr CommandRow kRows[] = {
    {.name = "screen", .prepare = ShowScreen},
    {.name = "reopen", .prepare = Reopen},
    {.name = "revert", .prepare = Revert},
    {.name = "focus", .prepare = Focus},
    {.name = "paste", .prepare = Paste},
    {.name = "putBack", .prepare = PutBack},
    {.name = "openHealth", .prepare = OpenHealth},
    {.name = "close", .prepare = Close},
    {.name = "bar", .prepare = Bar},
    {.name = "announced", .prepare = Announced},
};

}  // namespace

std::span<const CommandRow> ScreenCommands() { return kRows; }

}  // namespace htr60::automation
