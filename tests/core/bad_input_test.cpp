#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automate/driver.h"
#include "core/bare_control.h"
#include "simulator/device/reads.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;

TEST(BadAnswers, LeaveThePageAsItWas) {
  Driver d(Driver::Captured());
  d.Init();
  d.AnswerTags(100, {{"TRDPVType", "0000"}, {"PHYTag", "414243"}});
  ASSERT_EQ(d.Text("txtParameter(0)"), "ABC");
  for (const char* document : {"", "<A", "<A><P tag='TRDPVType' value='0001'/><P tag='PHYTag' value='44'/></A><B/>"}) {
    d.Answer(100, document);
    EXPECT_EQ(d.Text("txtParameter(0)"), "ABC") << document;
    EXPECT_EQ(d.Text("cmbPVType"), "Pressure") << document;
  }
}

constexpr auto kTextFields = static_cast<std::uint16_t>(CountOf(ControlKind::kText));
constexpr auto kLists = static_cast<std::uint16_t>(CountOf(ControlKind::kChoice));
constexpr auto kFirstList = ordinals::kFirst[static_cast<std::size_t>(ControlKind::kChoice)];

/// The texts of all fields and lists, and how often the program has set each.
struct FormState {
  std::vector<std::string> texts;
  std::vector<std::uint32_t> sets;
  bool operator==(const FormState&) const = default;
};

FormState StateOf(Form& form) {
  FormState state;
  const auto take = [&](const auto& control) {
    state.texts.push_back(control.Text());
    state.sets.push_back(control.Sets());
  };
  for (std::uint16_t i = 0; i < kTextFields; ++i) take(form.At(TextId{{i}}));
  for (std::uint16_t i = 0; i < kLists; ++i) take(form.At(ChoiceId{{static_cast<std::uint16_t>(kFirstList + i)}}));
  return state;
}

/// Whether no control has been set more often in `a` than in `b`.
bool NowhereMore(const FormState& a, const FormState& b) {
  return std::equal(a.sets.begin(), a.sets.end(), b.sets.begin(), std::less_equal<>());
}

/// A control that has visited the pages once, so that their lists are filled.
struct VisitedControl : BareControl {
  VisitedControl() {
    for (const char* node : {"Pressure/Flow", "Density/Concentration", "Level", "Analog Input 1", "Factory",
                             "LCD Config", "Calibration"}) {
      control->Activate(node, 0);
    }
    control->SetList(id::cmbPrimaryValueType, "Pressure");
    control->Click(id::cmdTrdOutScale);
  }
};

using Parameters = std::vector<std::pair<std::string, std::optional<std::string>>>;

std::string DocumentOf(const Parameters& parameters) {
  std::string document = "<Answer>";
  for (const auto& [tag, value] : parameters) {
    document += "<Parameter tag='" + tag + "'" + (value ? " value='" + *value + "'" : "") + "/>";
  }
  return document + "</Answer>";
}

/// The form of a fresh control after the answer; nothing where the code has no handler.
std::optional<FormState> After(int code, const std::string& document) {
  const VisitedControl control;
  control->UpdateUI(code * 100, document);
  if (control->TakeHandledCodes().empty()) return std::nullopt;
  return StateOf(control->form);
}

/// A code that has a handler, with the simulated transmitter's own answer to it.
struct HandledAnswer {
  int code;
  Parameters parameters;
  FormState filled;
};

const std::vector<HandledAnswer>& HandledAnswers() {
  static const std::vector<HandledAnswer> answers = [] {
    std::vector<HandledAnswer> handled;
    sim::Device device{{}, {}, 1};
    for (const int code : sim::ReadCodes()) {
      Parameters parameters;
      const auto tags = sim::AnswerRead(device, code, {.block = "1"});
      for (const sim::AnswerTag& tag : tags.value()) {
        parameters.emplace_back(tag.tag, tag.digits);
      }
      if (auto filled = After(code, DocumentOf(parameters))) {
        handled.push_back({code, std::move(parameters), std::move(*filled)});
      }
    }
    EXPECT_FALSE(handled.empty());
    return handled;
  }();
  return answers;
}

