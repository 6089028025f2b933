#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// Names and tooltips of what stands around the pages, the same in every view.
namespace htr60::presentation {

inline constexpr std::string_view kTreeName = "Pages";
inline constexpr std::string_view kHealthName = "Health";
inline constexpr std::string_view kFieldStatesName = "States of the fields";  ///< the line of the action area
inline constexpr std::string_view kFieldStatesTip = "Goes to the next of these fields.";
inline constexpr std::string_view kMessageName = "Message";
inline constexpr std::string_view kDataLineName = "Age of the values";
inline constexpr std::string_view kLateName = "No answer";  ///< the shape before that line
inline constexpr std::string_view kRevertName = "Revert";
inline constexpr std::string_view kRevertTip = "Puts the texts not written on this tab back.";
inline constexpr std::string_view kBackTip = "Goes back to the page before and reads nothing.";
inline constexpr std::string_view kWriteTip = "Sends the fields of this tab to the device.";
inline constexpr std::string_view kSaveTip = "The device keeps every value: there is nothing to save here.";
inline constexpr std::string_view kOpenNodeMark = "open page";
inline constexpr std::string_view kUnwrittenNodeMark = "not written";

/// By panel; the two in the middle stay empty.
inline constexpr std::array<std::string_view, 4> kPanelNames = {"Connection", "", "", "Traffic"};

/// The parts of the line that says who the instrument is, in their order.
struct IdentityPart {
  std::string_view name;    ///< for assistive technology and the tooltip
  std::string_view prefix;  ///< shown before the text
};
inline constexpr std::array<IdentityPart, 6> kIdentityParts = {{{"Tag", ""},
                                                                {"Manufacturer", ""},
                                                                {"Serial number", "SN "},
                                                                {"Firmware", "Firmware "},
                                                                {"Measurement", ""},
                                                                {"Write protection", ""}}};
inline constexpr std::size_t kTagPart = 0;
inline constexpr std::size_t kLockPart = kIdentityParts.size() - 1;
inline constexpr std::string_view kLocked = "Write Locked";
inline constexpr std::string_view kPadlockName = "Write protection is on";

}  // namespace htr60::presentation
