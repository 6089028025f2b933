#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace htr60::presentation {

/// What is known of the text in a field that the operator can change.
enum class FieldState : std::uint8_t {
  kNotRead,      ///< the program has not set it since the page was opened
  kAsRead,       ///< the program's text: nothing to say
  kNotWritten,   ///< the operator's text, not the program's last
  kSent,         ///< a write left with it
  kConfirmed,    ///< the re-read after the write gave the same
  kStored,       ///< it gave what the code makes of the number sent
  kDiffers,      ///< it gave something else
  kReplaced,     ///< the program set another text over one not written
  kChanged,      ///< a re-read gave another text than before
  kNotReadBack,  ///< no re-read came after the write
  kShown,        ///< a command after its re-read: what the device shows is no verdict
};
inline constexpr std::size_t kFieldStates = 11;

/// What happens to a field. Sets are those of the program.
enum class FieldEvent : std::uint8_t {
  kOpened,          ///< a node or a button has opened the page; Back does not count
  kEdited,          ///< the operator's text is another than the program's last; a pick of a command always
  kAgreed,          ///< the operator's text, or the one sent, and the program's are the same again
  kWritten,         ///< a write left with it
  kSetEarly,        ///< set while the re-read is still to be sent
  kSetSame,         ///< set to what stands there
  kSetOther,        ///< set to another text
  kSetCompared,     ///< set to another text by what is read anew: the same node's activation, the re-read of a write
  kVerdictSame,     ///< set within the time of the verdict, to what was sent
  kVerdictStored,   ///< to what the code makes of it
  kVerdictOther,    ///< to something else
  kVerdictCommand,  ///< of a command, to whatever
  kVerdictMissing,  ///< the time of the verdict is over without a set
  kFaded,           ///< the state has stood for its time
  kLeft,            ///< another page came to the front
};
inline constexpr std::size_t kFieldEvents = 15;

/// Where an event leads: a state, the state it has, or rest: as read, or not read where it was not read.
enum class FieldStep : std::uint8_t {
  kNotRead,
  kAsRead,
  kNotWritten,
  kSent,
  kConfirmed,
  kStored,
  kDiffers,
  kReplaced,
  kChanged,
  kNotReadBack,
  kShown,
  kStay,
  kRest,
};

FieldStep NextStep(FieldState state, FieldEvent event);

/// The name of a state as scripts know it: "not read", "as read", ...
std::string_view NameOf(FieldState state);

}  // namespace htr60::presentation
