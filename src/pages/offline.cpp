#include "pages/pages.h"

#include "shell/user_cntrl.h"

namespace htr60::pages::offline {
namespace {

// No tree of this version holds these nodes, and no frame belongs to these pages: the texts stand ready.
void OnOfflineStateAnswer(UserCntrl&, const Answer&) {}

constexpr AnswerRow kAnswers[] = {{9100, OnOfflineStateAnswer}};

constexpr NodeText kBlocksTexts[] = {ByTextAlone("Blocks."), ByTextAlone("OffLine Parameterize")};
constexpr NodeText kTransducerText[] = {ByTextAlone("Transducer.")};
constexpr NodeText kAnalogInputText[] = {ByTextAlone("Analog Input.")};
constexpr NodeText kTotalizerText[] = {ByTextAlone("Totalizer.")};
constexpr NodeRow OfflineNode(std::span<const NodeText> texts, std::string_view page) {
  return {.texts = texts, .page = page, .writeEnabled = false, .readsOnce = true};
}
constexpr NodeRow kNodes[] = {
    OfflineNode(kBlocksTexts, "OffLine Blocks"),
    OfflineNode(kTransducerText, "OffLine Transducer"),
    OfflineNode(kAnalogInputText, "OffLine Analog Input"),
    OfflineNode(kTotalizerText, "OffLine Totalizer"),
};
constexpr BackRow kBacks[] = {
    {{"OffLine TRD Input", "OffLine TRD Output", "OffLine TRD Temp"}, {.page = "OffLine Transducer"}},
};

}  // namespace

constexpr PageUnit kUnit{.answers = kAnswers, .backs = kBacks, .nodes = kNodes};

}  // namespace htr60::pages::offline