// A handler takes its tags in one order and ends at the first that is missing: of two answers, each without another
// tag, one therefore fills what the other fills, and more.
TEST(BadAnswers, AMissingTagEndsTheHandlerThere) {
  const FormState untouched = StateOf(VisitedControl()->form);
  for (const HandledAnswer& answer : HandledAnswers()) {
    SCOPED_TRACE(answer.code);
    // 41 is of a monitor's tab, and none is in front here.
    const bool showsNothing = answer.code == 3 || answer.code == 41 || answer.code == 52;
    EXPECT_EQ(answer.filled == untouched, showsNothing);
    std::vector<FormState> states{answer.filled};
    for (std::size_t i = 0; i < answer.parameters.size(); ++i) {
      SCOPED_TRACE(answer.parameters[i].first);
      Parameters without = answer.parameters;
      without[i].second.reset();
      states.push_back(*After(answer.code, DocumentOf(without)));
      without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
      EXPECT_EQ(states.back(), *After(answer.code, DocumentOf(without)));
      EXPECT_TRUE(NowhereMore(states.back(), answer.filled));
      for (const FormState& other : states) {
        EXPECT_TRUE(NowhereMore(states.back(), other) || NowhereMore(other, states.back()));
      }
    }
  }
}

TEST(BadAnswers, TheSecondOfATagIsNotTaken) {
  for (const HandledAnswer& answer : HandledAnswers()) {
    SCOPED_TRACE(answer.code);
    Parameters doubled = answer.parameters;
    for (const auto& parameter : answer.parameters) doubled.emplace_back(parameter.first, "no digits");
    EXPECT_EQ(*After(answer.code, DocumentOf(doubled)), answer.filled);
  }
}

TEST(BadAnswers, BadValuesOfEveryTagAreSurvived) {
  const std::string kBad[] = {
      "",         "0",        "ZZ",       "FFFFFFFF", "FFFFFFFFFFFFFFFF",     "7F800000",
      "FFC00000", "7F80ZZ00", " 0001",    "-1",       std::string(5000, 'F'), "\xC3\xA9\xE2\x82\xAC",
      "00000000", "80000000", "&#x1F600;"};
  for (const HandledAnswer& answer : HandledAnswers()) {
    SCOPED_TRACE(answer.code);
    const std::string good = DocumentOf(answer.parameters);
    for (std::size_t i = 0; i < answer.parameters.size(); ++i) {
      SCOPED_TRACE(answer.parameters[i].first);
      const std::string& digits = *answer.parameters[i].second;
      std::vector<std::string> values(std::begin(kBad), std::end(kBad));
      values.push_back(digits.substr(0, digits.size() / 2));
      values.push_back(digits.substr(0, digits.size() - 1));
      values.push_back(digits + digits);
      const VisitedControl control;
      for (const std::string& value : values) {
        Parameters bad = answer.parameters;
        bad[i].second = value;
        control->UpdateUI(answer.code * 100, DocumentOf(bad));
      }
      control->UpdateUI(answer.code * 100, good);
      EXPECT_EQ(StateOf(control->form).texts, answer.filled.texts);
    }
  }
}

TEST(BadAnswers, CodesWithoutAHandlerChangeNothing) {
  const FormState untouched = StateOf(VisitedControl()->form);
  for (const int code : {0, -1, 99, 101, 999900, 2147483647, -2147483647}) {
    const VisitedControl control;
    control->UpdateUI(code, "<A><P tag='TRDPVType' value='0002'/></A>");
    EXPECT_TRUE(control->TakeHandledCodes().empty()) << code;
    EXPECT_EQ(StateOf(control->form), untouched) << code;
  }
}

}  // namespace
}  // namespace htr60
