#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "automate/commands.h"
#include "automate/control_lookup.h"

namespace htr60::automation {
namespace {

// Times in milliseconds: the farthest that the clock moves at once, and the latest one, up to which a clock reading is
// exact in every reader's numbers.
constexpr std::int64_t kFarthest = std::int64_t{366} * 24 * 60 * 60 * 1000;
constexpr std::int64_t kLatest = std::int64_t{1} << 53;

Action Init(VirtualHost& host, Fields& fields) {
  std::string invokeId = fields.Text("invokeId");
  const Json* dtm = fields.Find("dtm");
  if (dtm != nullptr && !dtm->is_null()) throw CommandError("\"dtm\" can only be null");
  return [&host, invokeId = std::move(invokeId), missing = dtm != nullptr]() -> Json {
    return {{"result", host.Control().Init(invokeId, "", missing ? nullptr : host.WatchedDtm())}};
  };
}

Action Release(VirtualHost& host, Fields&) {
  return [&host]() -> Json { return {{"result", host.Control().PrepareToRelease()}}; };
}

Action Advance(VirtualHost& host, Fields& fields) {
  const std::int64_t milliseconds = fields.Whole("ms", 0, kLatest);
  return [&host, milliseconds]() -> Json {
    if (milliseconds > kFarthest) throw CommandError("the clock moves by 366 days at most");
    if (milliseconds > kLatest - host.Now()) throw CommandError("the clock does not go that far");
    host.Advance(milliseconds);
    return {};
  };
}

Action Activate(VirtualHost& host, Fields& fields) {
  return [&host, text = fields.Text("node")]() -> Json {
    const auto& nodes = host.Control().form.treeView.Nodes();
    const auto node = std::find_if(nodes.begin(), nodes.end(), [&](const TreeNode& n) { return n.text == text; });
    const int position = node == nodes.end() ? 0 : static_cast<int>(node - nodes.begin()) + 1;
    host.Presented().Activate(text, position);
    return {};
  };
}

Action Click(VirtualHost& host, Fields& fields) {
  const ButtonId id{FindOfKind(fields.Text("control"), ControlKind::kButton)};
  return [&host, id, force = fields.FlagOr("force", false)]() -> Json {
    const Button& button = host.Control().form.At(id);
    if (!force) {
      RequireEnabled(button);
      if (!button.Visible()) throw CommandError(Quoted(htr60::NameOf(id)) + " is not visible");
      host.Presented().Press(id);
      return {};
    }
    host.Control().Click(id);  // the control alone, as a script that goes past the operator
    return {};
  };
}

Action Tab(VirtualHost& host, Fields& fields) {
  const TabsId id{FindOfKind(fields.Text("control"), ControlKind::kTabs)};
  const auto tabs = static_cast<std::int64_t>(host.Control().form.At(id).Captions().size());
  const int index = static_cast<int>(fields.Whole("index", 0, tabs - 1));
  return [&host, id, index]() -> Json {
    host.Presented().ClickTab(id, index);
    return {};
  };
}

Action Type(VirtualHost& host, Fields& fields) {
  const TextId id{FindOfKind(fields.Text("control"), ControlKind::kText)};
  std::string text = fields.Text("text");
  return [&host, id, text = std::move(text), force = fields.FlagOr("force", false)]() -> Json {
    if (force) {
      host.Control().Type(id, text);
      return {};
    }
    RequireEnabled(host.Control().form.At(id));
    host.Presented().Type(id, text);
    return {};
  };
}

Action Choose(VirtualHost& host, Fields& fields) {
  const ChoiceId id{FindOfKind(fields.Text("control"), ControlKind::kChoice)};
  if (fields.Has("text") == fields.Has("row")) throw CommandError("either \"text\" or \"row\" says what to choose");
  const bool force = fields.FlagOr("force", false);
  if (fields.Has("row")) {
    const std::int64_t row = fields.Whole("row", 0, std::numeric_limits<std::int32_t>::max());
    return [&host, id, row, force]() -> Json {
      const ChoiceList& list = host.Control().form.At(id);
      if (!force) RequireEnabled(list);
      if (row >= static_cast<std::int64_t>(list.Rows().size())) throw CommandError("there is no such row");
      if (force) {
        host.Control().Pick(id, static_cast<std::size_t>(row));
      } else {
        host.Presented().Pick(id, static_cast<std::size_t>(row));
      }
      return {};
    };
  }
  return [&host, id, text = fields.Text("text"), force]() -> Json {
    if (force) {
      host.Control().SetList(id, text);
      return {};
    }
    const ChoiceList& list = host.Control().form.At(id);
    RequireEnabled(list);
    const auto rows = list.Rows();
    const auto row = std::find(rows.begin(), rows.end(), text);
    if (row == rows.end()) throw CommandError("there is no row " + Quoted(text));
    host.Presented().Pick(id, static_cast<std::size_t>(row - rows.begin()));
    return {};
  };
}

BoxAnswer ReadBoxAnswer(VirtualHost& host, const Json& json) {
  if (json.is_string()) return {.answer = json.get<std::string>(), .during = {}};
  Fields fields(json, "an answer that is no text");
  BoxAnswer answer{.answer = fields.Text("answer"), .during = {}};
  if (fields.Has("during")) {
    for (const Json& command : fields.Array("during")) answer.during.push_back(Prepare(host, command, true));
  }
  fields.End();
  return answer;
}

Action Boxes(VirtualHost& host, Fields& fields) {
  std::vector<BoxAnswer> answers;
  for (const Json& answer : fields.Array("answers")) answers.push_back(ReadBoxAnswer(host, answer));
  return [&host, answers = std::move(answers)]() -> Json {
    for (const BoxAnswer& answer : answers) host.QueueBoxAnswer(answer);
    return {};
  };
}

constexpr CommandRow kRows[] = {
    {.name = "init", .prepare = Init},
    {.name = "release", .prepare = Release, .inBox = true, .mayOpenBox = true},
    {.name = "advance", .prepare = Advance, .inBox = true, .mayOpenBox = true},
    {.name = "activate", .prepare = Activate},
    {.name = "click", .prepare = Click},
    {.name = "tab", .prepare = Tab},
    {.name = "type", .prepare = Type},
    {.name = "choose", .prepare = Choose},
    {.name = "boxes", .prepare = Boxes},
};

}  // namespace

std::span<const CommandRow> OperatorCommands() { return kRows; }

}  // namespace htr60::automation
