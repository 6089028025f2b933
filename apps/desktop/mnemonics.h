#pragma once

#include <QChar>
#include <QString>
#include <QStringList>
#include <vector>

namespace htr60::desktop {

/// A letter for each caption, in their order, without clash; never W, S, B, which are the action area's. Null where
/// none is left.
std::vector<QChar> ChooseMnemonics(const QStringList& captions);

/// The caption as a widget's text, with the letter marked; the caption itself reads as it stands.
QString WithMnemonic(QString caption, QChar letter);

}  // namespace htr60::desktop
