#include "shell/tables.h"

#include <algorithm>

namespace htr60 {
namespace {

std::size_t SlotOf(ControlId control, ControlKind kind) {
  return static_cast<std::size_t>(control.ordinal - ordinals::kFirst[static_cast<std::size_t>(kind)]);
}

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
    for (const ButtonRow& row : unit->buttons) buttons[SlotOf(row.button, ControlKind::kButton)] = row.run;
    for (const TabRow& row : unit->tabs) tabs[SlotOf(row.strip, ControlKind::kTabs)] = row.run;
    for (const ListRow& row : unit->lists) lists[SlotOf(row.list, ControlKind::kChoice)] = row.run;
    for (const PollRow& row : unit->polls) polls[static_cast<std::size_t>(row.timer)] = &row;
  }
  std::sort(answers.begin(), answers.end(), [](const AnswerRow& a, const AnswerRow& b) { return a.code < b.code; });
}

const AnswerRow* UserCntrl::Tables::FindAnswer(int code) const {
  const auto found =
      std::lower_bound(answers.begin(), answers.end(), code, [](const AnswerRow& row, int c) { return row.code < c; });
  return found != answers.end() && found->code == code ? &*found : nullptr;
}

}  // namespace htr60
