#pragma once

#include <array>
#include <vector>

#include "shell/user_cntrl.h"

namespace htr60 {

/// The rows of all units, laid out for look-up: answers sorted by code, events and timers by their number, the rest in
/// the order of the units.
struct UserCntrl::Tables {
  explicit Tables(const PageRegistry& registry);

  const AnswerRow* FindAnswer(int code) const;
  template <class Row>
  static const Row* Find(const std::vector<const Row*>& rows, std::string_view page, std::string_view subPage) {
    for (const Row* row : rows) {
      if (row->pages.Has(page) && row->subPages.Has(subPage)) return row;
    }
    return nullptr;
  }

  std::vector<AnswerRow> answers;
  std::vector<const WriteRow*> writes;
  std::vector<const PageStepRow*> beforeWrites;
  std::vector<const RereadRow*> rereads;
  std::vector<const PageStepRow*> beforeRereads;
  std::vector<const BackRow*> backs;
  std::vector<const FillRow*> fills;
  std::array<Call<void>, CountOf(ControlKind::kButton)> buttons;
  std::array<const TabRow*, CountOf(ControlKind::kTabs)> tabs{};
  std::array<Call<void>, CountOf(ControlKind::kChoice)> lists;
  std::array<const PollRow*, kTimerCount> polls{};
  std::vector<FrameId> hidden;    // the frames that are hidden together
  std::vector<PictureId> panels;  // hidden with them
};

}  // namespace htr60
