#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automate/interpreter.h"

namespace htr60::automation {

/// Drives an interpreter in this process and fails the test where a command is not carried out.
class Driver {
 public:
  /// Without a control; a test that needs one says how it is to be.
  Driver() = default;
  explicit Driver(Json create) {
    create["do"] = "create";
    Ok(create);
  }
  /// A control that is attached to the capturing DTM manager.
  static Json Captured() { return Json::object(); }
  /// A control on the simulated transmitter with settings of its own.
  static Json Simulated(Json settings = Json::object()) {
    settings["dtm"] = "simulator";
    return settings;
  }

  Interpreter& Of() { return interpreter_; }
  Json Do(const Json& command) { return interpreter_.Do(command); }
  Json Ok(const Json& command) {
    Json answer = interpreter_.Do(command);
    EXPECT_TRUE(answer.at("ok").get<bool>()) << command << " answers " << answer;
    return answer;
  }
  /// The command is refused with a sentence.
  void Refused(const Json& command) {
    const Json answer = interpreter_.Do(command);
    EXPECT_FALSE(answer.at("ok").get<bool>()) << command << " answers " << answer;
    EXPECT_FALSE(answer.value("error", "").empty()) << command << " answers " << answer;
    EXPECT_EQ(answer.size(), 2U) << answer;
  }

  void Init() { Ok({{"do", "init"}, {"invokeId", "7"}}); }
  void Advance(int milliseconds) { Ok({{"do", "advance"}, {"ms", milliseconds}}); }
  void Activate(std::string_view node) { Ok({{"do", "activate"}, {"node", node}}); }
  void Click(std::string_view control) { Ok({{"do", "click"}, {"control", control}}); }
  void Tab(std::string_view control, int index) { Ok({{"do", "tab"}, {"control", control}, {"index", index}}); }
  void Type(std::string_view control, std::string_view text) {
    Ok({{"do", "type"}, {"control", control}, {"text", text}});
  }
  void Choose(std::string_view control, std::string_view text) {
    Ok({{"do", "choose"}, {"control", control}, {"text", text}});
  }
  void Answer(int code, std::string_view document) { Ok({{"do", "answer"}, {"code", code}, {"document", document}}); }
  void AnswerTags(int code, std::initializer_list<std::pair<std::string, std::string>> tags) {
    Json pairs = Json::array();
    for (const auto& [tag, value] : tags) pairs.push_back(Json::array({tag, value}));
    Ok({{"do", "answer"}, {"code", code}, {"tags", pairs}});
  }
  void Connect() { Answer(9000, "<DTMInfo state='Online' />"); }

  Json Get(std::string_view control) {
    Json controls = Ok({{"do", "get"}, {"controls", Json::array({control})}})["controls"];
    return controls[std::string(control)];
  }
  std::string Text(std::string_view control) { return Get(control).at("text"); }
  Json Member(std::string_view name) { return Ok({{"do", "members"}})["members"][std::string(name)]; }
  void SetMember(std::string_view name, const Json& value) { Ok({{"do", "set"}, {"member", name}, {"value", value}}); }
  Json Timer(std::string_view name) { return Ok({{"do", "timers"}})["timers"][std::string(name)]; }
  Json Requests() { return Ok({{"do", "requests"}})["requests"]; }
  /// "read 90", "write 72" and so on: what went out since the last look.
  std::vector<std::string> Sent() {
    std::vector<std::string> sent;
    for (const Json& request : Requests()) {
      sent.push_back(request.at("kind").get<std::string>() + " " + request.at("code").get<std::string>());
    }
    return sent;
  }
  Json Shown() { return Ok({{"do", "shown"}})["boxes"]; }
  Json Answers() { return Ok({{"do", "answers"}})["answers"]; }
  /// The codes of the answers since the last look.
  std::vector<int> AnsweredCodes() {
    std::vector<int> codes;
    for (const Json& answer : Answers()) codes.push_back(answer.at("code"));
    return codes;
  }
  Json Codec(std::string_view name, const Json& args) {
    return Ok({{"do", "codec"}, {"name", name}, {"args", args}})["result"];
  }

 private:
  Interpreter interpreter_;
};

}  // namespace htr60::automation
