#include "desktop/docks/dock_tools.h"

#include <QAccessible>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "desktop/edge.h"
#include "desktop/qt_text.h"
#include "observe/save_file.h"
#include "observe/traffic_list.h"

namespace htr60::desktop {

DockMessage::DockMessage(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setAccessibleName(tr("Message"));
  hide();
}

void DockMessage::Say(const QString& sentence) {
  setText(sentence);
  setAccessibleDescription(sentence);
  setVisible(!sentence.isEmpty());
  if (sentence.isEmpty()) return;
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

std::function<std::string(std::int64_t)> ClockOf(const DesktopHost& host, bool milliseconds) {
  const QDateTime start = host.Time().Start();
  const QString format = milliseconds ? QStringLiteral("HH:mm:ss.zzz") : QStringLiteral("HH:mm:ss");
  return [start, format](std::int64_t at) { return ToUtf8(start.addMSecs(at).toString(format)); };
}

QString AskForFile(QWidget* parent, const DockContext& context, std::string_view what, std::string_view ending,
                   const QString& filter) {
  const QDateTime now = context.host.Time().Start().addMSecs(context.host.Time().Now());
  const auto& identity = context.presented.Shown().identity;
  const std::string tag = identity.empty() ? std::string() : identity[presentation::kTagPart];
  const std::string name = observe::ProposedName(tag, what, ToUtf8(now.date().toString(Qt::ISODate)), ending);
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  QFileDialog dialog(parent, QObject::tr("Save"), folder.path(), filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(ToQt(ending));
  dialog.selectFile(ToQt(name));
  // The name goes with the kind of file that is chosen.
  Connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& chosen) {
    const QString suffix = chosen.section(QLatin1String("*."), 1).section(u')', 0, 0);
    const QStringList files = dialog.selectedFiles();
    if (suffix.isEmpty() || files.isEmpty()) return;
    dialog.setDefaultSuffix(suffix);
    const QFileInfo file(files.front());
    dialog.selectFile(file.dir().filePath(file.completeBaseName() + u'.' + suffix));
  });
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().front();
}

void SaveAndSay(const QString& file, std::string_view bytes, DockMessage& message) {
  try {
    observe::SaveWhole(QFileInfo(file).filesystemFilePath(), bytes);
    message.Say(QObject::tr("Saved as %1.").arg(QDir::toNativeSeparators(file)));
  } catch (const observe::SaveError& error) {
    message.Say(QString::fromUtf8(error.what()));
  }
}

}  // namespace htr60::desktop
