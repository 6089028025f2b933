#include "desktop/mnemonics.h"

#include <QSet>

namespace htr60::desktop {

std::vector<QChar> ChooseMnemonics(const QStringList& captions) {
  QSet<QChar> taken{u'W', u'S', u'B'};
  std::vector<QChar> chosen;
  for (const QString& caption : captions) {
    QChar letter;
    // First letters of words are found sooner by the eye than letters inside.
    for (const bool initial : {true, false}) {
      for (qsizetype i = 0; letter.isNull() && i < caption.size(); ++i) {
        const QChar c = caption[i].toUpper();
        if (initial && i > 0 && caption[i - 1].isLetterOrNumber()) continue;
        if (c >= u'A' && c <= u'Z' && !taken.contains(c)) letter = c;
      }
    }
    if (!letter.isNull()) taken.insert(letter);
    chosen.push_back(letter);
  }
  return chosen;
}

QString WithMnemonic(QString caption, QChar letter) {
  qsizetype at = -1;
  if (!letter.isNull()) {
    for (const bool initial : {true, false}) {
      for (qsizetype i = 0; at < 0 && i < caption.size(); ++i) {
        if (initial && i > 0 && caption[i - 1].isLetterOrNumber()) continue;
        if (caption[i].toUpper() == letter) at = i;
      }
    }
  }
  const QString head = caption.left(std::max<qsizetype>(at, 0)).replace(QStringLiteral("&"), QStringLiteral("&&"));
  const QString tail = caption.mid(std::max<qsizetype>(at, 0)).replace(QStringLiteral("&"), QStringLiteral("&&"));
  return at < 0 ? tail : head + u'&' + tail;
}

}  // namespace htr60::desktop
