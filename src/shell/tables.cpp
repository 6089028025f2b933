#include "shell/tables.h"

#include <algorithm>

namespace htr60 {
namespace {

template <class Row>
void Append(std::vector<const Row*>& rows, std::span<const Row> more) {
  for (const Row& row : more) rows.push_back(&row);
}

}  // namespace

UserCntrl::Tables::Tables(const PageRegistry& registry) {
  for (const PageUnit* unit : registry.units) {
    answers.insert(answers.end(), unit->answers.begin(), unit->answers.end());
    Append(writes, unit->writes);
    Append(beforeWrites, unit->beforeWrites);
    Append(rereads, unit->rereads);
    Append(backs, unit->backs);
    Append(fills, unit->fills);
    Append(beforeRereads, unit->beforeRereads);
    for (const ButtonRow& row : unit->buttons) buttons[SlotOf(row.button)] = row.run;
    for (const TabRow& row : unit->tabs) tabs[SlotOf(row.strip)] = &row;
    for (const ListRow& row : unit->lists) lists[SlotOf(row.list)] = row.run;
    for (const PollRow& row : unit->polls) polls[static_cast<std::size_t>(row.timer)] = &row;
    for (const PageLayout& layout : unit->layouts) {
      if (!layout.staysShown) hidden.push_back(layout.frame);
      for (const LayoutGroup& group : layout.groups) {
        if (group.panel) panels.push_back(group.panel);
      }
    }
  }
  std::sort(answers.begin(), answers.end(), [](const AnswerRow& a, const AnswerRow& b) { return a.code < b.code; });
}

const AnswerRow* UserCntrl::Tables::FindAnswer(int code) const {
  const auto found =
      std::lower_bound(answers.begin(), answers.end(), code, [](const AnswerRow& row, int c) { return row.code < c; });
  return found != answers.end() && found->code == code ? &*found : nullptr;
}

}  // namespace htr60
