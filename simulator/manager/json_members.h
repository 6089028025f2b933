#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "simulator/manager/settings.h"

namespace htr60::sim {

/// "there is no \"Levl\"; there are Pressure, Flow": what a name is refused with, for people.
template <typename Names>
std::string NoSuchName(std::string_view found, const Names& known) {
  constexpr std::size_t kLongest = 40;
  std::string sentence = "there is no " + (found.size() > kLongest ? "such name" : '"' + std::string(found) + '"');
  const char* before = "; there are ";
  for (const auto& name : known) {
    sentence += before + std::string(name);
    before = ", ";
  }
  return sentence;
}

/// Takes the members of one JSON object by name and kind; errors name the member with its path.
class JsonMembers {
 public:
  JsonMembers(const nlohmann::json& object, std::string path) : object_(object), path_(std::move(path)) {
    if (!object.is_object()) throw SettingsError((path_.empty() ? "settings" : path_) + ": an object is expected");
  }

  std::string Where(std::string_view name) const {
    return path_.empty() ? std::string(name) : path_ + "." + std::string(name);
  }

  /// The member, or null where the object has none. It counts as known from now on.
  const nlohmann::json* Find(std::string_view name) {
    known_.emplace(name);
    const auto member = object_.find(std::string(name));
    return member == object_.end() ? nullptr : &*member;
  }

  template <typename T>
  bool Number(std::string_view name, T& target, double least, double most) {
    const auto* member = Find(name);
    if (member == nullptr) return false;
    if (!member->is_number()) throw SettingsError(Where(name) + ": a number is expected");
    const auto value = member->get<double>();
    if (!(value >= least && value <= most)) throw OutOfRange(name, least, most);
    target = value;
    return true;
  }

  template <typename T>
  bool Whole(std::string_view name, T& target, std::int64_t least, std::int64_t most) {
    const auto* member = Find(name);
    if (member == nullptr) return false;
    if (!member->is_number_integer()) throw SettingsError(Where(name) + ": a whole number is expected");
    const bool tooLarge =
        member->is_number_unsigned() && member->get<std::uint64_t>() > static_cast<std::uint64_t>(most);
    if (tooLarge || member->get<std::int64_t>() < least || member->get<std::int64_t>() > most) {
      throw OutOfRange(name, least, most);
    }
    Assign(target, member->get<std::int64_t>());
    return true;
  }

  template <typename T>
  bool Flag(std::string_view name, T& target) {
    const auto* member = Find(name);
    if (member == nullptr) return false;
    if (!member->is_boolean()) throw SettingsError(Where(name) + ": true or false is expected");
    target = member->get<bool>();
    return true;
  }

  bool Text(std::string_view name, std::string& target) {
    const auto* member = Find(name);
    if (member == nullptr) return false;
    if (!member->is_string()) throw SettingsError(Where(name) + ": a text is expected");
    target = member->get<std::string>();
    return true;
  }

  /// Refuses the members that nothing has asked for.
  void RefuseOthers() const {
    for (const auto& [name, value] : object_.items()) {
      if (known_.find(name) == known_.end()) throw SettingsError(Where(name) + ": " + NoSuchName(name, known_));
    }
  }

 private:
  template <typename T>
  SettingsError OutOfRange(std::string_view name, T least, T most) const {
    const auto text = [](T number) { return nlohmann::json(number).dump(); };
    return SettingsError(Where(name) + ": the number goes from " + text(least) + " to " + text(most));
  }

  static void Assign(int& target, std::int64_t value) { target = static_cast<int>(value); }
  static void Assign(std::int64_t& target, std::int64_t value) { target = value; }
  static void Assign(std::optional<std::int64_t>& target, std::int64_t value) { target = value; }

  const nlohmann::json& object_;
  std::string path_;
  std::set<std::string, std::less<>> known_;
};

}  // namespace htr60::sim
