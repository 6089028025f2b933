#pragma once

#include <string_view>

#include "codecs/mEnumeration.h"
#include "shell/user_cntrl.h"

/// The commands that store or bring back what the device keeps copies of. Three pages offer them with one write.
namespace htr60::pages {

inline constexpr int kBackupWrite = 32;

/// What the pages for everyone offer.
inline constexpr std::string_view kBackupRows[] = {
    "Initial Value",       "Restore Factory Calibration", "Restore Last Calibration",
    "Sensor Data Restore", "Backup Factory Calibration",  "Backup Last Calibration",
};

/// What the factory sensor page offers; its preparation gives the factory page the same.
inline constexpr std::string_view kAllBackupRows[] = {
    "Initial Value",       "Restore Factory Calibration", "Restore Last Calibration", "Restore Trd Blk Default Data",
    "Sensor Data Restore", "Backup Factory Calibration",  "Backup Last Calibration",  "Sensor Data Backup",
};

constexpr LayoutRow BackupRow(LabelId caption, ChoiceId list) {
  return {.caption = "Backup Restore",
          .captionControl = caption,
          .kind = RowKind::kList,
          .control = list,
          .note =
              "A command: the device carries it out when it is written, without a question. Restoring replaces what "
              "the device works with now.",
          .role = RowRole::kCommand};
}

inline Operands BackupOperands(UserCntrl& c, ChoiceId list) { return {EncodeBackupRestore(c.form.At(list).Text())}; }

}  // namespace htr60::pages
