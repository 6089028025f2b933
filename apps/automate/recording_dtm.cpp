#include "automate/recording_dtm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "text/failure.h"

namespace htr60::automation {
namespace {

/// Stands before the control's receiver, so that the answers of the simulated transmitter are written down.
class RecordingReceiver final : public IUpdateUI {
 public:
  RecordingReceiver(std::weak_ptr<RecordingDtm> dtm, std::shared_ptr<IUpdateUI> receiver)
      : dtm_(std::move(dtm)), receiver_(std::move(receiver)) {}

  void UpdateUI(std::int32_t responseCode, std::string_view answer) noexcept override {
    if (const auto dtm = dtm_.lock()) dtm->RecordAnswer(responseCode, answer);
    // The control may be released inside, and this object with it.
    const std::shared_ptr<IUpdateUI> receiver = receiver_;
    if (receiver) receiver->UpdateUI(responseCode, answer);
  }

 private:
  std::weak_ptr<RecordingDtm> dtm_;
  std::shared_ptr<IUpdateUI> receiver_;
};

void AppendCharacter(std::string& text, std::uint32_t code) {
  const auto put = [&](std::uint32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | (code >> 6));
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

/// Appends what an entity's name stands for; false where it is none that a document can hold.
bool AppendEntity(std::string& text, std::string_view name) {
  constexpr std::array<std::pair<std::string_view, char>, 5> kNames = {
      {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
  for (const auto& [known, character] : kNames) {
    if (name == known) {
      text.push_back(character);
      return true;
    }
  }
  if (name.substr(0, 1) != "#") return false;
  const bool hexadecimal = name.substr(1, 1) == "x";
  const std::string_view digits = name.substr(hexadecimal ? 2 : 1);
  std::uint32_t code = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, hexadecimal ? 16 : 10);
  if (error != std::errc{} || end != digits.data() + digits.size() || code > 0x10FFFF) return false;
  AppendCharacter(text, code);
  return true;
}

std::string Unescaped(std::string_view value) {
  std::string text;
  while (!value.empty()) {
    const std::size_t end = value.front() == '&' ? value.find(';') : std::string_view::npos;
    if (end != std::string_view::npos && AppendEntity(text, value.substr(1, end - 1))) {
      value.remove_prefix(end + 1);
    } else {
      text.push_back(value.front());
      value.remove_prefix(1);
    }
  }
  return text;
}

}  // namespace

// Read by hand and not by a parser: an operator can type characters that no XML document may hold, and what went out is
// to be seen nevertheless.
Json AttributesOf(std::string_view document) {
  Json values = Json::array();
  constexpr std::string_view kName = " Attribute";
  for (std::size_t at = document.find(kName); at != std::string_view::npos; at = document.find(kName, at)) {
    const std::size_t open = document.find("=\"", at);
    if (open == std::string_view::npos) break;
    const std::size_t close = document.find('"', open + 2);
    if (close == std::string_view::npos) break;
    values.push_back(Unescaped(document.substr(open + 2, close - open - 2)));
    at = close;
  }
  return values;
}

void RecordingDtm::RegisterUI(std::string_view className, std::string_view invokeId,
                              std::shared_ptr<IUpdateUI> receiver, std::int32_t number, bool& flag) {
  if (simulator_) {
    auto recording = std::make_shared<RecordingReceiver>(weak_from_this(), std::move(receiver));
    simulator_->RegisterUI(className, invokeId, std::move(recording), number, flag);
  }
  registrations_.Push({"RegisterUI", std::string(className), std::string(invokeId), number},
                      sizeof(Registration) + className.size() + invokeId.size());
}

void RecordingDtm::UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) {
  if (simulator_) simulator_->UnregisterUI(invokeId, number, flag);
  registrations_.Push({"UnregisterUI", std::nullopt, std::string(invokeId), number},
                      sizeof(Registration) + invokeId.size());
}

void RecordingDtm::WriteRequest(std::string_view code, std::string_view document, std::string& result) {
  if (Fails(failures_.writes, code)) throw RuntimeFailure("the write call is made to fail");
  if (simulator_) simulator_->WriteRequest(code, document, result);
  RecordRequest("write", code, document);
}

void RecordingDtm::ReadRequest(std::string_view code, std::string_view document, std::string& result) {
  if (Fails(failures_.reads, code)) throw RuntimeFailure("the read call is made to fail");
  if (simulator_) simulator_->ReadRequest(code, document, result);
  RecordRequest("read", code, document);
}

void RecordingDtm::RecordAnswer(std::int32_t code, std::string_view document) {
  answers_.Push({code, std::string(document)}, sizeof(Answer) + document.size());
}

bool RecordingDtm::Fails(bool kind, std::string_view code) const {
  if (!kind || !failures_.codes) return kind;
  return std::find(failures_.codes->begin(), failures_.codes->end(), code) != failures_.codes->end();
}

void RecordingDtm::RecordRequest(std::string_view kind, std::string_view code, std::string_view document) {
  requests_.Push({kind, std::string(code), std::string(document)}, sizeof(Request) + code.size() + document.size());
}

Json RecordingDtm::TakeRequests() {
  return TakeAs("requests", requests_, [](const Request& request) -> Json {
    return {{"kind", request.kind},
            {"code", request.code},
            {"document", request.document},
            {"attributes", AttributesOf(request.document)}};
  });
}

Json RecordingDtm::TakeRegistrations() {
  return TakeAs("registrations", registrations_, [](const Registration& registration) {
    Json json = {
        {"operation", registration.operation}, {"invokeId", registration.invokeId}, {"number", registration.number}};
    if (registration.className) json["className"] = *registration.className;
    return json;
  });
}

Json RecordingDtm::TakeAnswers() {
  return TakeAs("answers", answers_, [](const Answer& answer) -> Json {
    return {{"code", answer.code}, {"document", answer.document}};
  });
}

}  // namespace htr60::automation
