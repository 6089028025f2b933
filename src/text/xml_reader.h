#pragma once

#include <memory>
#include <string_view>

namespace htr60 {

/// Takes the elements of a document in their order. What it throws ends the reading.
class XmlElements {
 public:
  virtual ~XmlElements() = default;
  /// `attributes`: name, value, name, value, ..., a null. All texts are UTF-8, end with a NUL and live for the call.
  virtual void OnStart(const char* name, const char* const* attributes) = 0;
  virtual void OnEnd() {}
};

/// Reads documents one after the other with one parser and its memory.
///
/// One source file for each system makes it: of expat, or of the reader that the system brings. Both are strict; the
/// system's also refuses unbound prefixes and more than 256 levels.
class XmlReader {
 public:
  /// Throws `RuntimeFailure` where there is no parser.
  XmlReader();
  ~XmlReader();
  XmlReader(const XmlReader&) = delete;
  XmlReader& operator=(const XmlReader&) = delete;

  /// Whether `document` (UTF-8, an encoding that it declares is not applied) is well-formed to its end; its elements
  /// are told on the way, those before a fault too. A DOCTYPE counts as not well-formed, so nothing is expanded or
  /// fetched. Elements that threw count as a fault.
  bool Read(std::string_view document, XmlElements& elements);

 private:
  struct Parser;
  std::unique_ptr<Parser> parser_;
};

}  // namespace htr60
