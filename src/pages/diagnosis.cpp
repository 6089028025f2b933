#include "pages/pages.h"

#include "shell/user_cntrl.h"

namespace htr60::pages::diagnosis {
namespace {

// No read asks for it; a host may send it.
void OnDiagnosisEmptyAnswer(UserCntrl&, const Answer&) {}

constexpr PageLayout kLayouts[] = {{.frame = id::frmDiagnosis}};

constexpr AnswerRow kAnswers[] = {{5100}, {5200, OnDiagnosisEmptyAnswer}, {5400}};
constexpr PollRow kPolls[] = {{TimerId::TimerDiagnosisTab4, 54, PollDocument::kStored}};
constexpr NodeText kNodeTexts[] = {{.text = "Diagnosis", .picture = "window_list"}};
constexpr NodeRow kNodes[] = {
    {.texts = kNodeTexts,
     .page = "Diagnosis",
     .frame = id::frmDiagnosis,
     .strip = id::SSTabDiagnosis,
     .writeEnabled = false,
     .read = 51},
};

}  // namespace

constexpr PageUnit kUnit{.layouts = kLayouts, .answers = kAnswers, .polls = kPolls, .nodes = kNodes};

}  // namespace htr60::pages::diagnosis
