#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace htr60::automation {

using Json = nlohmann::json;

/// A command that cannot be carried out. `what()` is a sentence for people.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A JSON number: an integer where `value` is a whole number that fits 64 bits, else the double.
Json Number(double value);

/// `json` as a whole number from `least` to `most`, however it is spelt (2, 2.0); none where it is no such number.
std::optional<std::int64_t> WholeNumber(const Json& json, std::int64_t least, std::int64_t most);

/// `text` in quotation marks, for an error's sentence.
std::string Quoted(std::string_view text);

/// Takes the members of a JSON object one by one and knows in the end which nobody has asked for. Throws `CommandError`
/// for a member that is missing or of the wrong kind.
class Fields {
 public:
  /// `what` names the object in errors. `object` must outlive this.
  Fields(const Json& object, std::string_view what);

  bool Has(std::string_view name) const { return object_.contains(name); }
  const Json* Find(std::string_view name);
  const Json& Any(std::string_view name);
  std::string Text(std::string_view name);
  std::optional<std::string> TextIfAny(std::string_view name);
  std::vector<std::string> Texts(std::string_view name);
  const Json& Array(std::string_view name);
  std::int64_t Whole(std::string_view name, std::int64_t least, std::int64_t most);
  bool FlagOr(std::string_view name, bool otherwise);
  /// Throws where a member is left that was not asked for.
  void End() const;

 private:
  [[noreturn]] static void WrongKind(std::string_view name, std::string_view wanted);

  const Json& object_;
  std::vector<std::string_view> asked_;
};

}  // namespace htr60::automation
