#pragma once

#include <QByteArray>

#include "observe/record.h"

namespace htr60::desktop {

/// A record as a document to file: title block, table, charts, room for two signatures, pages numbered.
QByteArray RecordPdf(const observe::Record& record, const observe::RecordHead& head);

}  // namespace htr60::desktop
