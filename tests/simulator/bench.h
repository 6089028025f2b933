#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "simulator/device/wire.h"
#include "simulator/manager/manager.h"

namespace htr60::sim {

/// A request document with the attributes given, the rest "None".
inline std::string RequestOf(const std::vector<std::string>& attributes) {
  std::string text = "<ViewData><ControlData";
  for (std::size_t i = 0; i < 24; ++i) {
    const std::string value = i < attributes.size() ? attributes[i] : "None";
    text += " Attribute" + std::to_string(i + 1) + "=\"" + value + "\"";
  }
  return text + "/></ViewData>";
}

/// A receiver that writes down its answers.
class Receiver : public IUpdateUI {
 public:
  void UpdateUI(std::int32_t responseCode, std::string_view answer) noexcept override {
    answers.emplace_back(responseCode, std::string(answer));
    if (onAnswer) onAnswer();
  }
  std::vector<std::pair<std::int32_t, std::string>> answers;
  std::function<void()> onAnswer;
};

/// A manager on a clock of the test's own, with one receiver.
class Bench {
 public:
  explicit Bench(const nlohmann::json& settings = nlohmann::json::object())
      : manager(Manager::Create(Parse(settings), [this] { return now; })), receiver(std::make_shared<Receiver>()) {
    bool flag = false;
    manager->RegisterUI("PrjMainWQ512DTM.MainWQ512DTM", "7", receiver, 0, flag);
  }

  void Advance(std::int64_t ms) {
    const std::int64_t target = now + ms;
    while (manager->NextDue() && *manager->NextDue() <= target) {
      now = std::max(now, *manager->NextDue());
      manager->RunOne(now);
    }
    now = target;
  }

  void Ask(int code, const std::vector<std::string>& attributes = {}) {
    std::string result;
    manager->ReadRequest(std::to_string(code), RequestOf(attributes), result);
    EXPECT_EQ(result, "0");
  }

  /// The document of a read; "(none)" where no answer comes.
  std::string Read(int code, const std::vector<std::string>& attributes = {}) {
    receiver->answers.clear();
    Ask(code, attributes);
    Advance(60);
    for (const auto& [response, document] : receiver->answers) {
      if (response == code * 100) return document;
    }
    return "(none)";
  }

  void Write(int code, const std::vector<std::string>& attributes) {
    std::string result;
    manager->WriteRequest(std::to_string(code), RequestOf(attributes), result);
    Advance(60);
  }

  /// A parameter's digits.
  std::string Digits(const std::string& name) {
    return manager->Get(nlohmann::json::array({name})).at(name).get<std::string>();
  }
  double Value(const std::string& name) {
    return manager->Get(nlohmann::json::array({name})).at(name).at("value").get<double>();
  }
  unsigned Status(const std::string& name) {
    return manager->Get(nlohmann::json::array({name})).at(name).at("status").get<unsigned>();
  }
  /// The lines of the log since the last look.
  nlohmann::json Log() { return manager->TakeLog().entries; }
  void Process(const nlohmann::json& process) { manager->Set({{"process", process}}); }
  void ExpectVerdict(const std::string& verdict) { EXPECT_EQ(Digits("operResult"), verdict); }

  std::int64_t now = 1000;  // not zero: the manager counts from its creation
  std::shared_ptr<Manager> manager;
  std::shared_ptr<Receiver> receiver;
};

struct Tag {
  std::string name;
  std::string value;
};

/// The tags of a document in their order, by plain text search.
inline std::vector<Tag> TagsOf(const std::string& document) {
  std::vector<Tag> tags;
  const std::string start = "<Parameter tag=\"";
  const std::string middle = "\" value=\"";
  for (std::size_t at = document.find(start); at != std::string::npos; at = document.find(start, at + 1)) {
    const std::size_t name = at + start.size();
    const std::size_t nameEnd = document.find('"', name);
    const std::size_t value = nameEnd + middle.size();
    tags.push_back({document.substr(name, nameEnd - name), document.substr(value, document.find('"', value) - value)});
  }
  return tags;
}

inline std::string ValueOf(const std::string& document, const std::string& tag) {
  for (const auto& t : TagsOf(document)) {
    if (t.name == tag) return t.value;
  }
  return "(missing)";
}

inline nlohmann::json OfType(const std::string& type) { return {{"device", {{"primaryValueType", type}}}}; }

inline std::string F8(double value) { return FloatDigits(value); }

inline constexpr std::array<const char*, 4> kTypeNames{"Pressure", "Flow", "Level", "Density"};

}  // namespace htr60::sim
