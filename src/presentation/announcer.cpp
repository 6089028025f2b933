#include "presentation/announcer.h"

#include <algorithm>
#include <utility>

#include "presentation/field_states.h"
#include "presentation/marks.h"
#include "presentation/page_rows.h"

namespace htr60::presentation {
namespace {

constexpr int kConnectionPanel = 1;

}  // namespace

Announcer::Announcer(UserCntrl& control)
    : control_(control), connection_(control.form.statusBar.Panel(kConnectionPanel).text) {
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          if (row.kind == RowKind::kMsg && row.control) messages_.push_back({&page, &group, &row, {}});
        }
      }
    }
  }
}

// What a message says that warns; empty where it is not to be seen, or only informs.
std::string Announcer::Warning(const Message& message, const PageLayout* page) const {
  Form& form = control_.form;
  const LayoutGroup& group = *message.group;
  const std::string_view text = form.TextOf(message.row->control);
  if (group.panel) return form.At(group.panel).Visible() ? std::string(text) : std::string();
  const bool shown = message.page == page && StandsOn(group, TabsOf(form, *page)) && IsShown(form, group) &&
                     form.Any(message.row->control).Visible();
  const bool warns = shown && MarkOf(message.row->role, message.row->kind, text) != Mark::kNone;
  return warns ? std::string(text) : std::string();
}

void Announcer::Turn(const FormChanges& changes, const PageLayout* page, std::string_view late) {
  if (changes.status) {
    const std::string& connection = control_.form.statusBar.Panel(kConnectionPanel).text;
    if (connection != connection_) Say(connection_ = connection);
  }
  if (changes.any()) {
    for (Message& message : messages_) {
      std::string warning = Warning(message, page);
      if (warning == message.said) continue;
      message.said = warning;
      Say(std::move(warning));
    }
  }
  if (late_ == late) return;
  late_ = late;
  Say(late_);
}

void Announcer::Say(std::string text) {
  if (text.empty()) return;
  if (told_.size() == kMost) told_.erase(told_.begin());
  told_.push_back(std::move(text));
}

std::vector<std::string> Announcer::Take() { return std::exchange(told_, {}); }

}  // namespace htr60::presentation
