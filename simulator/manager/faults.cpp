#include "simulator/manager/faults.h"

#include <algorithm>
#include <string_view>

namespace htr60::sim {
namespace {

/// A tag on its way into the document.
struct Element {
  std::string_view tag;
  Form form = Form::kE2;
  std::optional<std::string> value;
};

struct Draft {
  std::vector<Element> elements;
  bool huge = false;
  bool cut = false;
  bool empty = false;
};

bool IsOneOf(Form form, std::initializer_list<Form> forms) {
  return std::find(forms.begin(), forms.end(), form) != forms.end();
}

std::string WithFloats(std::string value, Form form, std::string_view digits) {
  const FloatPlaces places = FloatsOf(form);
  for (std::size_t i = 0; i < places.count; ++i) {
    const std::size_t at = places.first + 8 * i;
    if (at + 8 <= value.size()) value.replace(at, 8, digits);
  }
  return value;
}

std::string UnknownCode(std::string value, Form form) {
  if (form == Form::kE2) return "FE";
  if (form == Form::kE4) return "FFFE";
  if (form == Form::kU4) return "07D0";
  if (form == Form::kR22 && value.size() == DigitsOf(form)) value.replace(16, 4, "07D0");
  return value;
}

std::string WrongDigits(std::string value, std::uint64_t turn) {
  switch (turn % 3) {
    case 0:
      if (!value.empty()) value.pop_back();
      return value;
    case 1:
      if (value.size() > 1) value[1] = 'G';
      return value;
    default:
      return value + value;
  }
}

/// The value that a fault makes of one; none where the fault does not touch values.
std::optional<std::string> Changed(Fault& fault, const std::string& value, Form form) {
  switch (fault.settings.kind) {
    case FaultKind::kWrongDigits:
      return WrongDigits(value, fault.turn++);
    case FaultKind::kUnknownCodes:
      return UnknownCode(value, form);
    case FaultKind::kFloatNaN:
      return WithFloats(value, form, "7FC00000");
    case FaultKind::kFloatInfinity:
      return WithFloats(value, form, "7F800000");
    case FaultKind::kFloatDenormal:
      return WithFloats(value, form, "00000001");
    case FaultKind::kModificationBit: {
      if (!IsOneOf(form, {Form::kL16}) || value.size() < 4) return std::nullopt;
      const auto word = NumberOf(std::string_view(value).substr(0, 4)) | 0x8000U;
      return NumberDigits(word, 4) + value.substr(4);
    }
    default:
      return std::nullopt;
  }
}

/// Acts on the named tags one by one; true where there was one.
bool ActOnTags(Fault& fault, std::vector<Element>& elements) {
  bool acted = false;
  std::vector<Element> result;
  for (auto& element : elements) {
    if (!fault.Names(element.tag)) {
      result.push_back(std::move(element));
      continue;
    }
    acted = true;
    if (fault.settings.kind == FaultKind::kMissingTag) continue;
    if (fault.settings.kind == FaultKind::kMissingValue) {
      element.value.reset();
    } else if (fault.settings.kind == FaultKind::kDuplicateTag && element.value) {
      result.push_back({element.tag, element.form, std::string(element.value->size(), '0')});
    } else if (element.value) {
      if (auto changed = Changed(fault, *element.value, element.form)) element.value = std::move(*changed);
    }
    result.push_back(std::move(element));
  }
  elements = std::move(result);
  return acted;
}

bool Act(Fault& fault, Draft& draft) {
  switch (fault.settings.kind) {
    case FaultKind::kMissingTag:
    case FaultKind::kMissingValue:
    case FaultKind::kWrongDigits:
    case FaultKind::kDuplicateTag:
    case FaultKind::kUnknownCodes:
    case FaultKind::kFloatNaN:
    case FaultKind::kFloatInfinity:
    case FaultKind::kFloatDenormal:
    case FaultKind::kModificationBit:
      return ActOnTags(fault, draft.elements);
    case FaultKind::kMalformedXml:
      draft.cut = true;
      return true;
    case FaultKind::kEmptyDocument:
      draft.empty = true;
      return true;
    case FaultKind::kNoTags:
      draft.elements.clear();
      return true;
    case FaultKind::kHugeDocument:
      draft.huge = true;
      return true;
    default:
      return false;
  }
}

std::string Serialised(const Draft& draft) {
  constexpr int kForeignElements = 10000;
  constexpr std::string_view kValue = "\" value=\"";
  if (draft.empty) return {};
  std::string text = "<Answer>";
  if (draft.huge) {
    for (int i = 0; i < kForeignElements; ++i)
      text += "<Parameter tag=\"Foreign" + std::to_string(i) + "\" value=\"00\"/>";
  }
  std::size_t lastValue = text.size() - 1;
  for (const auto& element : draft.elements) {
    text.append("<Parameter tag=\"").append(element.tag);
    lastValue = text.size();
    if (element.value) {
      text.append(kValue);
      lastValue = text.size() + element.value->size() / 2;
      text.append(*element.value);
    }
    text += "\"/>";
  }
  text += "</Answer>";
  if (draft.cut) text.resize(lastValue);
  return text;
}

}  // namespace

bool Fault::Names(int code) const {
  return settings.codes.empty() ||
         std::find(settings.codes.begin(), settings.codes.end(), code) != settings.codes.end();
}

bool Fault::Names(std::string_view tag) const {
  return settings.tags.empty() || std::find(settings.tags.begin(), settings.tags.end(), tag) != settings.tags.end();
}

void Use(Fault& fault) {
  if (fault.left && --*fault.left <= 0) {
    fault.active = false;
    fault.over = true;
  }
}

std::string AnswerDocument(const std::vector<AnswerTag>& tags, int code, std::vector<Fault>& faults) {
  Draft draft;
  draft.elements.reserve(tags.size());
  for (const auto& tag : tags) draft.elements.push_back({tag.tag, tag.form, tag.digits});
  for (auto& fault : faults) {
    if (fault.active && fault.Names(code) && Act(fault, draft)) Use(fault);
  }
  return Serialised(draft);
}

std::string StateDocument(bool online, int code, std::vector<Fault>& faults) {
  std::string text = online ? "<DTMInfo state='Online' />" : "<DTMInfo state='Offline' />";
  for (auto& fault : faults) {
    if (fault.Acts(FaultKind::kShortState, code)) {
      // Without its blank the text is too short for the control to settle anything by it.
      text = "<DTMInfo state='Online'/>";
      Use(fault);
    } else if (fault.Acts(FaultKind::kEmptyDocument, code)) {
      text.clear();
      Use(fault);
    }
  }
  return text;
}

SensorFaults FaultsOfSensors(const std::vector<Fault>& faults) {
  SensorFaults result;
  for (const auto& fault : faults) {
    if (!fault.active) continue;
    for (std::size_t s = 0; s < 2; ++s) {
      const bool here = fault.settings.sensors[s];
      if (fault.settings.kind == FaultKind::kSensorDisconnected)
        result.disconnected[s] = result.disconnected[s] || here;
      if (fault.settings.kind == FaultKind::kSensorFailure) result.failed[s] = result.failed[s] || here;
      if (fault.settings.kind == FaultKind::kStuckSensor) result.stuck[s] = result.stuck[s] || here;
    }
    if (fault.settings.kind == FaultKind::kBoardFailure) result.board = true;
  }
  return result;
}

}  // namespace htr60::sim
