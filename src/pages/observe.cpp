#include "pages/pages.h"

#include "shell/user_cntrl.h"

namespace htr60::pages::observe {
namespace {

constexpr int kInterval = 15000;

// The three views share one frame; the node says which block it shows and what the block's input is called.
struct View {
  std::string_view page;
  std::string_view block;
  std::string_view value;
  std::string_view status;
};
constexpr View kViews[] = {
    {"AI 1 View", "1", "PV_VAL", "PV_VAL_ST"},
    {"AI 2 View", "2", "SV1_VAL", "SV1_VAL_ST"},
    {"AI 3 View", "3", "SV2_VAL", "SV2_VAL_ST"},
};

void ShowView(UserCntrl& c, std::string_view node) {
  for (const View& view : kViews) {
    if (view.page != node) continue;
    c.BlockSelector = view.block;
    c.form.LabelAIVal.SetText(view.value);
    c.form.LabelAIStatus.SetText(view.status);
  }
}

Operands BlockOfView(UserCntrl& c) {
  for (const View& view : kViews) {
    if (view.page == c.CurrentPage) c.BlockSelector = view.block;
  }
  return {c.BlockSelector.empty() ? "None" : c.BlockSelector};
}

constexpr PageLayout kLayouts[] = {{.frame = id::frmDeviceView, .signalFlow = true}, {.frame = id::frmAIView}};

constexpr AnswerRow kAnswers[] = {{2600}, {2700}};
constexpr PollRow kPolls[] = {
    {TimerId::TimerDeviceView, 26, PollDocument::kStored},
    {TimerId::TimerAIView, 27, PollDocument::kOwn, BlockOfView},
};
constexpr NodeText kObserveText[] = {{.text = "Observe", .picture = "window_list"}};
constexpr NodeText ViewNode(std::string_view text) { return {.text = text, .parent = "Observe", .picture = "folder1"}; }
constexpr NodeText kViewTexts[] = {ViewNode(kViews[0].page), ViewNode(kViews[1].page), ViewNode(kViews[2].page)};
constexpr NodeRow kNodes[] = {
    {.texts = kObserveText,
     .page = "Observe",
     .frame = id::frmDeviceView,
     .writeEnabled = false,
     .read = 26,
     .polls = true,
     .timer = TimerId::TimerDeviceView,
     .interval = kInterval},
    {.texts = kViewTexts,
     .frame = id::frmAIView,
     .writeEnabled = false,
     .read = 27,
     .polls = true,
     .timer = TimerId::TimerAIView,
     .interval = kInterval,
     .also = ShowView},
};

}  // namespace

constexpr PageUnit kUnit{.layouts = kLayouts, .answers = kAnswers, .polls = kPolls, .nodes = kNodes};

}  // namespace htr60::pages::observe
