#include "automate/fields.h"

#include <algorithm>
#include <cmath>

namespace htr60::automation {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

}  // namespace

Json Number(double value) {
  if (std::floor(value) == value && value >= -kTwoTo63 && value < kTwoTo63) return static_cast<std::int64_t>(value);
  return value;
}

std::optional<std::int64_t> WholeNumber(const Json& json, std::int64_t least, std::int64_t most) {
  std::int64_t number = 0;
  if (json.is_number_unsigned()) {
    const auto value = json.get<std::uint64_t>();
    if (value > static_cast<std::uint64_t>(INT64_MAX)) return std::nullopt;
    number = static_cast<std::int64_t>(value);
  } else if (json.is_number_integer()) {
    number = json.get<std::int64_t>();
  } else if (json.is_number_float()) {
    const auto value = json.get<double>();
    if (std::floor(value) != value || value < -kTwoTo63 || value >= kTwoTo63) return std::nullopt;
    number = static_cast<std::int64_t>(value);
  } else {
    return std::nullopt;
  }
  if (number < least || number > most) return std::nullopt;
  return number;
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

Fields::Fields(const Json& object, std::string_view what) : object_(object) {
  if (!object.is_object()) throw CommandError(std::string(what) + " is no JSON object");
}

const Json* Fields::Find(std::string_view name) {
  const auto found = object_.find(name);
  if (found == object_.end()) return nullptr;
  asked_.push_back(name);
  return &*found;
}

const Json& Fields::Any(std::string_view name) {
  const Json* found = Find(name);
  if (found == nullptr) throw CommandError(Quoted(name) + " is missing");
  return *found;
}

std::string Fields::Text(std::string_view name) {
  const Json& json = Any(name);
  if (!json.is_string()) WrongKind(name, "a text");
  return json.get<std::string>();
}

std::optional<std::string> Fields::TextIfAny(std::string_view name) {
  if (!Has(name)) return std::nullopt;
  return Text(name);
}

std::vector<std::string> Fields::Texts(std::string_view name) {
  std::vector<std::string> texts;
  for (const Json& element : Array(name)) {
    if (!element.is_string()) WrongKind(name, "an array of texts");
    texts.push_back(element.get<std::string>());
  }
  return texts;
}

const Json& Fields::Array(std::string_view name) {
  const Json& json = Any(name);
  if (!json.is_array()) WrongKind(name, "an array");
  return json;
}

std::int64_t Fields::Whole(std::string_view name, std::int64_t least, std::int64_t most) {
  const Json& json = Any(name);
  const auto number = WholeNumber(json, least, most);
  if (!number) {
    throw CommandError(Quoted(name) + " is no whole number from " + std::to_string(least) + " to " +
                       std::to_string(most));
  }
  return *number;
}

bool Fields::FlagOr(std::string_view name, bool otherwise) {
  const Json* found = Find(name);
  if (found == nullptr) return otherwise;
  if (!found->is_boolean()) WrongKind(name, "true or false");
  return found->get<bool>();
}

void Fields::End() const {
  for (const auto& [name, value] : object_.items()) {
    if (std::find(asked_.begin(), asked_.end(), name) == asked_.end()) {
      throw CommandError("unknown member " + Quoted(name));
    }
  }
}

void Fields::WrongKind(std::string_view name, std::string_view wanted) {
  throw CommandError(Quoted(name) + " is not " + std::string(wanted));
}

}  // namespace htr60::automation
