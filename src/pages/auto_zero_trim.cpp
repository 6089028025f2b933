#include "pages/pages.h"

#include "shell/user_cntrl.h"

namespace htr60::pages::auto_zero_trim {
namespace {

constexpr PageLayout kLayouts[] = {{.frame = id::frmAutoZeroTrim}};

constexpr AnswerRow kAnswers[] = {{5700}};
constexpr RereadRow kRereads[] = {{"Auto Zero Trim", kAnySubPage, 57}};

constexpr std::string_view kTrueFalse[] = {"True", "False"};
constexpr std::string_view kSelections[] = {"Using Zero Trim", "Using LRV"};
constexpr FillRow kFills[] = {
    {id::cmbAZTrimEnable, kAtStart, kTrueFalse},
    {id::CmbAZTrimSelection, kAtStart, kSelections},
};

}  // namespace

constexpr PageUnit kUnit{.layouts = kLayouts, .answers = kAnswers, .rereads = kRereads, .fills = kFills};

}  // namespace htr60::pages::auto_zero_trim
