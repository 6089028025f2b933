#pragma once

#include <string_view>

/// Notes of fields that stand on several pages.
namespace htr60::pages {

inline constexpr std::string_view kNewTypeNote = "A change sets the transducer to the defaults of the new type.";
inline constexpr std::string_view kSensorDiagNote =
    "What the sensors' electronics find wrong with them; None where all is well.";
inline constexpr std::string_view kReadingNote =
    "Capacitance reading; above 9000 the sensor electronics do not answer.";
inline constexpr std::string_view kReadingWithoutStatusNote = "Capacitance reading; its status is not shown.";
inline constexpr std::string_view kReadingStatusNote = "How far the reading can be trusted.";
inline constexpr std::string_view kPrimaryValueNote = "The measured value of the transducer.";
inline constexpr std::string_view kPrimaryValueStatusNote = "How far the primary value can be trusted.";

}  // namespace htr60::pages
