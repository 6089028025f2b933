#include <string>
#include <utility>
#include <vector>

#include "automate/commands.h"
#include "automate/control_lookup.h"

namespace htr60::automation {
namespace {

void AddMembers(const TextField& field, Json& json) { json["text"] = field.Text(); }
void AddMembers(const Label& label, Json& json) { json["text"] = label.Text(); }
void AddMembers(const Button& button, Json& json) { json["text"] = button.Text(); }
void AddMembers(const ChoiceList& list, Json& json) {
  json["text"] = list.Text();
  json["items"] = list.Rows();
}
void AddMembers(const ListBox& list, Json& json) { json["items"] = list.Rows(); }
void AddMembers(const TabStrip& strip, Json& json) {
  json["index"] = strip.Index();
  json["captions"] = strip.Captions();
}
void AddMembers(const Frame& frame, Json& json) {
  json["text"] = frame.Text();
  // The form gives these to the groups that the program moves or resizes, and to no other.
  if (frame.Top() != 0) json["top"] = frame.Top();
  if (frame.Height() != 0) json["height"] = frame.Height();
}
void AddMembers(const Picture&, Json&) {}

Json Describe(Form& form, ControlId id) {
  return form.Visit(id, [&](const auto& control) -> Json {
    Json json = {{"kind", WordOf(KindOf(id))}, {"visible", control.Visible()}, {"enabled", control.Enabled()}};
    AddMembers(control, json);
    return json;
  });
}

Action Get(VirtualHost& host, Fields& fields) {
  std::vector<std::pair<std::string, ControlId>> controls;
  for (std::string& name : fields.Texts("controls")) {
    const ControlId id = FindByName(name);
    controls.emplace_back(std::move(name), id);
  }
  return [&host, controls = std::move(controls)]() -> Json {
    Json found = Json::object();
    for (const auto& [name, id] : controls) found[name] = Describe(host.Control().form, id);
    return {{"controls", std::move(found)}};
  };
}

Action Controls(VirtualHost&, Fields&) {
  return []() -> Json {
    Json names = Json::array();
    for (std::uint16_t ordinal = 0; ordinal < kControlCount; ++ordinal) {
      names.push_back(htr60::NameOf(ControlId{ordinal}));
    }
    return {{"controls", std::move(names)}};
  };
}

Action Status(VirtualHost& host, Fields&) {
  return [&host]() -> Json {
    Json panels = Json::array();
    for (int number = 1; number <= 4; ++number) {
      const StatusPanel& panel = host.Control().form.statusBar.Panel(number);
      Json json = {{"text", panel.text}};
      if (number == 1) json["picture"] = panel.picture.empty() ? Json() : Json(panel.picture);
      panels.push_back(std::move(json));
    }
    return {{"panels", std::move(panels)}};
  };
}

Action Tree(VirtualHost& host, Fields&) {
  return [&host]() -> Json {
    Json nodes = Json::array();
    int position = 0;
    for (const TreeNode& node : host.Control().form.treeView.Nodes()) {
      nodes.push_back({{"position", ++position},
                       {"text", node.text},
                       {"parent", node.parent},
                       {"picture", node.picture},
                       {"selectedPicture", node.selectedPicture},
                       {"expanded", node.expanded},
                       {"selected", node.selected}});
    }
    return {{"nodes", std::move(nodes)}};
  };
}

Action Timers(VirtualHost& host, Fields&) {
  return [&host]() -> Json {
    Json timers = Json::object();
    for (std::size_t i = 0; i < kTimerCount; ++i) {
      const Timer& timer = host.Control().form.At(static_cast<TimerId>(i));
      timers[std::string(htr60::NameOf(timer.Id()))] = {{"enabled", timer.Enabled()}, {"interval", timer.Interval()}};
    }
    return {{"timers", std::move(timers)}};
  };
}

Action Shown(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return host.TakeShown(); };
}

constexpr CommandRow kRows[] = {
    {.name = "get", .prepare = Get, .inBox = true},
    {.name = "controls", .prepare = Controls},
    {.name = "status", .prepare = Status},
    {.name = "tree", .prepare = Tree},
    {.name = "timers", .prepare = Timers, .inBox = true},
    {.name = "shown", .prepare = Shown},
};

}  // namespace

std::span<const CommandRow> ViewCommands() { return kRows; }

}  // namespace htr60::automation
